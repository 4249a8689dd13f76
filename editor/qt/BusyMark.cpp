#include "editor/qt/BusyMark.h"

#include <QPainter>

namespace scenewright {

namespace {

constexpr int kSide = 18;
constexpr int kStep = 30;       // degrees a tick
constexpr int kTick = 80;       // milliseconds
constexpr int kSixteenths = 16; // of a degree, the unit of an arc

} // namespace

BusyMark::BusyMark(QWidget* parent) : QWidget(parent) {
    setFixedSize(kSide, kSide);
    QSizePolicy policy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    policy.setRetainSizeWhenHidden(true);
    setSizePolicy(policy);
    setAccessibleName(tr("Transfer in progress"));
    setToolTip(accessibleName());
    clock_.setInterval(kTick);
    connect(&clock_, &QTimer::timeout, this, [this] {
        ++turn_;
        update();
    });
    setBusy(false);
}

void BusyMark::setBusy(bool isBusy) {
    setVisible(isBusy);
    if (isBusy)
        clock_.start();
    else
        clock_.stop();
}

QSize BusyMark::sizeHint() const {
    return {kSide, kSide};
}

void BusyMark::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF room = QRectF(rect()).adjusted(2, 2, -2, -2);
    painter.setPen(QPen(palette().color(QPalette::Mid), 2.5));
    painter.drawEllipse(room);
    painter.setPen(QPen(palette().color(QPalette::Highlight), 2.5, Qt::SolidLine, Qt::RoundCap));
    painter.drawArc(room, -turn_ * kStep * kSixteenths, 100 * kSixteenths);
}

} // namespace scenewright
