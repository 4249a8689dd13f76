// What is drawn, as a row or a column of a picture meets it.
#pragma once

#include <QImage>
#include <QPoint>

#include <cstdint>
#include <string>

namespace scenewright::testing {

enum class Along : std::uint8_t { Row, Column };

// The colours from one end to the other, each by its name and with how many pixels it has there:
// "f3 g94 f3".
inline std::string partsOf(const QImage& image, Along which, int at, char (*nameOf)(QRgb)) {
    std::string text;
    char former = 0;
    int count = 0;
    const int length = which == Along::Row ? image.width() : image.height();
    for (int step = 0; step <= length; ++step) {
        const QPoint place = which == Along::Row ? QPoint(step, at) : QPoint(at, step);
        const char name = step < length ? nameOf(image.pixel(place)) : '\0';
        if (name != former && count > 0)
            text += std::string(text.empty() ? "" : " ") + former + std::to_string(count);
        count = name == former ? count + 1 : 1;
        former = name;
    }
    return text;
}

} // namespace scenewright::testing
