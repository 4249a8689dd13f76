#include "editor/qt/ControlShape.h"

#include "editor/qt/Theme.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QStringList>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <limits>

namespace scenewright {

namespace {

constexpr QColor kScreen(11, 14, 16); // the ground of every caption
constexpr QColor kPlastic(59, 66, 77);
constexpr QColor kPlasticDark(35, 39, 46);
constexpr QColor kTray(29, 32, 37);
constexpr QColor kIvory(233, 235, 238);
constexpr QColor kIvoryDark(196, 201, 208);
constexpr QColor kEbony(40, 44, 51);
constexpr QColor kEbonyDark(14, 16, 19);
constexpr QColor kRubber(52, 57, 66);
constexpr QColor kMark(232, 235, 240);
constexpr QColor kPlayed(255, 214, 0);
constexpr QColor kTaken(31, 123, 255); // and the chosen one
constexpr QColor kFrameEdge(5, 8, 13);
constexpr QColor kEdge(0, 0, 0, 150);

// Measures are parts of a control's own size, so that the picture scales as one.
constexpr qreal kScreenMargin = 0.05;
constexpr qreal kKnobScreen = 0.42;
constexpr qreal kSliderScreen = 0.26;
constexpr qreal kPadScreen = 0.46;
constexpr qreal kWhiteScreen = 0.3;
constexpr qreal kUnderBlack = 0.63;

QLinearGradient downward(const QRectF& room, const QColor& upper, const QColor& lower) {
    QLinearGradient gradient(room.topLeft(), room.bottomLeft());
    gradient.setColorAt(0, upper);
    gradient.setColorAt(1, lower);
    return gradient;
}

QRectF lowerPart(const QRectF& room, qreal part) {
    const qreal margin = room.width() * kScreenMargin;
    const qreal height = room.height() * part;
    return {room.left() + margin, room.bottom() - height - margin, room.width() - 2 * margin,
            height};
}

void drawScreen(QPainter& painter, const QRectF& room) {
    fillRounded(painter, room, 4, kScreen);
}

void drawGroup(QPainter& painter, const QRectF& room, const ControlLook& look) {
    fillRounded(painter, room, 7,
                look.isDown ? downward(room, kPlasticDark, kPlastic)
                            : downward(room, kPlastic, kPlasticDark));
    drawScreen(painter, captionRect(look.shape, room));
}

void drawKnob(QPainter& painter, const QRectF& room, const ControlLook& look) {
    fillRounded(painter, room, 7, kTray);
    const QRectF screen = captionRect(look.shape, room);
    drawScreen(painter, screen);
    const qreal space = screen.top() - room.top();
    const qreal radius = std::min(space, room.width()) * 0.43;
    const QPointF centre(room.center().x(), room.top() + space / 2);
    painter.setPen(QPen(kEdge, 2));
    QRadialGradient cap(centre - QPointF(radius * 0.3, radius * 0.4), radius * 1.6);
    cap.setColorAt(0, kPlastic.lighter(150));
    cap.setColorAt(1, kPlasticDark);
    painter.setBrush(cap);
    painter.drawEllipse(centre, radius, radius);
    painter.save();
    painter.translate(centre); // a knob turns by 300 degrees
    painter.rotate(look.travel ? *look.travel * 300 - 150 : 0);
    const qreal width = std::max(2.0, radius * 0.12);
    fillRounded(painter, {-width / 2, -radius * 0.85 - width / 2, width, radius * 0.45 + width},
                width / 2, kMark);
    painter.restore();
}

void drawSlider(QPainter& painter, const QRectF& room, const ControlLook& look) {
    fillRounded(painter, room, 7, kTray);
    const QRectF screen = captionRect(look.shape, room);
    drawScreen(painter, screen);
    const qreal top = room.top() + room.height() * 0.07;
    const qreal bottom = screen.top() - room.height() * 0.05;
    const qreal middle = room.center().x();
    painter.setPen(QPen(kMark.darker(280), 1));
    for (int mark = 0; mark <= 4; ++mark) {
        const qreal y = top + (bottom - top) * mark / 4;
        painter.drawLine(QPointF(middle - room.width() * 0.28, y),
                         QPointF(middle + room.width() * 0.28, y));
    }
    fillRounded(painter, QRectF(middle - 2, top, 4, bottom - top), 2, Qt::black);
    const qreal width = room.width() * 0.56;
    const qreal height = room.height() * 0.13;
    const qreal place =
        look.travel ? (bottom - top - height) * (1 - *look.travel) : (bottom - top) * 0.38;
    const QRectF cap(middle - width / 2, top + place, width, height);
    fillRounded(painter, cap.translated(0, 2), 4, kEdge);
    fillRounded(painter, cap, 4, downward(cap, kPlastic.lighter(140), kPlasticDark));
    fillRounded(painter, QRectF(cap.left() + 3, cap.center().y() - 1, cap.width() - 6, 2), 1,
                kMark);
}

void drawPad(QPainter& painter, const QRectF& room, const ControlLook& look) {
    const bool isLit = look.light.isValid() && look.light != QColor(Qt::black);
    fillRounded(painter, room, 9, isLit ? look.light.darker(160) : kPlasticDark);
    const QRectF face = room.adjusted(3, 3, -3, -3);
    fillRounded(painter, face, 7, isLit ? look.light : kRubber);
    if (look.isDown)
        fillRounded(painter, face, 7, QColor(0, 0, 0, 60));
    drawScreen(painter, captionRect(look.shape, room));
}

void drawWhiteKey(QPainter& painter, const QRectF& room, const ControlLook& look) {
    fillRounded(painter, room, 4, kIvoryDark);
    fillRounded(painter, room.adjusted(0, 0, 0, look.isDown ? -1 : -4), 4,
                downward(room, kIvoryDark, kIvory));
    drawScreen(painter, captionRect(look.shape, room));
}

void drawBlackKey(QPainter& painter, const QRectF& room, const ControlLook& look) {
    fillRounded(painter, room, 4, kEbonyDark);
    const QRectF top = room.adjusted(3, 0, -3, look.isDown ? -3 : -7);
    fillRounded(painter, top, 3, downward(top, kEbonyDark, kEbony));
    drawScreen(painter, captionRect(look.shape, room));
}

using Draw = void (*)(QPainter&, const QRectF&, const ControlLook&);
constexpr std::array<Draw, 6> kDraws{drawGroup, drawKnob,     drawSlider,
                                     drawPad,   drawWhiteKey, drawBlackKey};

constexpr QChar kLineEnd = QLatin1Char('\n');
// A caption is rather turned than set smaller or narrower than this.
constexpr std::array<int, 3> kStretches{QFont::AnyStretch, 87, 75};

bool fitsInto(const QSizeF& size, const QSizeF& room) {
    return size.width() <= room.width() && size.height() <= room.height();
}

// At least what captionSize() tells, where the letters are known to stand alone; else infinite. To
// shape a line of text takes many times as long as to look its letters up, and most captions have
// room to spare. What a font moves two letters apart by is less than the part that is added.
qreal widthAtMost(const QString& text, const QFontMetricsF& metrics) {
    constexpr qreal kSpared = 1.1;
    qreal widest = 0;
    qreal width = 0;
    for (const QChar letter : text) {
        if (letter.unicode() > 0x7F)
            return std::numeric_limits<qreal>::infinity();
        width = letter == kLineEnd ? 0 : width + metrics.horizontalAdvance(letter);
        widest = std::max(widest, width);
    }
    return widest * kSpared;
}

bool fits(const QString& text, const QFont& font, const QSizeF& room) {
    const QFontMetricsF metrics(font);
    const auto lines = static_cast<qreal>(text.count(kLineEnd) + 1);
    if (metrics.height() * lines > room.height())
        return false;
    return widthAtMost(text, metrics) <= room.width() || fitsInto(captionSize(text, font), room);
}

// The largest size, from `largest` down, in which the text fits; false when none does.
bool shrinkInto(QFont& font, const QString& text, const QSizeF& room, int largest) {
    for (int size = std::max(largest, kSmallestCaption); size >= kSmallestCaption; --size)
        for (const int stretch : kStretches) {
            font.setPixelSize(size);
            font.setStretch(stretch);
            if (fits(text, font, room))
                return true;
        }
    return false;
}

// A part of the body, in the drawing's units: a box that goes from one colour to another,
// downwards.
struct BodyPart {
    QRectF rect;
    qreal radius = 0;
    QColor upper;
    QColor lower;
};

constexpr QColor kOutline(10, 11, 13);
constexpr QColor kShell(52, 58, 67);
constexpr QColor kShellDark(27, 30, 35);
constexpr QColor kGlint(89, 98, 111);
constexpr QColor kWell(15, 17, 20);
constexpr QColor kWellLow(25, 28, 33);
constexpr QColor kKeyBed(8, 9, 11);
constexpr QColor kFelt(122, 31, 31);
constexpr std::array kBody{
    BodyPart{{2, 2, 976, 396}, 20, kOutline, kOutline},
    BodyPart{{4, 4, 972, 392}, 18, kShell, kShellDark},
    BodyPart{{22, 4, 936, 1.5}, 0, kGlint, kGlint},
    BodyPart{{13, 15, 100, 198}, 11, kWell, kWellLow},
    BodyPart{{119, 15, 171, 198}, 11, kWell, kWellLow},
    BodyPart{{296, 15, 260, 198}, 11, kWell, kWellLow},
    BodyPart{{562, 15, 405, 198}, 11, kWell, kWellLow},
    BodyPart{{19, 220, 942, 169}, 8, kKeyBed, kKeyBed},
    BodyPart{{19, 220, 942, 3}, 1.5, kFelt, kFelt},
};

// Controls of a kind that stand in rows: the first one, and the way to the next one each way.
struct ControlGrid {
    ControlKind kind = ControlKind::Group;
    QRectF first;
    int columns = 1;
    QPointF step;
};

constexpr std::array kGrids{
    ControlGrid{ControlKind::Group, {20, 22, 86, 40}, 1, {0, 48}},
    ControlGrid{ControlKind::Knob, {126, 22, 75, 88}, 2, {82, 96}},
    ControlGrid{ControlKind::Slider, {303, 22, 57, 184}, 4, {63, 0}},
    ControlGrid{ControlKind::Pad, {569, 22, 91, 88}, 4, {100, 96}},
};

constexpr qreal kKeyTop = 224;
constexpr QSizeF kWhiteKey(60, 160);
constexpr QSizeF kBlackKey(40, 98);
constexpr qreal kOctave = 434;
constexpr std::array<qreal, 12> kKeyLefts{25, 62, 87, 132, 149, 211, 247, 273, 314, 335, 381, 397};

QRectF keyPlace(std::int32_t tag) {
    const std::int32_t key = tag - controlRange(ControlKind::Key).start;
    const auto [octave, step] = std::div(key, 12);
    const qreal left = kKeyLefts.at(static_cast<std::size_t>(step)) + octave * kOctave;
    const bool isBlack = shapeOf(ControlKind::Key, tag) == ControlShape::BlackKey;
    return {QPointF(left, kKeyTop), isBlack ? kBlackKey : kWhiteKey};
}

void strokeRounded(QPainter& painter, const QRectF& rect, qreal radius, const QPen& pen) {
    painter.setBrush(Qt::NoBrush);
    painter.setPen(pen);
    painter.drawRoundedRect(rect, radius, radius);
}

// A tick on a disc, around `centre`.
void drawBadge(QPainter& painter, const QPointF& centre) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::white);
    painter.drawEllipse(centre, 8.5, 8.5);
    painter.setBrush(kTaken);
    painter.drawEllipse(centre, 7.5, 7.5);
    painter.setPen(QPen(Qt::white, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const std::array tick{centre + QPointF(-3.6, 0.2), centre + QPointF(-1, 2.9),
                          centre + QPointF(3.7, -2.4)};
    painter.drawPolyline(tick.data(), static_cast<int>(tick.size()));
}

} // namespace

QRectF controlPlace(std::int32_t tag) {
    for (const ControlGrid& grid : kGrids) {
        const ControlRange& range = controlRange(grid.kind);
        if (tag < range.start || tag >= range.end())
            continue;
        const auto [row, column] = std::div(tag - range.start, grid.columns);
        return grid.first.translated(column * grid.step.x(), row * grid.step.y());
    }
    const ControlRange& keys = controlRange(ControlKind::Key);
    return tag >= keys.start && tag < keys.end() ? keyPlace(tag) : QRectF();
}

void drawBody(QPainter& painter, const QRectF& target) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const qreal scale = target.width() / kDrawingSize.width();
    for (const BodyPart& part : kBody) {
        const QRectF rect(target.topLeft() + part.rect.topLeft() * scale, part.rect.size() * scale);
        fillRounded(painter, rect, part.radius * scale,
                    part.upper == part.lower ? QBrush(part.upper)
                                             : downward(rect, part.upper, part.lower));
    }
    painter.restore();
}

