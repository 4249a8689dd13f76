// How a control of the picture is drawn: its shape, the text on it, and images from the resources.
#pragma once

#include "model/SceneValue.h"

#include <QColor>
#include <QFont>
#include <QRectF>
#include <QString>

#include <cstdint>
#include <optional>
#include <string>

class QPainter;

namespace scenewright {

enum class ControlShape : std::uint8_t { Group, Knob, Slider, Pad, WhiteKey, BlackKey };

// The keys run from C to C.
[[nodiscard]] ControlShape shapeOf(ControlKind kind, std::int32_t tag);

struct ControlLook {
    ControlShape shape = ControlShape::Group;
    QColor light{}; // of a pad; invalid or black is unlit
    bool isDown = false;
    bool isHovered = false;
    bool isPlayed = false;         // on the keyboard, just now
    std::optional<qreal> travel{}; // of a knob or slider, 0 (left, down) to 1, where it is known
};

// Draws the control without its caption; `room` is the whole of its place.
void drawControl(QPainter& painter, const QRectF& room, const ControlLook& look);

// Where the image that marks a control stands: its place, as far as no black key lies on it.
[[nodiscard]] QRectF imageRoom(ControlShape shape, const QRectF& room);

// How wide the frame of that image is, in device-independent pixels.
inline constexpr qreal kMarkFrame = 6;

// The part of the place that carries the caption, on a dark ground in every shape.
[[nodiscard]] QRectF captionRect(ControlShape shape, const QRectF& room);

// How a caption, the short text on a control, is set: as large as its room allows, upright, or
// turned a quarter left where only the height has room for it.
struct CaptionSetting {
    QFont font;
    bool isTurned = false;
    bool fits = true; // false: even the smallest legible setting is larger than the room
};

// What a caption is written in where nothing else is wanted.
inline constexpr QColor kPlainCaption(214, 219, 226);

// The smallest size that a caption is set in, in device-independent pixels.
inline constexpr int kSmallestCaption = 9;

// `text` is one or more lines; `font` gives the family; nothing is set larger than `largest`.
[[nodiscard]] CaptionSetting setCaption(const QString& text, const QSizeF& room, QFont font,
                                        int largest);

// How much room a text takes in a font, upright.
[[nodiscard]] QSizeF captionSize(const QString& text, const QFont& font);

void drawCaption(QPainter& painter, const QRectF& room, const QString& text,
                 const CaptionSetting& setting, const QColor& colour);

// Fills `target` with the image NAME.svg: its corners, a third of its width each, keep their size,
// and what is between them stretches. An image that is missing draws nothing and is logged once.
// Main thread; images are kept until the application ends.
// Without its badge, the upper right corner is the mirrored left one.
void drawResourceImage(QPainter& painter, const QRectF& target, const std::string& name,
                       bool hasBadge = true);

// Marks a control that is chosen beside the one with the image.
void drawTaken(QPainter& painter, ControlShape shape, const QRectF& room);

// Marks a control with that image; on a white key without the badge, which would lie on the
// caption.
void drawMark(QPainter& painter, ControlShape shape, const QRectF& room, const std::string& name);

} // namespace scenewright
