// The two places where the window speaks to its user: a bar of notices, and the line at its foot
// with the progress record's message.
#pragma once

#include "editor/qt/Adapters.h"
#include "editor/qt/Notice.h"
#include "platform/Text.h"

#include <QFrame>
#include <QLabel>
#include <QPointer>
#include <QProgressBar>
#include <QPushButton>
#include <QShortcut>
#include <QTimer>

#include <chrono>
#include <deque>
#include <vector>

class QHBoxLayout;

namespace scenewright {

// Names the widget by what it shows, and tells a screen reader, wherever the keyboard is.
void announce(QWidget& widget, const QString& text);

// The text of a notice on one line, cut short where the room ends; text() is the whole.
class NoticeText : public QLabel {
    Q_OBJECT

public:
    explicit NoticeText(QWidget* parent);

    // Whether a part of the text is not seen.
    [[nodiscard]] bool isCut() const;
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] QString seen() const;
};

// One that a screen reader is told of whenever it changes.
class SpokenText final : public NoticeText {
    Q_OBJECT

public:
    using NoticeText::NoticeText;

    void say(const QString& text);
};

// A bar across the window that tells what a person should know before going on, with buttons for
// what they may want to do about it. The latest is shown, as it answers what was done last; when it
// ends, the one before it is shown again.
//
// The bar is one line high and keeps its room while it is hidden, so that nothing moves under the
// pointer when a notice comes or goes. Escape ends the notice that is shown, and so does time when
// it tells of what was done and offers nothing; not while the pointer or the keyboard is on it, and
// not while another window is the active one. The keyboard goes back to where it was before.
class NoticeBar final : public QFrame {
    Q_OBJECT

public:
    static constexpr std::chrono::seconds kDoneLasts{10};

    // Hidden until there is something to show.
    explicit NoticeBar(QWidget* parent);

    // How long what was done is told; zero is for ever.
    void setDoneLasts(std::chrono::milliseconds time) { doneLasts_ = time; }

    // Before the others, and instead of the source's former one. One that is shown and that time
    // would end gives way for good.
    void post(Notice notice);
    // What was done, if anything, and why something was not. Neither withdraws the source's notice.
    void postResult(Notice::Source source, const Result<void>& result, const QString& done);
    // What the source has to say no longer holds. The notices of others stay.
    void withdraw(Notice::Source source);
    // Ends the notice that is shown, and shows the next. Choosing an action dismisses first.
    void dismiss();

    // Empty when nothing is shown.
    [[nodiscard]] QString text() const { return isHidden() ? QString() : text_->text(); }
    // The button of an action; null when there are not so many.
    [[nodiscard]] QPushButton* action(std::size_t place) const;
    // Opens the whole text in a dialog; its button is seen when the line does not show all of it.
    void showDetails();
    // The shown one included.
    [[nodiscard]] std::size_t count() const { return notices_.size(); }

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void showFirst();
    void showText(const Notice& notice);
    void addAction(const NoticeAction& action);
    void clearActions();
    void offerDetails();
    void startExpiry(const Notice& notice);
    void expire();
    void giveKeyboardBack();

    // Children of the bar.
    QHBoxLayout* row_;
    NoticeText* text_;
    QPushButton* details_;
    QPushButton* close_;
    QShortcut* escape_;
    QTimer* expiry_;
    std::vector<QPushButton*> buttons_;

    std::chrono::milliseconds doneLasts_ = kDoneLasts;
    QPointer<QWidget> former_; // had the keyboard before the bar

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
    [[nodiscard]] int markHeight() const;

    TextLabel* message_; // children
    QProgressBar* busy_;
    QHBoxLayout* row_;
};

} // namespace scenewright