ControlShape shapeOf(ControlKind kind, std::int32_t tag) {
    if (kind != ControlKind::Key) {
        const auto shape = static_cast<int>(kind) - static_cast<int>(ControlKind::Group);
        return static_cast<ControlShape>(shape);
    }
    constexpr std::array kBlackSteps{1, 3, 6, 8, 10};
    const int step = (tag - controlRange(ControlKind::Key).start) % 12;
    return std::ranges::find(kBlackSteps, step) == kBlackSteps.end() ? ControlShape::WhiteKey
                                                                     : ControlShape::BlackKey;
}

QRectF captionRect(ControlShape shape, const QRectF& room) {
    const qreal margin = std::max(3.0, room.width() * kScreenMargin);
    switch (shape) {
    case ControlShape::Group:
        return room.adjusted(margin, margin, -margin, -margin);
    case ControlShape::Knob:
        return lowerPart(room, kKnobScreen);
    case ControlShape::Slider:
        return lowerPart(room, kSliderScreen);
    case ControlShape::Pad:
        return lowerPart(room.adjusted(3, 3, -3, -3), kPadScreen);
    case ControlShape::WhiteKey:
        return lowerPart(room.adjusted(-2, 0, 2, -4), kWhiteScreen);
    case ControlShape::BlackKey:
        return room.adjusted(3, room.height() * 0.1, -3, -7);
    }
    return room;
}

