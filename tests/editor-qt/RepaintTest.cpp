#include "tests/editor-qt/WindowBench.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QPaintEvent>
#include <QTest>

#include <cstdint>
#include <map>
#include <set>

namespace scenewright {
namespace {

using TagSet = std::set<std::int32_t>;

// Writes down which widgets are painted, and how much of them.
class PaintWatch final : public QObject {
public:
    PaintWatch() { qApp->installEventFilter(this); }
    PaintWatch(const PaintWatch&) = delete;
    PaintWatch& operator=(const PaintWatch&) = delete;
    PaintWatch(PaintWatch&&) = delete;
    PaintWatch& operator=(PaintWatch&&) = delete;
    ~PaintWatch() override { qApp->removeEventFilter(this); }

    bool eventFilter(QObject* object, QEvent* event) override {
        if (event->type() == QEvent::Paint)
            painted_[object] += static_cast<QPaintEvent*>(event)->region();
        return false;
    }

    // The painted ones of a type.
    template <typename Widget>
    [[nodiscard]] std::set<const Widget*> all() const {
        std::set<const Widget*> found;
        for (const auto& [object, region] : painted_)
            if (const auto* widget = dynamic_cast<const Widget*>(object))
                found.insert(widget);
        return found;
    }
    [[nodiscard]] TagSet buttons() const {
        TagSet tags;
        for (const ControlButton* button : all<ControlButton>())
            tags.insert(button->tag());
        return tags;
    }
    [[nodiscard]] QRegion of(QObject* widget) const {
        const auto found = painted_.find(widget);
        return found == painted_.end() ? QRegion() : found->second;
    }

private:
    std::map<QObject*, QRegion> painted_;
};

class RepaintTest : public testing::WindowBench {
protected:
    RepaintTest() {
        open();
        read();
        settle();
    }

    void settle() {
        QTest::qWait(50);
        QApplication::processEvents();
    }
    void choose(std::int32_t tag) {
        window().picture().button(tag)->click();
        settle();
    }
    // Gives a popup the keyboard, so that what follows is painted for the choice alone.
    PopUpBox& focused(const char* outlet) {
        PopUpBox& box = window().panes().popUp(outlet);
        box.setFocus();
        settle();
        return box;
    }
    // What a key pressed on a widget, and Return after it, has painted.
    template <typename Key>
    const PaintWatch& press(QWidget& widget, Key key) {
        watch_ = std::make_unique<PaintWatch>();
        QTest::keyClick(&widget, key);
        QTest::keyClick(&widget, Qt::Key_Return);
        settle();
        return *watch_;
    }

    static constexpr std::int32_t kPad = 13;
    static constexpr std::int32_t kLastKey = 45; // no black key lies on it

private:
    std::unique_ptr<PaintWatch> watch_;
};

TEST_F(RepaintTest, NumberOfAKeyPaintsThatKeyAndItsPopUpAlone) {
    choose(kLastKey);
    PopUpBox& box = focused("keyCCOrNoteNumber");
    const PaintWatch& watch = press(box, '7');
    EXPECT_EQ(window().picture().button(kLastKey)->attributedTitle().text, "CC#\n7");
    EXPECT_EQ(watch.buttons(), TagSet{kLastKey});
    EXPECT_EQ(watch.all<PopUpBox>(), std::set<const PopUpBox*>{&box});
    EXPECT_TRUE(watch.of(window().list().viewport()).isEmpty());
}

TEST_F(RepaintTest, ValuesPaintTheButtonsThatShowThem) {
    choose(kPad);
    EXPECT_EQ(press(focused("padCR"), '5').buttons(), TagSet{kPad});
    PopUpBox& box = focused("padOnValue"); // which no title shows
    EXPECT_EQ(press(box, '5').buttons(), TagSet{});
    EXPECT_EQ(box.selectedItem(), 5);
    window().showControl(0, 0);
    EXPECT_EQ(press(focused("commonKeyConstVelocity"), '5').buttons(), TagSet{});
}

TEST_F(RepaintTest, DisplayModePaintsTheControlsWhoseTitleItChanges) {
    window().displayModes().setFocus();
    settle();
    TagSet changed;
    for (std::int32_t tag = controlRange(ControlKind::Group).end(); tag <= kControlCount; ++tag)
        changed.insert(tag);
    EXPECT_EQ(press(window().displayModes(), Qt::Key_Down).buttons(), changed);
}

TEST_F(RepaintTest, ChoosingAControlPaintsItAndTheOneBefore) {
    choose(kPad);
    const PaintWatch watch;
    choose(kPad + 2);
    EXPECT_EQ(watch.buttons(), (TagSet{kPad, kPad + 2}));
    const int row = window().list().visualRect(window().list().model()->index(kPad, 0)).height();
    EXPECT_LE(watch.of(window().list().viewport()).boundingRect().height(), 4 * row);
}

// As Qt does from some version on, whatever the box asks of it.
bool toolkitMakesTheListWithTheFirstEntry() {
    QComboBox box;
    box.addItem("a");
    return box.findChild<QAbstractItemView*>() != nullptr;
}

TEST_F(RepaintTest, ListOfAPopUpIsMadeWhenItIsOpened) {
    if (toolkitMakesTheListWithTheFirstEntry())
        GTEST_SKIP() << "Qt " << qVersion() << " makes a popup's list with its first entry.";
    const auto lists = window().findChildren<QAbstractItemView*>();
    EXPECT_EQ(lists, QList<QAbstractItemView*>{&window().list()});
}

} // namespace
} // namespace scenewright
