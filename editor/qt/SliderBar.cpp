#include "editor/qt/SliderBar.h"

#include <QScopedValueRollback>

#include <cstdint>

namespace scenewright {

namespace {

constexpr int kHighest = 127;
constexpr int kPage = 8;

} // namespace

SliderBar::SliderBar(std::int32_t tag, QWidget* parent) : QSlider(Qt::Vertical, parent), tag_(tag) {
    setRange(0, kHighest);
    setPageStep(kPage);
    setFocusPolicy(Qt::StrongFocus);
    connect(this, &QSlider::valueChanged, this, [this] {
        if (!isProgram_)
            emit moved();
    });
}

void SliderBar::setValue(std::int32_t value) {
    const QScopedValueRollback guard(isProgram_, true);
    QSlider::setValue(value);
}

} // namespace scenewright