QRectF imageRoom(ControlShape shape, const QRectF& room) {
    if (shape != ControlShape::WhiteKey)
        return room;
    return room.adjusted(0, room.height() * kUnderBlack, 0, 0);
}

void drawControl(QPainter& painter, const QRectF& room, const ControlLook& look) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    kDraws.at(static_cast<std::size_t>(look.shape))(painter, room, look);
    if (look.isHovered)
        fillRounded(painter, room, 7, QColor(255, 255, 255, 26));
    if (look.isPlayed) {
        const QRectF ring = room.adjusted(3, 3, -3, -3);
        strokeRounded(painter, ring, 7, QPen(Qt::black, 6)); // seen on any light
        strokeRounded(painter, ring, 7, QPen(kPlayed, 3));
    }
    painter.restore();
}

QSizeF captionSize(const QString& text, const QFont& font) {
    const QFontMetricsF metrics(font);
    const QStringList lines = text.split(kLineEnd);
    qreal width = 0;
    for (const QString& line : lines)
        width = std::max(width, metrics.horizontalAdvance(line));
    return {width, metrics.height() * static_cast<qreal>(lines.size())};
}

CaptionSetting setCaption(const QString& text, const QSizeF& room, QFont font, int largest) {
    if (shrinkInto(font, text, room, largest))
        return {font, false, true};
    if (shrinkInto(font, text, room.transposed(), largest))
        return {font, true, true};
    return {font, false, false};
}

