#include "editor/qt/Theme.h"
#include "tests/editor-qt/DrawnParts.h"

#include <QApplication>
#include <QCommonStyle>
#include <QFrame>
#include <QImage>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QScrollBar>
#include <QStyleOptionButton>
#include <QStyleOptionComboBox>
#include <QStyleOptionFocusRect>
#include <QStyleOptionFrame>
#include <QStyleOptionMenuItem>
#include <QStyleOptionSlider>
#include <QToolButton>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <functional>
#include <memory>
#include <tuple>

namespace scenewright {
namespace {

constexpr QRect kRect(0, 0, 120, 26);

// What the style draws of an option of that size, on the window's ground.
template <typename Option>
QImage drawn(Option option, QStyle::State state,
             const std::function<void(const WindowStyle&, const Option&, QPainter&)>& draw) {
    option.rect = kRect;
    option.palette = QApplication::palette();
    if (!state.testFlag(QStyle::State_Enabled))
        option.palette.setCurrentColorGroup(QPalette::Disabled);
    option.state = state;
    QImage image(kRect.size(), QImage::Format_RGB32);
    image.fill(option.palette.color(QPalette::Window));
    QPainter painter(&image);
    draw(WindowStyle(), option, painter);
    return image;
}

// How far two images are apart where they are most: in levels of 255.
int apart(const QImage& one, const QImage& other) {
    int most = 0;
    for (int y = 0; y < one.height(); ++y)
        for (int x = 0; x < one.width(); ++x) {
            const QColor a = one.pixelColor(x, y);
            const QColor b = other.pixelColor(x, y);
            most = std::max({most, std::abs(a.red() - b.red()), std::abs(a.green() - b.green()),
                             std::abs(a.blue() - b.blue())});
        }
    return most;
}

TEST(RoundedRect, IsFilledAsTheToolkitFillsIt) {
    constexpr int kRounding = 2;
    QLinearGradient gradient(0, 10, 0, 90);
    gradient.setColorAt(0, Qt::red);
    gradient.setColorAt(1, Qt::blue);
    const std::array<QBrush, 3> brushes{QBrush(Qt::black), QBrush(QColor(0, 90, 200, 120)),
                                        QBrush(gradient)};
    for (const QRectF& rect :
         {QRectF(10, 10, 60, 80), QRectF(10.3, 10.6, 60.5, 79.7), QRectF(10, 10, 8, 80),
          QRectF(10, 10, 60, 20), QRectF(10.5, 10.5, 60, 4)})
        for (const qreal scale : {1.0, 1.25, 2.0})
            for (const QBrush& brush : brushes) {
                const auto filled = [&](const auto& fill) {
                    QImage image(200, 200, QImage::Format_RGB32);
                    image.fill(Qt::white);
                    QPainter painter(&image);
                    painter.setRenderHint(QPainter::Antialiasing);
                    painter.translate(3, 5);
                    painter.scale(scale, scale);
                    fill(painter);
                    return image;
                };
                const QImage ours =
                    filled([&](QPainter& painter) { fillRounded(painter, rect, 7, brush); });
                const QImage theirs = filled([&](QPainter& painter) {
                    painter.setPen(Qt::NoPen);
                    painter.setBrush(brush);
                    painter.drawRoundedRect(rect, 7, 7);
                });
                EXPECT_LE(apart(ours, theirs), kRounding)
                    << rect.x() << ' ' << rect.width() << 'x' << rect.height() << ' ' << scale;
            }
}

// As a widget with a frame gives it to the style.
QStyleOptionFrame framed() {
    QStyleOptionFrame option;
    option.frameShape = QFrame::StyledPanel;
    option.lineWidth = 1;
    return option;
}

QColor edgeOf(const QImage& image) {
    return image.pixelColor(60, 0);
}

QColor groundOf(const QImage& image) {
    return image.pixelColor(20, 13);
}

QImage popUp(QStyle::State state) {
    return drawn<QStyleOptionComboBox>(
        {}, state, [](const auto& style, const auto& option, QPainter& painter) {
            style.drawComplexControl(QStyle::CC_ComboBox, &option, &painter, nullptr);
        });
}

QImage button(const QPushButton& widget, QStyle::State state) {
    return drawn<QStyleOptionButton>(
        {}, state, [&](const auto& style, const auto& option, QPainter& painter) {
            style.drawControl(QStyle::CE_PushButtonBevel, &option, &painter, &widget);
        });
}

QColor roleColour(QPalette::ColorRole role) {
    return QApplication::palette().color(role).rgb();
}

constexpr auto kEnabled = QStyle::State_Enabled;

TEST(WindowStyle, EdgeOfAPopUpTellsThePointerAndTheKeyboard) {
    EXPECT_EQ(edgeOf(popUp(kEnabled)), roleColour(QPalette::Mid));
    EXPECT_EQ(edgeOf(popUp(kEnabled | QStyle::State_MouseOver)),
              roleColour(QPalette::PlaceholderText));
    for (const auto pointer : {QStyle::State_None, QStyle::State_MouseOver})
        EXPECT_EQ(edgeOf(popUp(kEnabled | QStyle::State_HasFocus | pointer)),
                  roleColour(QPalette::Highlight));
    EXPECT_EQ(edgeOf(popUp(QStyle::State_MouseOver)), roleColour(QPalette::Mid));
}

TEST(WindowStyle, TextOfAPopUpHasTheRoomBesideTheArrow) {
    QStyleOptionComboBox option;
    option.rect = kRect;
    EXPECT_EQ(WindowStyle().subControlRect(QStyle::CC_ComboBox, &option,
                                           QStyle::SC_ComboBoxEditField, nullptr),
              QRect(6, 0, 92, 26));
}

TEST(WindowStyle, ButtonTellsItsKindAndItsState) {
    const QPushButton plain;
    QPushButton main;
    main.setProperty("main", true);
    QPushButton segment;
    segment.setProperty("segment", true);
    struct Case {
        const char* name;
        const QPushButton& button;
        QStyle::State state;
        QPalette::ColorRole ground;
        QPalette::ColorRole edge;
    };
    using P = QPalette;
    for (const Case& each : {
             Case{"plain", plain, kEnabled, P::Button, P::Mid},
             Case{"down", plain, kEnabled | QStyle::State_Sunken, P::Mid, P::Mid},
             Case{"focused", plain, kEnabled | QStyle::State_HasFocus, P::Button, P::Highlight},
             Case{"hovered", plain, kEnabled | QStyle::State_MouseOver, P::Button,
                  P::PlaceholderText},
             Case{"main", main, kEnabled, P::Highlight, P::Highlight},
             Case{"main focused", main, kEnabled | QStyle::State_HasFocus, P::Highlight,
                  P::Highlight},
             Case{"main disabled", main, {}, P::Button, P::Mid},
             Case{"segment", segment, kEnabled, P::Window, P::Window},
             Case{"segment hovered", segment, kEnabled | QStyle::State_MouseOver, P::Mid,
                  P::Window},
             Case{"segment chosen", segment, kEnabled | QStyle::State_On, P::Highlight, P::Window},
             Case{"segment focused", segment, kEnabled | QStyle::State_On | QStyle::State_HasFocus,
                  P::Highlight, P::Window},
         }) {
        const QImage image = button(each.button, each.state);
        EXPECT_EQ(groundOf(image), roleColour(each.ground)) << each.name;
        EXPECT_EQ(edgeOf(image), roleColour(each.edge)) << each.name;
        const bool hasRing = &each.button != &plain && each.state.testFlag(QStyle::State_HasFocus);
        EXPECT_EQ(QColor(image.pixel(60, 3)) == roleColour(P::HighlightedText), hasRing)
            << each.name;
    }
}

TEST(WindowStyle, LineTellsWhetherItCanBeEditedAndHasTheKeyboard) {
    const auto line = [](QStyle::State state, int frame = 1) {
        QStyleOptionFrame framed;
        framed.lineWidth = frame;
        return drawn<QStyleOptionFrame>(
            framed, state, [](const auto& style, const auto& option, QPainter& painter) {
                style.drawPrimitive(QStyle::PE_PanelLineEdit, &option, &painter, nullptr);
            });
    };
    EXPECT_EQ(groundOf(line(kEnabled)), roleColour(QPalette::Base));
    EXPECT_EQ(edgeOf(line(kEnabled)), roleColour(QPalette::Mid));
    EXPECT_EQ(edgeOf(line(kEnabled | QStyle::State_HasFocus)), roleColour(QPalette::Highlight));
    const auto locked = kEnabled | QStyle::State_ReadOnly;
    EXPECT_EQ(groundOf(line(locked)), roleColour(QPalette::Button));
    EXPECT_EQ(edgeOf(line(locked)), roleColour(QPalette::Button));
    EXPECT_EQ(edgeOf(line(locked | QStyle::State_HasFocus)), roleColour(QPalette::Button));
    EXPECT_EQ(edgeOf(line(kEnabled, 0)), roleColour(QPalette::Window)) << "its box has the frame";
}

TEST(WindowStyle, SlimScrollBarIsItsHandleAlone) {
    QScrollBar bar(Qt::Vertical);
    bar.setProperty("slim", true);
    struct Case {
        int maximum;
        int page;
        int position;
        QRect handle; // in a bar of 10 by 204
    };
    const WindowStyle style;
    for (const Case& each :
         {Case{100, 100, 0, {2, 2, 6, 100}}, Case{100, 100, 50, {2, 52, 6, 100}},
          Case{100, 100, 100, {2, 102, 6, 100}}, Case{10000, 10, 10000, {2, 174, 6, 28}},
          Case{0, 10, 0, {2, 2, 6, 200}}}) {
        QStyleOptionSlider option;
        option.rect = QRect(0, 0, 10, 204);
        option.maximum = each.maximum;
        option.pageStep = each.page;
        option.sliderPosition = each.position;
        option.palette = QApplication::palette();
        const auto part = [&](QStyle::SubControl which) {
            return style.subControlRect(QStyle::CC_ScrollBar, &option, which, &bar);
        };
        EXPECT_EQ(part(QStyle::SC_ScrollBarGroove), QRect(2, 2, 6, 200));
        EXPECT_EQ(part(QStyle::SC_ScrollBarSlider), each.handle) << each.position;
        EXPECT_EQ(part(QStyle::SC_ScrollBarSubPage), QRect(0, 0, 10, each.handle.top()));
        EXPECT_EQ(part(QStyle::SC_ScrollBarAddPage).top(), each.handle.bottom() + 1);
        EXPECT_TRUE(part(QStyle::SC_ScrollBarAddLine).isEmpty());
        EXPECT_TRUE(part(QStyle::SC_ScrollBarSubLine).isEmpty());
        using State = QStyle::StateFlag;
        for (const auto& [state, under, colour] :
             {std::tuple{State::State_None, QStyle::SC_ScrollBarSlider, QPalette::Mid},
              {State::State_MouseOver, QStyle::SC_ScrollBarGroove, QPalette::Mid},
              {State::State_MouseOver, QStyle::SC_ScrollBarSlider, QPalette::PlaceholderText}}) {
            option.state = state;
            option.activeSubControls = under;
            QImage image(10, 204, QImage::Format_RGB32);
            QPainter painter(&image);
            style.drawComplexControl(QStyle::CC_ScrollBar, &option, &painter, &bar);
            painter.end();
            EXPECT_EQ(image.pixelColor(each.handle.center()), roleColour(colour)) << state;
            EXPECT_EQ(image.pixelColor(0, 100), roleColour(QPalette::Base));
        }
    }
    EXPECT_EQ(style.pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, &bar), 10);
}

TEST(WindowStyle, PanelsAndTipsAreFilledAndEdged) {
    QFrame panel;
    panel.setProperty("panel", true);
    QFrame segments;
    segments.setProperty("segments", true);
    const auto frame = [](const QWidget& widget) {
        return drawn<QStyleOptionFrame>(
            framed(), kEnabled, [&](const auto& style, const auto& option, QPainter& painter) {
                style.drawControl(QStyle::CE_ShapedFrame, &option, &painter, &widget);
            });
    };
    const QImage tip = drawn<QStyleOptionFrame>(
        {}, kEnabled, [](const auto& style, const auto& option, QPainter& painter) {
            style.drawPrimitive(QStyle::PE_PanelTipLabel, &option, &painter, nullptr);
        });
    EXPECT_EQ(groundOf(frame(panel)), roleColour(QPalette::Base));
    EXPECT_EQ(groundOf(frame(segments)), roleColour(QPalette::Button));
    EXPECT_EQ(groundOf(tip), roleColour(QPalette::ToolTipBase));
    for (const QImage& image : {frame(panel), frame(segments), tip})
        EXPECT_EQ(edgeOf(image), roleColour(QPalette::Mid));
}

TEST(WindowStyle, LabelTakesItsColourFromItsRole) {
    struct Case {
        const char* role;
        QPalette::ColorRole colour;
    };
    for (const Case& each :
         {Case{"heading", QPalette::Link}, Case{"field", QPalette::PlaceholderText},
          Case{"hint", QPalette::PlaceholderText}, Case{"trouble", QPalette::BrightText},
          Case{"notice", QPalette::WindowText}}) {
        QLabel label;
        label.setProperty("role", each.role);
        label.ensurePolished();
        EXPECT_EQ(label.foregroundRole(), each.colour) << each.role;
    }
}

// The colours of the light theme; "." is any other.
char nameOf(QRgb colour) {
    switch (colour & 0xFFFFFF) {
    case 0xEDEFF3:
        return '_'; // the window's ground
    case 0xFFFFFF:
        return 'p'; // panel
    case 0xF6F7F9:
        return 'f'; // field
    case 0xD0D5DD:
        return 'l'; // line
    case 0x58616E:
        return 'm'; // muted
    case 0x167A3A:
        return 'a'; // accent
    case 0x181C22:
        return 't'; // text
    default:
        return '.';
    }
}

TEST(WindowStyle, BoxesHaveTheirEdgesCornersAndArrow) {
    using testing::Along;
    QPushButton plain;
    QPushButton main;
    main.setProperty("main", true);
    QPushButton segment;
    segment.setProperty("segment", true);
    QFrame panel;
    panel.setProperty("panel", true);
    QFrame segments;
    segments.setProperty("segments", true);
    QFrame list;
    list.setProperty("list", true);
    QToolButton flat;
    flat.resize(kRect.size());
    const auto focused = kEnabled | QStyle::State_HasFocus;
    const auto frame = [](const QWidget& widget, QStyle::State state) {
        return drawn<QStyleOptionFrame>(
            framed(), state, [&](const auto& style, const auto& option, QPainter& painter) {
                style.drawControl(QStyle::CE_ShapedFrame, &option, &painter, &widget);
            });
    };
    const auto ring = [&flat] {
        return drawn<QStyleOptionFocusRect>(
            {}, kEnabled, [&](const auto& style, const auto& option, QPainter& painter) {
                style.drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, &flat);
            });
    };
    const auto menuName = drawn<QStyleOptionMenuItem>(
        {}, kEnabled | QStyle::State_Selected,
        [](const auto& style, const auto& option, QPainter& painter) {
            style.drawControl(QStyle::CE_MenuBarItem, &option, &painter, nullptr);
        });
    const auto line = drawn<QStyleOptionFrame>(
        framed(), focused, [](const auto& style, const auto& option, QPainter& painter) {
            style.drawPrimitive(QStyle::PE_PanelLineEdit, &option, &painter, nullptr);
        });
    const auto tip = drawn<QStyleOptionFrame>(
        {}, kEnabled, [](const auto& style, const auto& option, QPainter& painter) {
            style.drawPrimitive(QStyle::PE_PanelTipLabel, &option, &painter, nullptr);
        });
    struct Row {
        const char* name;
        QImage image;
        const char* middle; // the row there
        const char* top;
    };
    for (const Row& row : {
             Row{"popup", popUp(kEnabled), "l1 f101 .8 f9 l1", "_3 .4 l106 .4 _3"},
             Row{"popup with the keyboard", popUp(focused), "a2 f100 .8 f8 a2", "_4 .4 a104 .4 _4"},
             Row{"button", button(plain, kEnabled), "l1 f118 l1", "_3 .4 l106 .4 _3"},
             Row{"main button", button(main, focused), "a2 p2 a112 p2 a2", "_3 .5 a104 .5 _3"},
             Row{"segment", button(segment, kEnabled | QStyle::State_On), "_1 a118 _1", "_120"},
             Row{"segment with the keyboard", button(segment, focused), "_2 t2 _112 t2 _2", "_120"},
             Row{"panel", frame(panel, kEnabled), "l1 p118 l1", "_6 .4 l100 .4 _6"},
             Row{"segments", frame(segments, kEnabled), "l1 f118 l1", "_5 .4 l102 .4 _5"},
             Row{"list", frame(list, kEnabled), "l1 p118 l1", "_5 .5 l100 .5 _5"},
             Row{"list with the keyboard", frame(list, focused), "a2 p116 a2", "_5 .5 a100 .5 _5"},
             Row{"tool button with the keyboard", ring(), "t2 _116 t2", "_3 .4 t106 .4 _3"},
             Row{"name of a menu", menuName, "l120", "_2 .3 l110 .3 _2"},
             Row{"line with the keyboard", line, "a2 p116 a2", "_4 .4 a104 .4 _4"},
             Row{"tip", tip, "l1 p118 l1", "l120"},
         }) {
        EXPECT_EQ(partsOf(row.image, Along::Row, 13, nameOf), row.middle) << row.name;
        EXPECT_EQ(partsOf(row.image, Along::Row, 0, nameOf), row.top) << row.name;
    }
    EXPECT_EQ(partsOf(popUp(kEnabled), Along::Row, 15, nameOf), "l1 f103 .4 f11 l1");
    EXPECT_EQ(partsOf(popUp(kEnabled), Along::Column, 107, nameOf), "l1 f11 .4 f9 l1");
}

