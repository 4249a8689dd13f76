#include "editor/qt/About.h"
#include "editor/qt/DifferenceDialog.h"
#include "editor/qt/NoticeBar.h"
#include "editor/qt/StatusLine.h"

#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

#include <algorithm>

namespace scenewright {
namespace {

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
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&widget));
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

TEST(NoticeBar, ShowsMarkupAsItIsWritten) {
    NoticeBar bar(nullptr);
    put(bar);
    bar.tell(NoticeBar::Kind::Trouble, "<b>bold</b>", {});
    auto* text = bar.findChild<QLabel*>();
    EXPECT_EQ(text->text(), "<b>bold</b>");
    EXPECT_EQ(text->textFormat(), Qt::PlainText);
}

TEST(NoticeBar, TroubleLooksOtherThanDone) {
    NoticeBar bar(nullptr);
    auto* text = bar.findChild<QLabel*>();
    bar.tell(NoticeBar::Kind::Trouble, "a", {});
    EXPECT_EQ(text->property("role"), "trouble");
    bar.tell(NoticeBar::Kind::Done, "a", {});
    EXPECT_EQ(text->property("role"), "notice");
}

TEST(NoticeBar, OffersStandInTheirOrderBeforeTheDismissal) {
    NoticeBar bar(nullptr);
    bar.tell(NoticeBar::Kind::Done, "a", {{"First", [] {}}, {"Second", [] {}}});
    put(bar);
    QStringList titles;
    auto buttons = bar.findChildren<QPushButton*>();
    std::ranges::sort(buttons, {}, [](const QPushButton* button) { return button->x(); });
    for (const QPushButton* button : buttons)
        titles.append(button->text());
    EXPECT_EQ(titles, (QStringList{"First", "Second", "Dismiss"}));
}

TEST(NoticeBar, AChosenOfferTakesTheNoticeAway) {
    NoticeBar bar(nullptr);
    int calls = 0;
    bar.tell(NoticeBar::Kind::Done, "a", {{"Again", [&] { ++calls; }}});
    put(bar);
    QTest::mouseClick(bar.offer(0), Qt::LeftButton);
    EXPECT_EQ(calls, 1);
    EXPECT_FALSE(bar.isVisible());
    EXPECT_EQ(bar.offer(0), nullptr);
}

TEST(NoticeBar, ANewNoticeReplacesTheOffersOfTheFormer) {
    NoticeBar bar(nullptr);
    bar.tell(NoticeBar::Kind::Done, "a", {{"Again", [] {}}});
    bar.tell(NoticeBar::Kind::Done, "b", {});
    EXPECT_EQ(bar.offer(0), nullptr);
    EXPECT_EQ(bar.findChild<QLabel*>()->text(), "b");
}

TEST(StatusLine, AdviceStandsBelowTheMessageAndTheMarksBesideIt) {
    StatusLine status(nullptr);
    QLabel mark("mark");
    status.addMark(mark);
    status.setAdvice("What to do");
    status.setBusy(true);
    put(status);
    const auto* message = status.findChild<TextLabel*>();
    const auto* busy = status.findChild<BusyMark*>();
    ASSERT_TRUE(message != nullptr && busy != nullptr);
    const QLabel* advice = nullptr;
    for (const QLabel* label : status.findChildren<QLabel*>())
        if (label->text() == "What to do")
            advice = label;
    ASSERT_NE(advice, nullptr);
    EXPECT_GE(busy->x(), message->geometry().right());
    EXPECT_GE(mark.x(), busy->geometry().right());
    EXPECT_LT(busy->y(), advice->y());
    EXPECT_GE(advice->y(), message->geometry().bottom());
    EXPECT_EQ(advice->toolTip(), "What to do");
    EXPECT_GE(advice->geometry().right(), mark.x());
}

TEST(StatusLine, IsReadyAtFirst) {
    const StatusLine status(nullptr);
    EXPECT_EQ(status.findChild<TextLabel*>()->QLabel::text(), "Ready");
}

} // namespace
} // namespace scenewright
