#include "editor/qt/NoticeBar.h"

#include "editor/qt/Dialogs.h"
#include "editor/qt/QtHelpers.h"
#include "tests/support/Limits.h"

#include <QAccessible>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace scenewright {
namespace {

using Source = Notice::Source;

// Laid out as large as it wants to be, and on the screen.
void put(QWidget& widget) {
    widget.resize(600, widget.sizeHint().height());
    widget.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&widget, testing::kLimitMilliseconds));
}

Notice noticeOf(Notice::Source source, const QString& text,
                std::vector<NoticeAction> actions = {}) {
    return {.source = source, .text = text, .actions = std::move(actions)};
}

TEST(NoticeBar, ShowsMarkupAsItIsWrittenAndAnErrorOtherThanWhatIsDone) {
    NoticeBar bar(nullptr);
    bar.setDoneLasts({});
    const auto* text = bar.findChild<QLabel*>();
    bar.post({.source = Source::Files, .kind = Notice::Kind::Error, .text = "<b>bold</b>"});
    EXPECT_EQ(text->text(), "<b>bold</b>");
    EXPECT_EQ(text->textFormat(), Qt::PlainText);
    EXPECT_EQ(text->property("role"), "trouble");
    bar.post({.source = Source::Files, .kind = Notice::Kind::Done, .text = "a"});
    EXPECT_EQ(text->property("role"), "notice");
}

TEST(NoticeBar, ActionsStandInTheirOrderBeforeTheDismissal) {
    NoticeBar bar(nullptr);
    bar.post(noticeOf(Source::Files, "a", {{"First", [] {}}, {"Second", [] {}}}));
    put(bar);
    QStringList titles;
    auto buttons = bar.findChildren<QPushButton*>();
    std::ranges::sort(buttons, {}, [](const QPushButton* button) { return button->x(); });
    buttons.removeIf([](const QPushButton* button) { return !button->isVisible(); });
    for (const QPushButton* button : buttons)
        titles.append(button->text());
    EXPECT_EQ(titles, (QStringList{"First", "Second", "Dismiss"}));
    EXPECT_EQ(bar.findChild<NoticeText*>()->geometry().right() + 1 + 6, buttons.front()->x())
        << "the text has the room that is left";
}

TEST(NoticeBar, AChosenActionTakesItsNoticeAwayAndMayPostForItsOwnSource) {
    NoticeBar bar(nullptr);
    int calls = 0;
    bar.post(noticeOf(Source::Files, "b"));
    bar.post(noticeOf(Source::Transfer, "a", {{"Again", [&] {
                                                   ++calls;
                                                   bar.post(noticeOf(Source::Transfer, "again"));
                                               }}}));
    put(bar);
    QTest::mouseClick(bar.action(0), Qt::LeftButton);
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(bar.text(), "again");
    EXPECT_EQ(bar.action(0), nullptr);
    bar.dismiss();
    EXPECT_EQ(bar.text(), "b");
    EXPECT_EQ(bar.count(), 1U);
}

