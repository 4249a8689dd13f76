#include "editor/qt/Dialogs.h"
#include "editor/qt/NoticeBar.h"
#include "tests/support/Limits.h"

#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

#include <algorithm>
#include <utility>
#include <vector>

namespace scenewright {
namespace {

using Source = Notice::Source;

QStringList labels(const QWidget& parent) {
    QStringList texts;
    for (const QLabel* label : parent.findChildren<QLabel*>())
        texts.append(label->text());
    return texts;
}

// Laid out as large as it wants to be, and on the screen.
void put(QWidget& widget) {
    widget.resize(600, widget.sizeHint().height());
    widget.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&widget, testing::kLimitMilliseconds));
}

TEST(About, TellsTheProgramAndTheToolkitsVersions) {
    const About about;
    EXPECT_EQ(about.windowTitle(), "About Scenewright");
    EXPECT_EQ(about.accessibleName(), "About Scenewright");
    const QStringList texts = labels(about);
    ASSERT_EQ(texts.size(), 3);
    EXPECT_TRUE(texts[0].startsWith("Scenewright "));
    EXPECT_EQ(texts[1], "An editor for the four scenes of a USB MIDI keyboard controller.");
    EXPECT_EQ(texts[2], QStringLiteral("Qt %1, built with Qt %2").arg(qVersion(), QT_VERSION_STR));
}

TEST(About, ReturnClosesIt) {
    About about;
    put(about);
    QTest::keyClick(&about, Qt::Key_Return);
    EXPECT_EQ(about.result(), QDialog::Accepted);
    EXPECT_FALSE(about.isVisible());
}

TEST(DifferenceDialog, CountsWhatItLists) {
    EXPECT_EQ(labels(DifferenceDialog({"a"}, nullptr))[0],
              "One setting of the controller is not what you see.");
    EXPECT_EQ(labels(DifferenceDialog({"a", "b"}, nullptr))[0],
              "2 settings of the controller are not what you see.");
}

TEST(DifferenceDialog, IsWiderThanHigh) {
    EXPECT_EQ(DifferenceDialog({"a"}, nullptr).size(), QSize(560, 420));
}

TEST(DifferenceDialog, ItsTextTakesNoKeysAndLetsTabPass) {
    DifferenceDialog dialog({"a", "b"}, nullptr);
    put(dialog);
    auto* text = dialog.findChild<QPlainTextEdit*>();
    text->setFocus();
    QTest::keyClick(text, Qt::Key_X);
    EXPECT_EQ(dialog.lines(), (QStringList{"a", "b"}));
    QTest::keyClick(text, Qt::Key_Tab);
    EXPECT_TRUE(dialog.findChild<QPushButton*>()->hasFocus());
}

Notice noticeOf(Notice::Source source, const QString& text,
                std::vector<NoticeAction> actions = {}) {
    return {.source = source, .text = text, .actions = std::move(actions)};
}

TEST(NoticeBar, ShowsMarkupAsItIsWritten) {
    NoticeBar bar(nullptr);
    put(bar);
    bar.post(noticeOf(Source::Files, "<b>bold</b>"));
    auto* text = bar.findChild<QLabel*>();
    EXPECT_EQ(text->text(), "<b>bold</b>");
    EXPECT_EQ(text->textFormat(), Qt::PlainText);
}

TEST(NoticeBar, AnErrorLooksOtherThanWhatIsDone) {
    NoticeBar bar(nullptr);
    auto* text = bar.findChild<QLabel*>();
    bar.post({.source = Source::Files, .kind = Notice::Kind::Error, .text = "a"});
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
    for (const QPushButton* button : buttons)
        titles.append(button->text());
    EXPECT_EQ(titles, (QStringList{"First", "Second", "Dismiss"}));
}

TEST(NoticeBar, AChosenActionTakesItsNoticeAwayAndShowsTheNext) {
    NoticeBar bar(nullptr);
    int calls = 0;
    bar.post(noticeOf(Source::Transfer, "a", {{"Again", [&] { ++calls; }}}));
    bar.post(noticeOf(Source::Files, "b"));
    put(bar);
    QTest::mouseClick(bar.action(0), Qt::LeftButton);
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(bar.text(), "b");
    EXPECT_EQ(bar.action(0), nullptr);
}

