// The foot of the window: the last message, a mark while a transfer runs, and under the message
// what lies behind it when it tells of a trouble.
#pragma once

#include "editor/qt/BusyMark.h"
#include "editor/qt/TextFields.h"

#include <QFrame>

namespace scenewright {

class StatusLine final : public QFrame {
    Q_OBJECT

public:
    explicit StatusLine(QWidget* parent = nullptr);

    [[nodiscard]] TextLabel& message() { return *message_; }
    // Cause and cure in one or two sentences; empty for none.
    void setAdvice(const QString& advice);
    [[nodiscard]] QString advice() const { return advice_->text(); }
    void setBusy(bool isBusy);
    // Puts a widget at the end of the message's line, and takes it as a child.
    void addMark(QWidget& mark);
    [[nodiscard]] bool isBusy() const { return !busy_->isHidden(); }

private:
    TextLabel* message_; // children
    QLabel* advice_;
    BusyMark* busy_;
};

} // namespace scenewright