TEST(NoticeBar, ShowsTheLatestOfOneNoticeOfEachSourceFirst) {
    using Texts = std::vector<std::string>;
    struct Row {
        const char* name;
        std::function<void(NoticeBar&)> act;
        Texts shown; // one after the other, each dismissed
    };
    const Row rows[] = {
        {"as posted", [](NoticeBar&) {}, {"c", "b", "a"}},
        {"the shown one anew",
         [](NoticeBar& bar) { bar.post(noticeOf(Source::Quit, "c2")); },
         {"c2", "b", "a"}},
        {"a covered one anew",
         [](NoticeBar& bar) { bar.post(noticeOf(Source::Files, "b2")); },
         {"b2", "c", "a"}},
        {"the shown one withdrawn", [](NoticeBar& bar) { bar.withdraw(Source::Quit); }, {"b", "a"}},
        {"a covered one withdrawn",
         [](NoticeBar& bar) { bar.withdraw(Source::Files); },
         {"c", "a"}},
        {"one whose source has no more to say",
         [](NoticeBar& bar) { bar.postResult(Source::Quit, {}, {}); },
         {"b", "a"}},
        {"one that has none",
         [](NoticeBar& bar) { bar.withdraw(Source::Comparison); },
         {"c", "b", "a"}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        NoticeBar bar(nullptr);
        bar.post(noticeOf(Source::Transfer, "a", {{"Again", [] {}}}));
        bar.post(noticeOf(Source::Files, "b"));
        bar.post(noticeOf(Source::Quit, "c"));
        row.act(bar);
        EXPECT_EQ(bar.count(), row.shown.size());
        for (const std::string& text : row.shown) {
            EXPECT_EQ(bar.action(0) != nullptr, text == "a");
            EXPECT_EQ(bar.text().toStdString(), text);
            EXPECT_EQ(bar.findChild<QLabel*>()->text().toStdString(), text);
            EXPECT_EQ(bar.accessibleName().toStdString(), text);
            bar.dismiss();
        }
        EXPECT_TRUE(bar.isHidden());
        bar.dismiss(); // of nothing
        EXPECT_EQ(bar.count(), 0U);
    }
}

QPushButton& buttonOf(const QWidget& bar, const QString& title) {
    const auto buttons = bar.findChildren<QPushButton*>();
    return **std::ranges::find(buttons, title, &QPushButton::text);
}

TEST(NoticeBar, ShowsOneLineAndTheRestOnDemand) {
    const QString longLine(400, 'x');
    struct Row {
        QString text;
        bool hasDetails;
    };
    const Row rows[] = {{"a", false}, {"a\nb", true}, {longLine, true}, {"c", false}};
    QWidget window;
    QVBoxLayout column(&window);
    NoticeBar& bar = makeChild<NoticeBar>(&window);
    column.addWidget(&bar);
    bar.resize(1, 1);
    bar.post(noticeOf(Source::Files, "posted before the window is shown"));
    put(window);
    EXPECT_FALSE(buttonOf(bar, "Details...").isVisible());
    const int height = bar.sizeHint().height();
    for (const Row& row : rows) {
        bar.post(noticeOf(Source::Files, row.text));
        EXPECT_EQ(buttonOf(bar, "Details...").isVisible(), row.hasDetails)
            << row.text.toStdString();
        EXPECT_EQ(bar.sizeHint().height(), height);
        EXPECT_EQ(bar.text(), row.text);
    }
    bar.post(noticeOf(Source::Files, "what\nwhy"));
    buttonOf(bar, "Details...").click();
    auto* dialog = bar.findChild<NoticeDetails*>();
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(dialog->findChild<QPlainTextEdit*>()->toPlainText(), "what\n\nwhy");
}

TEST(NoticeBar, TimeOrTheNextOneEndsWhatWasDoneAndOffersNothing) {
    using Kind = Notice::Kind;
    struct Row {
        Notice notice;
        bool passes;
    };
    const Row rows[] = {
        {{.kind = Kind::Done, .text = "done"}, true},
        {{.kind = Kind::Done, .text = "offers", .actions = {{"Back", [] {}}}}, false},
        {{.kind = Kind::Done, .text = "still so", .stays = true}, false},
        {{.kind = Kind::Error, .text = "error"}, false},
    };
    for (const Row& row : rows) {
        NoticeBar bar(nullptr);
        bar.post(row.notice);
        const auto* time = bar.findChild<QTimer*>();
        EXPECT_EQ(time->isActive(), row.passes) << row.notice.text.toStdString();
        EXPECT_TRUE(!row.passes || time->intervalAsDuration() == NoticeBar::kDoneLasts);
        bar.post(noticeOf(Source::Files, "what came of the next command"));
        EXPECT_EQ(bar.text(), "what came of the next command");
        bar.dismiss();
        EXPECT_EQ(bar.text(), row.passes ? QString() : row.notice.text);
    }
}

// A bar in a window that has a field besides, which has the keyboard.
class NoticeBarInWindow : public ::testing::Test {
protected:
    void SetUp() override {
        column_.addWidget(&bar);
        column_.addWidget(&field);
        put(window_);
        window_.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window_, testing::kLimitMilliseconds));
        field.setFocus();
    }

private:
    QWidget window_;
    QVBoxLayout column_{&window_};

protected:
    NoticeBar bar{&window_};
    QLineEdit field{&window_};
};

