// How the picture of the keyboard is drawn: its body, the place of each control on it, the
// control's shape, the text on it and the frame around it.
#pragma once

#include "model/SceneValue.h"

#include <QColor>
#include <QFont>
#include <QRectF>
#include <QSizeF>
#include <QString>

#include <cstdint>
#include <optional>

class QPainter;

namespace scenewright {

// Of the whole drawing, in its own units; so are the places on it, from its upper left corner.
inline constexpr QSizeF kDrawingSize(980, 400);

// Where the control of that tag, 1 to 45, has its place; empty for any other.
[[nodiscard]] QRectF controlPlace(std::int32_t tag);

// Draws what is around the controls, so that the whole drawing fills `target`.
void drawBody(QPainter& painter, const QRectF& target);

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

// Where the frame around a marked control stands: its place, as far as no black key lies on it.
[[nodiscard]] QRectF imageRoom(ControlShape shape, const QRectF& room);

// How wide that frame is, in device-independent pixels.
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

// The size that a caption is set in where it has the room, in the drawing's units.
inline constexpr qreal kLargestCaption = 12;

// The smallest size that a caption is set in, in device-independent pixels.
inline constexpr int kSmallestCaption = 9;

// `text` is one or more lines; `font` gives the family; nothing is set larger than `largest`.
[[nodiscard]] CaptionSetting setCaption(const QString& text, const QSizeF& room, QFont font,
                                        int largest);

// How much room a text takes in a font, upright.
[[nodiscard]] QSizeF captionSize(const QString& text, const QFont& font);

void drawCaption(QPainter& painter, const QRectF& room, const QString& text,
                 const CaptionSetting& setting, const QColor& colour);

// Marks a control that is chosen beside the one with the frame.
void drawTaken(QPainter& painter, ControlShape shape, const QRectF& room);

// The frame of the chosen control, with a badge in its upper right corner; on a white key without
// it, as it would lie on the caption.
void drawSelected(QPainter& painter, ControlShape shape, const QRectF& room);

} // namespace scenewright