TEST(WindowStyle, GivesEachKindTheRoomThatIsItsOwn) {
    const WindowStyle style;
    QPushButton plain;
    QPushButton segment;
    segment.setProperty("segment", true);
    QScrollBar slim(Qt::Vertical);
    slim.setProperty("slim", true);
    const QScrollBar wide(Qt::Vertical);
    QFrame panel;
    panel.setProperty("panel", true);
    QFrame list;
    list.setProperty("list", true);
    QStyleOptionButton button;
    struct Size {
        QStyle::ContentsType type;
        QSize contents;
        const QWidget* widget;
        QSize whole;
    };
    for (const Size& row : {Size{QStyle::CT_PushButton, {50, 20}, &plain, {80, 32}},
                            Size{QStyle::CT_PushButton, {50, 20}, &segment, {112, 32}},
                            Size{QStyle::CT_PushButton, {90, 20}, &segment, {118, 32}},
                            Size{QStyle::CT_MenuBarItem, {50, 20}, nullptr, {68, 28}}})
        EXPECT_EQ(style.sizeFromContents(row.type, &button, row.contents, row.widget), row.whole);
    QStyleOptionComboBox popUp;
    EXPECT_EQ(style.sizeFromContents(QStyle::CT_ComboBox, &popUp, {50, 10}, nullptr).height(), 28);
    EXPECT_GT(style.sizeFromContents(QStyle::CT_ComboBox, &popUp, {50, 60}, nullptr).height(), 60);
    QStyleOptionFrame frame = framed();
    frame.rect = kRect;
    EXPECT_EQ(style.sizeFromContents(QStyle::CT_LineEdit, &frame, {50, 10}, nullptr).height(), 28);
    EXPECT_EQ(style.subElementRect(QStyle::SE_LineEditContents, &frame, nullptr),
              QRect(9, 0, 102, 26));
    EXPECT_EQ(style.subElementRect(QStyle::SE_ShapedFrameContents, &frame, &panel),
              QRect(1, 1, 118, 24));
    EXPECT_EQ(style.subElementRect(QStyle::SE_ShapedFrameContents, &frame, &list),
              QRect(6, 6, 108, 14));
    struct Metric {
        QStyle::PixelMetric metric;
        int pixels;
    };
    for (const Metric& row :
         {Metric{QStyle::PM_ToolTipLabelFrameWidth, 4}, Metric{QStyle::PM_MenuBarHMargin, 6},
          Metric{QStyle::PM_MenuBarVMargin, 2}, Metric{QStyle::PM_MenuBarPanelWidth, 0},
          Metric{QStyle::PM_ButtonShiftHorizontal, 0}, Metric{QStyle::PM_ButtonShiftVertical, 0}})
        EXPECT_EQ(style.pixelMetric(row.metric, nullptr, nullptr), row.pixels) << row.metric;
    EXPECT_EQ(style.pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, &slim), 10);
    EXPECT_GT(style.pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, &wide), 10);
    EXPECT_EQ(style.styleHint(QStyle::SH_ComboBox_Popup, &popUp, nullptr, nullptr), 0);
}

