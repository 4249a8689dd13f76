// Images from the resources, by name.
#pragma once

#include <QRectF>

#include <string>

class QPainter;

namespace scenewright {

// Fills `target` with the image NAME.svg: its corners, a third of its width each, keep their size,
// and what is between them stretches. An image that is missing draws nothing and is logged once.
// Main thread; images are kept until the process ends.
void drawResourceImage(QPainter& painter, const QRectF& target, const std::string& name);

} // namespace scenewright
