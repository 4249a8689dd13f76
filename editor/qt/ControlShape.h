// How the controls of the device picture look: groups, knobs, sliders, pads, white and black keys.
#pragma once

#include "model/Control.h"

#include <QColor>
#include <QRectF>

#include <cstdint>

class QPainter;

namespace scenewright {

enum class ControlShape : std::uint8_t { Group, Knob, Slider, Pad, WhiteKey, BlackKey };

// The keys run from C to C.
[[nodiscard]] ControlShape shapeOf(ControlKind kind, std::int32_t tag);

struct ControlLook {
    ControlShape shape = ControlShape::Group;
    QColor light; // of a pad; invalid or black is unlit
    bool isDown = false;
    bool isHovered = false;
};

// Draws the control without its caption; `room` is the whole of its place.
void drawControl(QPainter& painter, const QRectF& room, const ControlLook& look);

// Where the image that marks a control stands: its place, as far as no black key lies on it.
[[nodiscard]] QRectF imageRoom(ControlShape shape, const QRectF& room);

// The part of the place that carries the caption, on a dark ground in every shape.
[[nodiscard]] QRectF captionRect(ControlShape shape, const QRectF& room);

} // namespace scenewright
