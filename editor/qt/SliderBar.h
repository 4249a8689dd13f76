// A slider with a tag; it carries 0 to 127.
#pragma once

#include "editor/widgets/Widgets.h"

#include <QSlider>

namespace scenewright {

class SliderBar final : public QSlider, public Slider {
    Q_OBJECT

public:
    explicit SliderBar(std::int32_t tag, QWidget* parent = nullptr);

    [[nodiscard]] std::int32_t tag() const override { return tag_; }
    [[nodiscard]] std::int32_t value() const override { return QSlider::value(); }
    void setValue(std::int32_t value) override;

signals:
    // The user moved it; nothing that the program does emits it.
    void moved();

private:
    std::int32_t tag_;
    bool isProgram_ = false;
};

} // namespace scenewright
