// The foot of the window: the last message, and a mark while a transfer runs.
#pragma once

#include "editor/qt/BusyMark.h"
#include "editor/qt/TextFields.h"

#include <QFrame>

class QHBoxLayout;

namespace scenewright {

class StatusLine final : public QFrame {
    Q_OBJECT

public:
    explicit StatusLine(QWidget* parent = nullptr);

    [[nodiscard]] TextLabel& message() { return *message_; }
    void setBusy(bool isBusy);
    // Puts a widget at the end of the message's line, and takes it as a child.
    void addMark(QWidget& mark);
    [[nodiscard]] bool isBusy() const { return !busy_->isHidden(); }

private:
    TextLabel* message_; // children
    BusyMark* busy_;
    QHBoxLayout* row_;
};

} // namespace scenewright
