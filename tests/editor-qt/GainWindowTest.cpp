#include "editor/qt/Dialogs.h"
#include "platform/Diagnostics.h"
#include "tests/support/Limits.h"

#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

#include <vector>

namespace scenewright {
namespace {

class GainWindowTest : public ::testing::Test {
protected:
    GainWindowTest() { window_.show(); }
    ~GainWindowTest() override { Diagnostics::setLog({}); }

    QList<SliderBar*> sliders() { return window_.findChildren<SliderBar*>(); }
    QStringList labels() {
        QStringList texts;
        for (const TextLabel* label : window_.findChildren<TextLabel*>())
            texts.append(label->text());
        return texts;
    }
    void press(const QString& name) {
        for (QPushButton* button : window_.findChildren<QPushButton*>())
            if (button->accessibleName() == name)
                QTest::mouseClick(button, Qt::LeftButton);
    }

    GainWindow window_;
};

TEST_F(GainWindowTest, OpensWithEightGainsOf64) {
    EXPECT_EQ(sliders().size(), 8);
    EXPECT_EQ(labels(), QStringList(8, "64/127"));
}

TEST_F(GainWindowTest, MovingASliderChangesItsGainAndLabelAlone) {
    QTest::keyClick(sliders().at(2), Qt::Key_End);
    EXPECT_EQ(window_.controller().gainArray().at(2), sliders().at(2)->QSlider::value());
    EXPECT_NE(window_.controller().gainArray().at(2), 64);
    QStringList expected(8, "64/127");
    expected[2] = QString("%1/127").arg(sliders().at(2)->QSlider::value());
    EXPECT_EQ(labels(), expected);
}

TEST_F(GainWindowTest, DefaultBringsEverythingBack) {
    QTest::keyClick(sliders().at(0), Qt::Key_PageUp);
    QTest::keyClick(sliders().at(7), Qt::Key_PageDown);
    press("Default");
    EXPECT_EQ(labels(), QStringList(8, "64/127"));
    EXPECT_EQ(window_.controller().gainArray(), std::vector<std::int32_t>(8, 64));
}

TEST_F(GainWindowTest, ButtonsStandInARowEachAsWideAsTwoGains) {
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window_, testing::kLimitMilliseconds));
    const auto buttons = window_.findChildren<QPushButton*>();
    for (const QPushButton* button : buttons) {
        EXPECT_NEAR(button->width(), sliders().at(2)->x() - sliders().at(0)->x(), 10)
            << button->accessibleName().toStdString();
        EXPECT_EQ(button->y(), buttons.front()->y()) << button->accessibleName().toStdString();
    }
}

TEST_F(GainWindowTest, OkAndApplyOnlyLogTheirNames) {
    std::vector<std::string> lines;
    Diagnostics::setLog([&lines](std::string_view line) { lines.emplace_back(line); });
    press("OK");
    press("Apply");
    EXPECT_EQ(lines, (std::vector<std::string>{"OK", "Apply"}));
    EXPECT_TRUE(window_.isVisible());
}

} // namespace
} // namespace scenewright
