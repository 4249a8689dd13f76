// The main thread's busy time, as the user meets it: the wait cursor, and no key or click that is
// carried out afterwards, on another window than the one it was meant for.
#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

namespace scenewright {

// Over the program's windows, as long as the object lives. Its end takes what the window system has
// told meanwhile, and drops keys, clicks, the wheel and touches; a window that was to be closed is
// closed soon after. Main thread only.
class BlockedInput final : public QObject {
    Q_OBJECT

public:
    BlockedInput();
    ~BlockedInput() override;
    BlockedInput(const BlockedInput&) = delete;
    BlockedInput& operator=(const BlockedInput&) = delete;
    BlockedInput(BlockedInput&&) = delete;
    BlockedInput& operator=(BlockedInput&&) = delete;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QPointer<QWidget> closed_;
};

} // namespace scenewright
