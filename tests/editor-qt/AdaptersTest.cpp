// The adapters of few lines: text fields, panes, segments and sliders.
#include "editor/qt/Adapters.h"

#include <QAbstractButton>
#include <QTest>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>

namespace scenewright {
namespace {

TEST(TextLabel, ShowsATextAsItIsAndNeverTakesKeys) {
    TextLabel label;
    TextField& field = label;
    field.setText("<b>64/127</b> ü");
    EXPECT_EQ(label.text(), QString::fromUtf8("<b>64/127</b> ü"));
    EXPECT_EQ(label.textFormat(), Qt::PlainText);
    field.setEditable(true);
    EXPECT_FALSE(label.textInteractionFlags().testFlag(Qt::TextEditable));
}

TEST(NameLabel, IsAsLargeAsAnyLabel) {
    const auto expectAlike = [](const NameLabel& name, const QLabel& label) {
        EXPECT_EQ(name.sizeHint(), label.sizeHint()) << label.text().toStdString();
        EXPECT_EQ(name.minimumSizeHint(), label.minimumSizeHint()) << label.text().toStdString();
    };
    for (const char* text : {"", "Ready", "CC or &note", "Pads\nand &keys", "色 &A"}) {
        NameLabel name;
        QLabel label;
        for (QLabel* each : {static_cast<QLabel*>(&name), &label}) {
            each->setText(QStringLiteral("before it"));
            each->setContentsMargins(1, 5, 2, 3);
            EXPECT_TRUE(each->sizeHint().isValid());
            each->setText(QString::fromUtf8(text));
        }
        expectAlike(name, label);
        for (QLabel* each : {static_cast<QLabel*>(&name), &label}) {
            QFont font = each->font();
            font.setPointSize(font.pointSize() * 2);
            each->setFont(font);
        }
        expectAlike(name, label);
        name.setBuddy(&label);
        label.setBuddy(&name);
        expectAlike(name, label);
    }
}

TEST(TextLine, ShowsANameOfTheControllerReadablyAndTakesKeysUnlessItIsLocked) {
    TextLine line;
    TextField& field = line;
    line.resize(60, line.sizeHint().height());
    field.setText(std::string("LEAD\0\0\0\0\0\0\0\0", 12));
    EXPECT_EQ(line.text(), "LEAD");
    field.setText("A\xFF");
    EXPECT_EQ(line.text(), QString::fromUtf8("A\xEF\xBF\xBD"));
    field.setEditable(false);
    field.setText("WWWWWWWWWWWW");
    EXPECT_EQ(line.cursorPosition(), 0) << "its beginning is seen";
    for (const bool isEditable : {false, true}) {
        field.setEditable(isEditable);
        EXPECT_EQ((line.focusPolicy() & Qt::TabFocus) != 0, isEditable);
        line.end(false);
        QTest::keyClicks(&line, "x");
        EXPECT_EQ(line.text(), isEditable ? "WWWWWWWWWWWWx" : "WWWWWWWWWWWW");
    }
}

TEST(PaneFrame, HidesAndShowsItself) {
    PaneFrame pane;
    for (const bool isHidden : {true, false}) {
        static_cast<Pane&>(pane).setHidden(isHidden);
        EXPECT_EQ(pane.isHidden(), isHidden);
    }
}

TEST(SegmentBar, OneSegmentIsDownAndOfTheAccentsColourAndAUsersChoiceIsTold) {
    SegmentBar bar{{"Scene 1", "Scene 2", "Scene 3", "Scene 4"}};
    int choices = 0;
    QObject::connect(&bar, &SegmentBar::chosen, [&choices] { ++choices; });
    bar.show();
    const std::pair<int, std::function<void()>> rows[] = {
        {0, [] {}},
        {0, [&bar] { bar.setTitle(1, "2  LEAD"); }},
        {2, [&bar] { QTest::mouseClick(&bar.segment(2), Qt::LeftButton); }},
        {3, [&bar] { QTest::keyClick(&bar.segment(3), Qt::Key_Space); }},
    };
    for (const auto& [chosen, act] : rows) {
        act();
        EXPECT_EQ(bar.selectedSegment(), chosen);
        for (int place = 0; place < 4; ++place) {
            const QImage drawn = bar.segment(place).grab().toImage();
            EXPECT_EQ(bar.segment(place).isChecked(), place == chosen) << place;
            EXPECT_EQ(drawn.pixelColor(5, drawn.height() / 2) ==
                          bar.palette().color(QPalette::Highlight),
                      place == chosen)
                << place;
        }
    }
    EXPECT_EQ(bar.segment(1).text(), "2  LEAD");
    EXPECT_EQ(choices, 2);
}

TEST(SegmentButton, EndsATextThatHasNoRoomWithDots) {
    SegmentButton button("A scene with a name && more", nullptr);
    button.setProperty("segment", true);
    EXPECT_EQ(button.minimumSizeHint().width(), 84 + 28);
    EXPECT_EQ(button.minimumSizeHint().height(), button.sizeHint().height());
    // From the first to the last column with ink.
    const auto inkAt = [&button](int width) {
        button.resize(width, button.sizeHint().height());
        const QImage image = button.grab().toImage();
        QRect ink;
        for (int y = 4; y < image.height() - 4; ++y)
            for (int x = 0; x < image.width(); ++x)
                if (qGray(image.pixel(x, y)) < 100)
                    ink |= QRect(x, y, 1, 1);
        return ink;
    };
    const int whole = inkAt(button.sizeHint().width()).width();
    EXPECT_EQ(inkAt(button.sizeHint().width() + 40).width(), whole);
    const QRect cut = inkAt(button.minimumSizeHint().width());
    EXPECT_LT(cut.width(), whole);
    EXPECT_GE(cut.left(), 14);
    EXPECT_LE(cut.right(), button.minimumSizeHint().width() - 14);
}

TEST(SliderBar, GoesFromZeroTo127AndTellsWhatAUserMoves) {
    SliderBar bar{3};
    int moves = 0;
    QObject::connect(&bar, &SliderBar::moved, [&moves] { ++moves; });
    bar.resize(20, 180);
    bar.show();
    Slider& face = bar;
    EXPECT_EQ(face.tag(), 3);
    EXPECT_EQ(std::pair(bar.minimum(), bar.maximum()), std::pair(0, 127));
    face.setValue(64);
    EXPECT_EQ(moves, 0);
    QTest::keyClick(&bar, Qt::Key_Up);
    EXPECT_EQ(face.value(), 65);
    EXPECT_EQ(moves, 1);
    QTest::keyClick(&bar, Qt::Key_PageUp);
    EXPECT_EQ(face.value(), 73);
    EXPECT_EQ(moves, 2);
    EXPECT_EQ(bar.focusPolicy(), Qt::StrongFocus);
    face.setValue(0);
    QTest::mouseClick(&bar, Qt::LeftButton, {}, QPoint(10, 10));
    EXPECT_GT(face.value(), 0);
    EXPECT_EQ(moves, 3);
}

} // namespace
} // namespace scenewright
