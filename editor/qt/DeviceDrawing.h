// The drawing of the keyboard: its body, and where each control has its place on it.
#pragma once

#include <QRectF>
#include <QSvgRenderer>

#include <cstdint>
#include <map>
#include <optional>
#include <string>

class QPainter;

namespace scenewright {

class DeviceDrawing {
public:
    // Reads keyboard.svg from the resources.
    DeviceDrawing();

    // Why the drawing cannot be used, in one sentence; nothing when it can.
    [[nodiscard]] const std::optional<std::string>& trouble() const { return trouble_; }

    // In the drawing's own units, from the upper left corner.
    [[nodiscard]] QSizeF size() const;
    // Where the control of that tag, 1 to 45, has its place; empty when the drawing lacks it.
    [[nodiscard]] QRectF place(std::int32_t tag) const;

    // Draws the body alone, so that the whole drawing would fill `target`.
    void drawBody(QPainter& painter, const QRectF& target);

private:
    QSvgRenderer renderer_;
    std::map<std::int32_t, QRectF> places_;
    std::optional<std::string> trouble_;
};

} // namespace scenewright
