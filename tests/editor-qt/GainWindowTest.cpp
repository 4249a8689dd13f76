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

TEST_F(GainWindowTest, SlidersAndButtonsAreThoseOfItsController) {
    std::vector<std::string> lines;
    Diagnostics::setLog([&lines](std::string_view line) { lines.emplace_back(line); });
    const QStringList before(8, "64/127");
    EXPECT_EQ(labels(), before);
    for (int place = 0; place < 8; ++place) {
        SliderBar& slider = *sliders().at(place);
        QTest::keyClick(&slider, Qt::Key_End);
        EXPECT_NE(slider.QSlider::value(), 64);
        EXPECT_EQ(window_.controller().gainArray().at(static_cast<std::size_t>(place)),
                  slider.QSlider::value());
        QStringList after = before;
        after[place] = QString("%1/127").arg(slider.QSlider::value());
        EXPECT_EQ(labels(), after);
        press("Default");
        EXPECT_EQ(labels(), before);
    }
    lines.clear();
    press("OK");
    press("Apply");
    EXPECT_EQ(lines, (std::vector<std::string>{"OK", "Apply"}));
    EXPECT_TRUE(window_.isVisible());
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

} // namespace
} // namespace scenewright
