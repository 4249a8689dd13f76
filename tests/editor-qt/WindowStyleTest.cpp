#include "editor/qt/WindowStyle.h"

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QStyleOptionComboBox>
#include <gtest/gtest.h>

namespace scenewright {
namespace {

// The colour in the middle of a popup's upper edge.
QColor edgeOf(QStyle::State state) {
    QStyleOptionComboBox option;
    option.rect = QRect(0, 0, 120, 26);
    option.palette = QApplication::palette();
    option.state = state;
    QImage image(120, 26, QImage::Format_RGB32);
    image.fill(option.palette.color(QPalette::Window));
    QPainter painter(&image);
    const WindowStyle style;
    style.drawComplexControl(QStyle::CC_ComboBox, &option, &painter, nullptr);
    painter.end();
    return image.pixelColor(60, 0);
}

TEST(WindowStyle, EdgeOfAPopUpTellsThePointerAndTheKeyboard) {
    const QPalette palette = QApplication::palette();
    const auto enabled = QStyle::State_Enabled;
    EXPECT_EQ(edgeOf(enabled), palette.color(QPalette::Mid));
    EXPECT_EQ(edgeOf(enabled | QStyle::State_MouseOver),
              palette.color(QPalette::PlaceholderText).rgb());
    EXPECT_EQ(edgeOf(enabled | QStyle::State_HasFocus), palette.color(QPalette::Highlight));
    EXPECT_EQ(edgeOf(enabled | QStyle::State_HasFocus | QStyle::State_MouseOver),
              palette.color(QPalette::Highlight));
}

TEST(WindowStyle, TextOfAPopUpHasTheRoomBesideTheArrow) {
    QStyleOptionComboBox option;
    option.rect = QRect(0, 0, 120, 26);
    EXPECT_EQ(WindowStyle().subControlRect(QStyle::CC_ComboBox, &option,
                                           QStyle::SC_ComboBoxEditField, nullptr),
              QRect(6, 0, 92, 26));
}

TEST(WindowStyle, DisabledPopUpDoesNotTellThePointer) {
    EXPECT_EQ(edgeOf(QStyle::State_MouseOver), QApplication::palette().color(QPalette::Mid));
}

} // namespace
} // namespace scenewright
