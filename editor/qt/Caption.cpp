#include "editor/qt/Caption.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QStringList>

#include <algorithm>
#include <array>

namespace scenewright {

namespace {

constexpr QChar kLineEnd = QLatin1Char('\n');
// A caption is rather turned than set smaller or narrower than this.
constexpr std::array<int, 3> kStretches{100, 87, 75};

bool fitsInto(const QSizeF& size, const QSizeF& room) {
    return size.width() <= room.width() && size.height() <= room.height();
}

// The largest size, from `largest` down, in which the text fits; false when none does.
bool shrinkInto(QFont& font, const QString& text, const QSizeF& room, int largest) {
    for (int size = std::max(largest, kSmallestCaption); size >= kSmallestCaption; --size)
        for (const int stretch : kStretches) {
            font.setPixelSize(size);
            font.setStretch(stretch);
            if (fitsInto(captionSize(text, font), room))
                return true;
        }
    return false;
}

} // namespace

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

} // namespace scenewright
