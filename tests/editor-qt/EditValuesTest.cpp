// Each of the 31 value popups, from the user's hand to the controller's memory.
#include "editor/ValuePopUps.h"
#include "tests/editor-qt/WindowBench.h"

#include <QAbstractItemView>
#include <QTest>

#include <string>

namespace scenewright {

// How a failure names its row.
static void PrintTo(const ValuePopUp& row, std::ostream* out) {
    *out << row.name;
}

} // namespace scenewright

namespace scenewright::testing {
namespace {

constexpr std::int32_t kScene = 1;  // the second scene
constexpr std::int32_t kMember = 1; // the second control of its kind

class EditValues : public WindowBench, public ::testing::WithParamInterface<ValuePopUp> {
protected:
    const ValuePopUp& row() const { return GetParam(); }
    std::int32_t member() const { return row().pane() == ControlKind::Common ? 0 : kMember; }

    // Reads, then chooses the scene and the control.
    void choose() {
        open();
        read();
        QTest::keyClick(&window(), Qt::Key_2, Qt::ControlModifier);
        const std::int32_t index = controlRange(row().pane()).start + member();
        if (index > 0)
            QTest::mouseClick(window().picture().button(index), Qt::LeftButton);
    }

    PopUpBox& box() { return window().panes().popUp(row().name); }

    // What the controller must hold when this value alone is another one.
    BankImage expected(std::int32_t value) const {
        const SceneList scenes = usableScenes();
        row().setting->write(*scenes.at(kScene), member(), value);
        return imageOf(scenes);
    }

    std::int32_t another() { return (box().currentIndex() + 1) % box().count(); }
};

TEST_P(EditValues, TypedChoiceReachesTheControllerAndNothingElseChanges) {
    choose();
    ASSERT_TRUE(box().isVisible());
    ASSERT_TRUE(box().isEnabled());
    const std::int32_t value = another();
    type(box(), box().itemText(value));
    ASSERT_EQ(box().currentIndex(), value);
    send();
    EXPECT_EQ(held(), expected(value));
    EXPECT_NE(held(), imageOf(usableScenes()));
    EXPECT_EQ(message(), "Send Scene Data Finish:100%:Success");
}

TEST_P(EditValues, ClickedChoiceIsInTheStoredScene) {
    choose();
    const std::int32_t value = another();
    QTest::mouseClick(&box(), Qt::LeftButton);
    const QModelIndex entry = box().model()->index(value, 0);
    box().view()->scrollTo(entry);
    QTest::qWait(20);
    QTest::mouseClick(box().view()->viewport(), Qt::LeftButton, {},
                      box().view()->visualRect(entry).center());
    EXPECT_EQ(row().setting->read(*window().view().sceneValue(), member()), value);
}

INSTANTIATE_TEST_SUITE_P(All, EditValues,
                         ::testing::ValuesIn(valuePopUps().begin(), valuePopUps().end()),
                         [](const auto& one) { return std::string(one.param.name); });

} // namespace
} // namespace scenewright::testing
