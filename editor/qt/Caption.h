// The short text on a control of the picture, set as large as its room allows.
#pragma once

#include <QColor>
#include <QFont>
#include <QRectF>
#include <QString>

class QPainter;

namespace scenewright {

// How a caption is set: upright, or turned a quarter left where only the height has room for it.
struct CaptionSetting {
    QFont font;
    bool isTurned = false;
    bool fits = true; // false: even the smallest legible setting is larger than the room
};

// The smallest size that a caption is set in, in device-independent pixels.
inline constexpr int kSmallestCaption = 9;

// `text` is one or more lines; `font` gives the family; nothing is set larger than `largest`.
[[nodiscard]] CaptionSetting setCaption(const QString& text, const QSizeF& room, QFont font,
                                        int largest);

// How much room a text takes in a font, upright.
[[nodiscard]] QSizeF captionSize(const QString& text, const QFont& font);

void drawCaption(QPainter& painter, const QRectF& room, const QString& text,
                 const CaptionSetting& setting, const QColor& colour);

} // namespace scenewright