TEST(NoticeBar, AnActionMayPostForItsOwnSource) {
    NoticeBar bar(nullptr);
    bar.post(noticeOf(Source::Transfer, "a",
                      {{"Again", [&] { bar.post(noticeOf(Source::Transfer, "again")); }}}));
    put(bar);
    QTest::mouseClick(bar.action(0), Qt::LeftButton);
    EXPECT_EQ(bar.text(), "again");
    EXPECT_EQ(bar.count(), 1U);
}

TEST(NoticeBar, ANewNoticeOfTheShownSourceReplacesTextAndActions) {
    NoticeBar bar(nullptr);
    bar.post(noticeOf(Source::Files, "a", {{"Again", [] {}}}));
    bar.post(noticeOf(Source::Files, "b"));
    EXPECT_EQ(bar.action(0), nullptr);
    EXPECT_EQ(bar.findChild<QLabel*>()->text(), "b");
    EXPECT_EQ(bar.count(), 1U);
}

TEST(NoticeBar, OthersWaitInTheirOrderAndEachDismissalShowsTheNext) {
    NoticeBar bar(nullptr);
    bar.post(noticeOf(Source::Transfer, "a"));
    bar.post(noticeOf(Source::Files, "b"));
    bar.post(noticeOf(Source::Quit, "c"));
    EXPECT_EQ(bar.text(), "a");
    bar.dismiss();
    EXPECT_EQ(bar.text(), "b");
    bar.dismiss();
    EXPECT_EQ(bar.text(), "c");
    bar.dismiss();
    EXPECT_EQ(bar.text(), "");
    EXPECT_TRUE(bar.isHidden());
    bar.dismiss(); // of nothing
    EXPECT_EQ(bar.count(), 0U);
}

TEST(NoticeBar, ANewNoticeOfAWaitingSourceKeepsTheFormersPlace) {
    NoticeBar bar(nullptr);
    bar.post(noticeOf(Source::Transfer, "a"));
    bar.post(noticeOf(Source::Files, "b"));
    bar.post(noticeOf(Source::Quit, "c"));
    bar.post(noticeOf(Source::Files, "b2"));
    EXPECT_EQ(bar.text(), "a");
    EXPECT_EQ(bar.count(), 3U);
    bar.dismiss();
    EXPECT_EQ(bar.text(), "b2");
}

TEST(NoticeBar, WithdrawingOneSourceLeavesTheOthers) {
    NoticeBar bar(nullptr);
    bar.post(noticeOf(Source::Transfer, "a"));
    bar.post(noticeOf(Source::Files, "b"));
    bar.post(noticeOf(Source::Quit, "c"));
    bar.withdraw(Source::Files);
    EXPECT_EQ(bar.text(), "a");
    bar.withdraw(Source::Transfer);
    EXPECT_EQ(bar.text(), "c");
    bar.withdraw(Source::Comparison); // has none
    EXPECT_EQ(bar.text(), "c");
    bar.withdraw(Source::Quit);
    EXPECT_TRUE(bar.isHidden());
}

TEST(StatusLine, IsOneRowOfMessageMarkAndWhatWasAdded) {
    StatusLine status(nullptr);
    QLabel mark("mark");
    status.addMark(mark);
    status.setBusy(true);
    put(status);
    const auto* message = status.findChild<TextLabel*>();
    const auto* busy = status.findChild<QProgressBar*>();
    ASSERT_TRUE(message != nullptr && busy != nullptr);
    EXPECT_GE(busy->x(), message->geometry().right());
    EXPECT_GE(mark.x(), busy->geometry().right());
    EXPECT_EQ(labels(status).size(), 2); // the message and the mark
}

TEST(StatusLine, IsReadyAtFirst) {
    const StatusLine status(nullptr);
    EXPECT_EQ(status.findChild<TextLabel*>()->QLabel::text(), "Ready");
}

} // namespace
} // namespace scenewright
