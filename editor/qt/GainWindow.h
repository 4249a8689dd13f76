// The gain panel as a small window of its own.
#pragma once

#include "editor/GainController.h"
#include "editor/qt/Adapters.h"

#include <QDialog>

#include <array>

class QGridLayout;

namespace scenewright {

class GainWindow final : public QDialog {
    Q_OBJECT

public:
    explicit GainWindow(QWidget* parent = nullptr);

    [[nodiscard]] GainController& controller() { return controller_; }

    static constexpr std::int32_t kGains = 8;

private:
    void makeGain(QGridLayout& grid, std::int32_t tag);
    void makeButtons(QGridLayout& grid);

    GainController controller_;
};

} // namespace scenewright