void drawCaption(QPainter& painter, const QRectF& room, const QString& text,
                 const CaptionSetting& setting, const QColor& colour) {
    painter.save();
    painter.setFont(setting.font);
    painter.setPen(colour);
    painter.translate(room.center());
    if (setting.isTurned)
        painter.rotate(-90);
    const QSizeF size = setting.isTurned ? room.size().transposed() : room.size();
    const QRectF box(QPointF(-size.width() / 2, -size.height() / 2), size);
    painter.drawText(box, Qt::AlignCenter | Qt::TextDontClip, text);
    painter.restore();
}

void drawTaken(QPainter& painter, ControlShape shape, const QRectF& room) {
    const QRectF frame = imageRoom(shape, room).adjusted(3, 3, -3, -3);
    strokeRounded(painter, frame, 6, QPen(Qt::white, 5));
    strokeRounded(painter, frame, 6, QPen(kTaken, 3, Qt::DashLine));
}

void drawSelected(QPainter& painter, ControlShape shape, const QRectF& room) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF frame = imageRoom(shape, room);
    strokeRounded(painter, frame.adjusted(2, 2, -2, -2), 8, QPen(Qt::white, 4));
    strokeRounded(painter, frame.adjusted(2.5, 2.5, -2.5, -2.5), 8, QPen(kTaken, 3));
    strokeRounded(painter, frame.adjusted(5.25, 5.25, -5.25, -5.25), 5.5, QPen(kFrameEdge, 1.5));
    if (shape != ControlShape::WhiteKey)
        drawBadge(painter, frame.topRight() + QPointF(-10, 10));
    painter.restore();
}

} // namespace scenewright
