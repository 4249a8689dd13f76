// What room the window takes, and that nothing in it moves or is out of reach.
#include "app/WindowAction.h"
#include "editor/qt/DeviceVerification.h"
#include "editor/qt/Dialogs.h"
#include "editor/qt/KeyboardsDialog.h"
#include "tests/editor-qt/WindowBench.h"

#include <QScrollArea>
#include <QTest>

#include <algorithm>
#include <map>
#include <string>
#include <utility>

namespace scenewright::testing {
namespace {

constexpr int kTitleBar = 28; // of a window's frame, the highest of those tried

class WindowRoom : public WindowBench {
protected:
    QWidget& content() { return *qobject_cast<QScrollArea*>(window().centralWidget())->widget(); }

    // All that can be clicked, by where it is.
    std::map<const QWidget*, QRect> places() {
        QApplication::processEvents();
        std::map<const QWidget*, QRect> found;
        for (QWidget* widget : window().findChildren<QWidget*>())
            if (widget->isVisible() && !window().notices().isAncestorOf(widget) &&
                (widget->focusPolicy() != Qt::NoFocus || widget == &window().picture()))
                found[widget] = QRect(widget->mapTo(&window(), QPoint()), widget->size());
        return found;
    }

    void nameScenes(const char* name) {
        for (const auto& scene : WindowAction::scenes())
            scene->commonValue()->setSceneName(name);
        QTest::keyClick(&window(), Qt::Key_1, Qt::ControlModifier);
        QApplication::processEvents();
    }
};

TEST_F(WindowRoom, EverythingIsSeenOnA1024By600ScreenWithANoticeAndATitleBar) {
    open();
    for (const char* name : {"SCENE1", "WWWWWWWWWWWW"}) {
        nameScenes(name);
        window().notices().post({.text = QString(200, 'W'), .actions = {{"Send Again", [] {}}}});
        window().resize(1024, 600 - kTitleBar);
        QApplication::processEvents();
        EXPECT_EQ(content().height(), window().centralWidget()->height());
        EXPECT_EQ(content().width(), window().centralWidget()->width());
    }
}

TEST_F(WindowRoom, ASmallerWindowBringsEachWidgetThatTheKeyboardGoesToIntoSight) {
    open();
    window().resize(512, 300);
    ASSERT_EQ(window().size(), QSize(512, 300));
    QWidget& seen = *qobject_cast<QScrollArea*>(window().centralWidget())->viewport();
    int count = 0;
    for (QWidget* widget : content().findChildren<QWidget*>()) {
        if (!widget->isVisible() || widget->focusPolicy() == Qt::NoFocus || !widget->isEnabled())
            continue;
        widget->setFocus(Qt::TabFocusReason);
        ASSERT_TRUE(waitUntil([widget] { return widget->hasFocus(); }));
        const QRect place(widget->mapTo(&seen, QPoint(0, 0)), widget->size());
        const QSize part = place.intersected(seen.rect()).size();
        EXPECT_GE(part.width(), std::min(40, place.width()))
            << widget->accessibleName().toStdString();
        EXPECT_GE(part.height(), std::min(20, place.height()));
        ++count;
    }
    EXPECT_GT(count, 50);
}

TEST_F(WindowRoom, PartsStandInTheirRowsWithTheGapsBetweenThem) {
    open();
    EXPECT_EQ(window().size(), QSize(1180, 720));
    QApplication::processEvents();
    const auto placeOf = [this](const QWidget& widget) {
        return QRect(widget.mapTo(&content(), QPoint(0, 0)), widget.size());
    };
    const QRect scenes = placeOf(window().scenes());
    const QRect modes = placeOf(window().displayModes());
    const QRect readButton = placeOf(window().readButton());
    const QRect sendButton = placeOf(window().sendButton());
    const QRect list = placeOf(window().list());
    const QRect picture = placeOf(window().picture());
    const QRect panes = placeOf(window().panes());
    const QRect status = placeOf(window().status());
    constexpr int kGap = 10;
    constexpr int kRowGap = 6;
    EXPECT_EQ(scenes.topLeft(), QPoint(12, 3));
    EXPECT_EQ(modes.width(), 168);
    EXPECT_LT(scenes.right() + 2 * kGap, modes.left()) << "what room there is stands between";
    EXPECT_EQ(readButton.left() + readButton.width() + kGap, sendButton.left());
    EXPECT_EQ(sendButton.right() + 1 + 12, content().width());
    for (const QRect& part : {modes, readButton, sendButton})
        EXPECT_NEAR(part.center().y(), scenes.center().y(), 1);
    const QRect notices = placeOf(window().notices());
    EXPECT_GE(notices.top(), scenes.bottom() + 1 + kRowGap);
    EXPECT_EQ(list.top(), notices.bottom() + 1 + kRowGap);
    EXPECT_EQ(list.left(), scenes.left());
    EXPECT_EQ(picture.topLeft(), QPoint(list.right() + 1 + kGap, list.top()));
    EXPECT_EQ(picture.right(), sendButton.right());
    EXPECT_EQ(panes.left(), picture.left());
    EXPECT_EQ(panes.right(), picture.right());
    EXPECT_EQ(panes.top(), picture.bottom() + 1 + kGap);
    EXPECT_EQ(panes.bottom(), list.bottom());
    EXPECT_GT(picture.height(), panes.height());
    EXPECT_EQ(status.left(), list.left());
    EXPECT_EQ(status.right(), picture.right());
    EXPECT_EQ(status.top(), list.bottom() + 1 + kRowGap);
    EXPECT_EQ(status.bottom() + 1 + 8, content().height());
}

TEST_F(WindowRoom, FieldsOfAPaneStandInFiveEqualColumnsBelowTheirTitles) {
    open();
    for (const std::int32_t control : {0, 1, 5, 9, 13, 21}) {
        window().list().selectRow(control);
        QApplication::processEvents();
        QList<const QWidget*> fields; // in the order in which they were made
        std::map<const QWidget*, const QLabel*> titles;
        QLabel* heading = nullptr;
        for (auto* label : window().panes().findChildren<NameLabel*>())
            if (label->isVisible() && label->buddy() != nullptr) {
                fields.append(label->buddy());
                titles[label->buddy()] = label;
            } else if (label->isVisible())
                heading = label;
        ASSERT_NE(heading, nullptr);
        ASSERT_GE(fields.size(), 1) << control;
        const auto* frame = fields.front()->parentWidget();
        EXPECT_EQ(heading->pos(), QPoint(15, 6)) << control;
        for (int place = 0; place < fields.size(); ++place) {
            const QWidget& field = *fields[place];
            const QRect title = titles.at(&field)->geometry();
            EXPECT_EQ(title.left(), field.x()) << field.accessibleName().toStdString();
            EXPECT_EQ(title.bottom() + 1 + 2, field.y()) << field.accessibleName().toStdString();
            EXPECT_EQ(field.width(), titles.at(&field)->width());
            EXPECT_NEAR(field.width(), (frame->width() - 30 - 4 * 14) / 5, 1);
            EXPECT_EQ(titles.at(&field)->contentsMargins().top(), place < 5 ? 0 : 5);
            if (place % 5 == 0)
                EXPECT_EQ(field.x(), 15);
            else {
                EXPECT_EQ(field.x(), fields[place - 1]->geometry().right() + 1 + 14);
                EXPECT_EQ(field.y(), fields[place - 1]->y());
            }
            EXPECT_TRUE(place < 5 ||
                        titles.at(&field)->y() > fields[place - 5]->geometry().bottom());
        }
    }
}

TEST(DialogRoom, EachDialogOpensInItsOwnSize) {
    const About about;
    const NoticeDetails details({}, nullptr);
    const DifferenceDialog differences({}, nullptr);
    const KeyboardsDialog keyboards(false, nullptr);
    const GuideWindow guide;
    const std::pair<const QWidget*, QSize> rows[] = {{&about, {560, 520}},
                                                     {&details, {520, 220}},
                                                     {&differences, {680, 440}},
                                                     {&keyboards, {760, 360}},
                                                     {&guide, {860, 640}}};
    for (const auto& [dialog, size] : rows)
        EXPECT_EQ(dialog->size(), size) << dialog->windowTitle().toStdString();
}

TEST_F(WindowRoom, NothingMovesWhenANoticeComesOrGoes) {
    open();
    const auto before = places();
    ASSERT_GT(before.size(), 50U);
    const Notice notices[] = {
        {.text = "a"},
        {.source = Notice::Source::Files, .kind = Notice::Kind::Done, .text = "a\nb\nc"},
        {.text = QString(400, 'W'), .actions = {{"Send Again", [] {}}}},
    };
    for (const Notice& notice : notices) {
        window().notices().post(notice);
        EXPECT_EQ(places(), before) << notice.text.toStdString();
        window().notices().dismiss();
        EXPECT_EQ(places(), before) << notice.text.toStdString();
    }
}

TEST_F(WindowRoom, ThePictureStandsStillWhileTheKeysGoThroughTheList) {
    open();
    window().list().setFocus();
    QApplication::processEvents();
    const QRect before = window().picture().geometry();
    for (int row = 0; row < kControlCount; ++row) {
        QTest::keyClick(&window().list(), Qt::Key_Down);
        QApplication::processEvents();
        ASSERT_EQ(window().picture().geometry(), before) << row;
        QTest::keyClick(&window().list(), Qt::Key_Return);
        QApplication::processEvents();
        ASSERT_EQ(window().picture().geometry(), before) << row;
    }
}

TEST_F(WindowRoom, SceneNamesAreWholeWhereThereIsRoomAndDoNotWidenTheWindow) {
    open();
    nameScenes("Synth & Bass");
    for (int scene = 0; scene < kSceneCount; ++scene) {
        QTest::keyClick(&window(), static_cast<Qt::Key>(Qt::Key_1 + scene), Qt::ControlModifier);
        const QAbstractButton& segment = window().scenes().segment(scene);
        EXPECT_GE(segment.width(), segment.sizeHint().width()) << scene;
    }
    nameScenes("WWWWWWWWWWWW");
    EXPECT_LE(content().minimumSizeHint().width(), 1024);
}

} // namespace
} // namespace scenewright::testing