// As on a system that shows the keys of the menus on demand.
class WithoutUnderlines : public QCommonStyle {
public:
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override {
        return hint == SH_UnderlineShortcut ? 0
                                            : QCommonStyle::styleHint(hint, option, widget, data);
    }
};

TEST(WindowStyle, KeyOfAMenuIsUnderlinedWhereTheSystemDoes) {
    WindowStyle window;
    const auto name = [&window](const QString& text) {
        QStyleOptionMenuItem item;
        item.text = text;
        return drawn<QStyleOptionMenuItem>(
            item, kEnabled, [&](const auto& /*style*/, const auto& option, QPainter& painter) {
                window.drawControl(QStyle::CE_MenuBarItem, &option, &painter, nullptr);
            });
    };
    EXPECT_NE(name("&File"), name("File"));
    window.setBaseStyle(std::make_unique<WithoutUnderlines>().release()); // the style owns it
    EXPECT_EQ(name("&File"), name("File"));
}

TEST(WindowStyle, MenuBarsButtonHasAnIconOfTheStyles) {
    const QIcon icon =
        WindowStyle().standardIcon(QStyle::SP_ToolBarHorizontalExtensionButton, nullptr, nullptr);
    EXPECT_EQ(icon.availableSizes(), QList<QSize>{QSize(12, 12)});
    const QImage drawing = icon.pixmap(12).toImage();
    EXPECT_GT(drawing.pixelColor(6, 8).alpha(), 150) << "its point";
    EXPECT_EQ(drawing.pixelColor(6, 3).alpha(), 0);
    EXPECT_FALSE(
        WindowStyle().standardIcon(QStyle::SP_MessageBoxWarning, nullptr, nullptr).isNull())
        << "the toolkit's own";
}

// The edge of a box is filled, and its inside above that, rather than drawn with a pen.
TEST(WindowStyle, EdgeOfABoxIsAsWideInItsCornersAsAlongItsSides) {
    constexpr int kRounding = 40; // of 255: what two fills leave of the ground in a pixel of both
    const QPushButton plain;
    const auto state = kEnabled | QStyle::State_HasFocus;
    const QImage filled = button(plain, state);
    const QImage stroked = drawn<QStyleOptionButton>(
        {}, state, [](const auto&, const auto& option, QPainter& painter) {
            painter.setRenderHint(QPainter::Antialiasing);
            painter.setPen(QPen(option.palette.color(QPalette::Highlight), 2));
            painter.setBrush(option.palette.brush(QPalette::Button));
            painter.drawRoundedRect(QRectF(option.rect).adjusted(1, 1, -1, -1), 7, 7);
        });
    EXPECT_LE(apart(filled, stroked), kRounding);
}

} // namespace
} // namespace scenewright
