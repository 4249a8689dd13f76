#include "editor/qt/Dialogs.h"
#include "platform/Diagnostics.h"
#include "tests/support/Limits.h"

#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <utility>
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

TEST_F(GainWindowTest, EachGainIsAColumnAndAButtonAsWideAsTwo) {
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window_, testing::kLimitMilliseconds));
    QList<QLabel*> headings; // and what is below the columns
    for (QLabel* label : window_.findChildren<QLabel*>())
        if (qobject_cast<TextLabel*>(label) == nullptr)
            headings.append(label);
    const auto values = window_.findChildren<TextLabel*>();
    ASSERT_EQ(headings.size(), 9);
    for (int gain = 0; gain < 8; ++gain) {
        const QRect value = values.at(gain)->geometry();
        const QRect slider = sliders().at(gain)->geometry();
        const QRect heading = headings.at(gain)->geometry();
        EXPECT_EQ(headings.at(gain)->text(), QString::number(gain + 1));
        EXPECT_NEAR(slider.center().x(), value.center().x(), 1) << gain;
        EXPECT_NEAR(heading.center().x(), value.center().x(), 1) << gain;
        EXPECT_LT(heading.bottom(), slider.top()) << gain;
        EXPECT_LT(slider.bottom(), value.top()) << gain;
        EXPECT_TRUE(gain == 0 || value.left() > values.at(gain - 1)->geometry().right()) << gain;
        EXPECT_GE(slider.height(), 170) << gain;
        values.at(gain)->setText("127/127");
        EXPECT_LE(values.at(gain)->sizeHint().width(), value.width()) << gain;
        EXPECT_EQ(values.at(gain)->alignment(), Qt::AlignCenter) << gain;
    }
    const QRect hint = headings.last()->geometry();
    EXPECT_GT(hint.top(), values.front()->geometry().bottom());
    EXPECT_EQ(hint.left(), values.front()->x());
    EXPECT_EQ(hint.right(), values.back()->geometry().right());
    const auto buttons = window_.findChildren<QPushButton*>();
    ASSERT_EQ(buttons.size(), 3);
    for (const auto& [button, first] : {std::pair{0, 0}, {1, 4}, {2, 6}}) {
        const QRect place = buttons.at(button)->geometry();
        EXPECT_GT(place.top(), hint.bottom()) << button;
        EXPECT_EQ(place.top(), buttons.front()->y()) << button;
        EXPECT_NEAR(place.left(), values.at(first)->x(), 1) << button;
        EXPECT_NEAR(place.right(), values.at(first + 1)->geometry().right(), 1) << button;
    }
    EXPECT_TRUE(buttons.at(2)->isDefault());
}

} // namespace
} // namespace scenewright
