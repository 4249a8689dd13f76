// The two places where the window speaks to its user: a bar of notices, and the line at its foot
// with the progress record's message.
#pragma once

#include "editor/qt/Adapters.h"

#include <QFrame>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>

#include <cstdint>
#include <deque>
#include <functional>
#include <vector>

class QHBoxLayout;

namespace scenewright {

struct NoticeAction {
    QString title;
    std::function<void()> action;
};

struct Notice {
    enum class Kind : std::uint8_t { Done, Error };
    // Who speaks. A source has one notice at most: its next one takes the place of the former.
    enum class Source : std::uint8_t { Transfer, Comparison, Files, Resources, Quit };

    Source source = Source::Transfer;
    Kind kind = Kind::Error;
    QString text;
    std::vector<NoticeAction> actions{};
};

// A bar across the window that tells what a person should know before going on, with buttons for
// what they may want to do about it. One notice is shown at a time; the others wait their turn.
class NoticeBar final : public QFrame {
    Q_OBJECT

public:
    // Hidden until there is something to show.
    explicit NoticeBar(QWidget* parent);

    // Behind those that wait, or in the place of the source's former one. One that is shown and
    // tells of nothing but what was done gives way.
    void post(Notice notice);
    // What the source has to say no longer holds. The notices of others stay.
    void withdraw(Notice::Source source);
    // Ends the notice that is shown, and shows the next. Choosing an action dismisses first.
    void dismiss();

    // Empty when nothing is shown.
    [[nodiscard]] QString text() const { return isHidden() ? QString() : text_->text(); }
    // The button of an action; null when there are not so many.
    [[nodiscard]] QPushButton* action(std::size_t place) const;
    // The shown one included.
    [[nodiscard]] std::size_t count() const { return notices_.size(); }

private:
    void showFirst();
    void addAction(const NoticeAction& action);
    void clearActions();

    // Children of the bar.
    QHBoxLayout* row_;
    QLabel* text_;
    QPushButton* close_;
    std::vector<QPushButton*> buttons_;

    std::deque<Notice> notices_; // the first one is shown
};

// The foot of the window: the last message, and a moving bar while a transfer runs.
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
    QProgressBar* busy_;
    QHBoxLayout* row_;
};

} // namespace scenewright