TEST_F(NoticeBarInWindow, TimeEndsItUnlessTheKeyboardIsOnIt) {
    bar.setDoneLasts(std::chrono::milliseconds(1));
    bar.post(noticeOf(Source::Transfer, "error"));
    bar.post({.source = Source::Files, .kind = Notice::Kind::Done, .text = "done"});
    EXPECT_EQ(bar.text(), "done");
    EXPECT_TRUE(QTest::qWaitFor([&] { return bar.count() == 1; }, testing::kLimitMilliseconds));
    EXPECT_EQ(bar.text(), "error");
    bar.dismiss();
    bar.post({.source = Source::Files, .kind = Notice::Kind::Done, .text = "done"});
    buttonOf(bar, "Dismiss").setFocus();
    QTest::qWait(20);
    EXPECT_EQ(bar.count(), 1U);
    field.setFocus();
    EXPECT_TRUE(QTest::qWaitFor([&] { return bar.count() == 0; }, testing::kLimitMilliseconds));
}

TEST_F(NoticeBarInWindow, EscapeEndsItAndTheKeyboardGoesBackToWhereItWas) {
    bar.post(noticeOf(Source::Files, "a"));
    EXPECT_TRUE(field.hasFocus());
    QTest::keyClick(&field, Qt::Key_Escape);
    EXPECT_EQ(bar.count(), 0U);
    bar.post(noticeOf(Source::Files, "a"));
    bar.post(noticeOf(Source::Transfer, "b"));
    for (std::size_t left = 2; left-- > 0;) {
        QPushButton& close = buttonOf(bar, "Dismiss");
        close.setFocus();
        QTest::keyClick(&close, Qt::Key_Space);
        EXPECT_EQ(bar.count(), left);
        EXPECT_TRUE(field.hasFocus());
    }
}

TEST(StatusLine, WhatIsSelectedOfTheMessageIsCopied) {
    StatusLine status(nullptr);
    put(status);
    TextLabel& message = status.message();
    EXPECT_EQ(message.text(), "Ready");
    message.setText("Could not connect to midi device");
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&message)->text(QAccessible::Name),
              "Could not connect to midi device");
    message.setSelection(0, 9);
    QKeyEvent asks(QEvent::ShortcutOverride, Qt::Key_C, Qt::ControlModifier);
    asks.ignore();
    QApplication::sendEvent(&message, &asks);
    EXPECT_TRUE(asks.isAccepted());
    QTest::keyClick(&message, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "Could not");
}

TEST(StatusLine, IsOneRowOfMessageMarkAndWhatWasAdded) {
    StatusLine status(nullptr);
    QLabel mark("mark");
    status.addMark(mark);
    status.setBusy(true);
    put(status);
    const auto* busy = status.findChild<QProgressBar*>();
    ASSERT_NE(busy, nullptr);
    EXPECT_GE(busy->x(), status.message().geometry().right());
    EXPECT_GE(mark.x(), busy->geometry().right());
    EXPECT_EQ(status.findChildren<QLabel*>().size(), 2); // the message and the mark
    EXPECT_EQ(busy->size(), QSize(72, 12));
    EXPECT_EQ(status.message().x(), 15); // behind its edge
    EXPECT_EQ(busy->x(), status.message().geometry().right() + 1 + 10);
    EXPECT_EQ(mark.maximumHeight(), status.fontMetrics().height() + 8);
    EXPECT_EQ(status.message().minimumHeight(), mark.maximumHeight());
    const QRect place = status.message().geometry();
    status.setBusy(false);
    QApplication::processEvents();
    EXPECT_TRUE(busy->isHidden());
    EXPECT_EQ(status.message().geometry(), place);
}

TEST(NoticeText, WantsTheRoomOfItsFirstLineAndDoesWithLess) {
    NoticeText text(nullptr);
    text.setText("One line\nand a longer one below it");
    const QFontMetrics metrics = text.fontMetrics();
    EXPECT_EQ(text.sizeHint(), QSize(metrics.horizontalAdvance("One line") + 1, metrics.height()));
    EXPECT_EQ(text.minimumSizeHint(), QSize(120, metrics.height()));
    text.setText("One line");
    text.resize(text.sizeHint());
    EXPECT_FALSE(text.isCut());
    text.resize(text.width() - 2, text.height());
    EXPECT_TRUE(text.isCut());
}

} // namespace
} // namespace scenewright
