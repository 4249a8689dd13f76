#include "editor/qt/StripPlace.h"

#include "tests/editor-qt-files/CommandsBench.h"

#include <QScrollArea>
#include <QTest>

#include <functional>
#include <utility>
#include <vector>

namespace scenewright::testing {

namespace {

constexpr QSize kLowest(1024, 600 - 28); // with room for a title bar
constexpr QSize kUsual(1180, 720);

class StripPlaceTest : public OpenWindow {
protected:
    StripPlaceTest() {
        commands().useVirtual();
        window().commands().read(); // what Try It compares with
    }

    void resize(QSize size) {
        window().resize(size);
        QApplication::processEvents();
    }
    QAction& play() { return *window().menu().view().actions().back(); }
    QWidget& monitor() { return part<MonitorStrip>(); }
    QWidget& trying() { return part<TryStrip>(); }
    QWidget& playing() { return part<PlayBar>(); }
    QWidget& settings() { return window().panes(); }
    // Those that are seen, in their order.
    QStringList names() {
        QApplication::processEvents();
        QStringList found;
        for (const auto* name : window().strips().findChildren<SegmentButton*>())
            if (name->isVisible())
                found.append(name->isChecked() ? "[" + name->text() + "]" : name->text());
        return found;
    }
    void choose(const char* name) {
        for (auto* each : window().strips().findChildren<SegmentButton*>())
            if (each->text() == name)
                QTest::mouseClick(each, Qt::LeftButton);
    }
    [[nodiscard]] std::vector<bool> seen() {
        QApplication::processEvents();
        return {settings().isVisible(), monitor().isVisible(), trying().isVisible(),
                playing().isVisible()};
    }
    void expectAllInSight() {
        QApplication::processEvents();
        const auto& room = *qobject_cast<QScrollArea*>(window().centralWidget());
        EXPECT_EQ(room.widget()->size(), room.size());
    }
};

using Seen = std::vector<bool>; // settings, monitor, try it, play
using Names = QStringList;

} // namespace

TEST_F(StripPlaceTest, InALowWindowStripsShareTheSettingsPlaceAndThePictureStandsStill) {
    resize(kLowest);
    window().notices().post({.text = QString(200, 'W'), .actions = {{"Send Again", [] {}}}});
    QApplication::processEvents();
    const QRect picture = window().picture().geometry();
    EXPECT_GE(picture.height(), 240);
    const auto expect = [&](const Seen& wanted, const Names& called) {
        EXPECT_EQ(names(), called);
        EXPECT_EQ(seen(), wanted);
        EXPECT_EQ(window().picture().geometry(), picture);
        expectAllInSight();
    };
    expect({true, false, false, false}, {});
    play().setChecked(true); // the lowest one
    expect({false, false, false, true}, {"Settings", "[Playing]"});
    play().setChecked(false);
    part<MonitorStrip>().action().setChecked(true);
    expect({false, true, false, false}, {"Settings", "[Monitor]"});
    part<TryStrip>().action().trigger();
    expect({false, false, true, false}, {"Settings", "Monitor", "[Try It]"});
    play().setChecked(true);
    expect({false, false, false, true}, {"Settings", "Monitor", "Try It", "[Playing]"});
    choose("Monitor");
    expect({false, true, false, false}, {"Settings", "[Monitor]", "Try It", "Playing"});
    choose("Settings");
    expect({true, false, false, false}, {"[Settings]", "Monitor", "Try It", "Playing"});
    part<MonitorStrip>().action().setChecked(false);
    expect({true, false, false, false}, {"[Settings]", "Try It", "Playing"});
    choose("Playing");
    play().setChecked(false);
    expect({false, false, true, false}, {"Settings", "[Try It]"});
}

TEST_F(StripPlaceTest, NamesStandInAColumnBesideTheStripsWithTheSettingsBelow) {
    const auto geometryOf = [this](const QWidget& widget) {
        return QRect(widget.mapTo(&window().strips(), QPoint(0, 0)), widget.size());
    };
    resize(kUsual);
    part<MonitorStrip>().action().setChecked(true);
    play().setChecked(true);
    const QRect whole = window().strips().rect();
    for (const QSize size : {kUsual, kLowest}) {
        resize(size);
        QList<QRect> names;
        for (const auto* name : window().strips().findChildren<SegmentButton*>())
            if (name->isVisible())
                names.append(geometryOf(*name));
        ASSERT_EQ(names.size(), size == kUsual ? 2 : 3);
        EXPECT_EQ(names.front().topLeft(), QPoint(4, 4)) << "inside their frame";
        for (int place = 1; place < names.size(); ++place) {
            EXPECT_EQ(names[place].left(), 4);
            EXPECT_EQ(names[place].top(), names[place - 1].bottom() + 1 + 2);
        }
        const QRect strip = geometryOf(playing());
        EXPECT_EQ(strip.top(), 0);
        EXPECT_EQ(strip.left(), names.front().right() + 1 + 4 + 10);
        EXPECT_EQ(strip.right(), window().strips().rect().right());
    }
    choose("Settings");
    EXPECT_EQ(geometryOf(settings()).topLeft(), geometryOf(playing()).topLeft());
    EXPECT_EQ(geometryOf(settings()).right(), window().strips().rect().right());
    resize(kUsual);
    EXPECT_EQ(geometryOf(settings()).left(), 0);
    EXPECT_EQ(geometryOf(settings()).right(), window().strips().rect().right());
    EXPECT_EQ(geometryOf(settings()).top(), geometryOf(monitor()).bottom() + 1 + 10);
    EXPECT_EQ(window().strips().rect(), whole);
}

TEST_F(StripPlaceTest, InALowWindowAControlThatIsChosenBringsItsSettingsBack) {
    resize(kLowest);
    const std::pair<const char*, std::function<void()>> choices[] = {
        {"the picture", [this] { CommandsBench::choose(kPad); }},
        {"the list", [this] { QTest::keyClick(&window().list(), Qt::Key_Return); }},
    };
    for (const auto& [from, choosing] : choices) {
        part<MonitorStrip>().action().setChecked(true);
        EXPECT_FALSE(settings().isVisible()) << from;
        choosing();
        EXPECT_TRUE(settings().isVisible()) << from;
        part<MonitorStrip>().action().setChecked(false);
    }
    play().setChecked(true);
    CommandsBench::choose(kPad);
    EXPECT_TRUE(playing().isVisible()) << "it was played";
    window().showControl(0, kPad);
    EXPECT_TRUE(playing().isVisible()) << "by the program";
}

TEST_F(StripPlaceTest, WhereThereIsRoomTheSettingsStayAndStripsShareOnePlace) {
    resize(kUsual);
    const int alone = window().picture().height();
    part<MonitorStrip>().action().setChecked(true);
    EXPECT_EQ(names(), Names());
    EXPECT_EQ(seen(), (Seen{true, true, false, false}));
    const QRect beside = window().picture().geometry();
    EXPECT_LT(beside.height(), alone);
    EXPECT_GE(beside.height(), 240);
    play().setChecked(true);
    EXPECT_EQ(names(), (Names{"Monitor", "[Playing]"}));
    EXPECT_EQ(seen(), (Seen{true, false, false, true}));
    choose("Monitor");
    EXPECT_EQ(seen(), (Seen{true, true, false, false}));
    CommandsBench::choose(kPad);
    EXPECT_EQ(seen(), (Seen{true, true, false, false}));
    EXPECT_EQ(window().picture().geometry(), beside);
    part<MonitorStrip>().action().setChecked(false);
    EXPECT_EQ(seen(), (Seen{true, false, false, true}));
    play().setChecked(false);
    EXPECT_EQ(seen(), (Seen{true, false, false, false}));
    QApplication::processEvents();
    EXPECT_EQ(window().picture().height(), alone);
    expectAllInSight();
}

TEST_F(StripPlaceTest, StripsAreTakenApartWhileThePictureKeepsItsLeastHeight) {
    part<MonitorStrip>().action().setChecked(true);
    QSize size = kUsual;
    int least = 0;
    for (resize(size); settings().isVisible(); resize(size)) {
        least = window().picture().height();
        size.rheight() -= 2;
        ASSERT_GT(size.height(), kLowest.height());
    }
    EXPECT_GE(least, 240);
    EXPECT_LT(least, 240 + 2);
}

TEST_F(StripPlaceTest, AWindowThatGrowsOrShrinksShowsWhatHasRoom) {
    resize(kUsual);
    part<MonitorStrip>().action().setChecked(true);
    for (int round = 0; round < 2; ++round) {
        resize(kLowest);
        EXPECT_EQ(seen(), (Seen{false, true, false, false}));
        expectAllInSight();
        choose("Settings");
        resize(kUsual);
        EXPECT_EQ(seen(), (Seen{true, true, false, false}));
        expectAllInSight();
    }
}

} // namespace scenewright::testing
