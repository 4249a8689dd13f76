// The picture of the keyboard: the drawing of its body, and a real button on each control's place.
#pragma once

#include "editor/qt/ControlButton.h"
#include "model/SceneValue.h"

#include <QRectF>
#include <QWidget>

#include <array>
#include <cstdint>
#include <vector>

class QMouseEvent;
class QPainter;
class QRubberBand;

namespace scenewright {

class PopUpValue;

// The tag of the control next to `tag` in a direction (-1, 0 or 1 each way), or `tag` itself when
// nothing lies there.
[[nodiscard]] std::int32_t neighbourOf(std::int32_t tag, int right, int down);

// Keeps the drawing's proportions whatever its size. It is one stop of the Tab key: the control
// that had the keyboard last, or is chosen. The arrows go on from there to the neighbour on the
// picture, and along the keys from one semitone to the next. With the mouse a band is drawn around
// several controls, from the body or from one of them.
class DevicePicture final : public QWidget, public ButtonBoard {
    Q_OBJECT

public:
    explicit DevicePicture(QWidget* parent = nullptr);

    [[nodiscard]] Button* viewWithTag(std::int32_t tag) override;

    // Null when no button carries the tag.
    [[nodiscard]] ControlButton* button(std::int32_t tag) const;
    // Onto the button that is its stop of the Tab key.
    void takeKeyboard() { tabStop_->setFocus(Qt::OtherFocusReason); }
    // Brings the pads' lights and every button's description up to date.
    void showScene(const PopUpValue& lists, const SceneValue& scene);

    // Shows what the scene would do of these controls, in a display mode; the view logic and
    // showScene() put back what is so.
    void preview(const PopUpValue& lists, const SceneValue& scene,
                 const std::vector<std::int32_t>& controls, std::int32_t mode);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

signals:
    // An arrow key with Shift led to the control of that tag.
    void extended(std::int32_t tag);
    // The band was around these, in the order of their tags, or touched them.
    void banded(const std::vector<std::int32_t>& tags, Qt::KeyboardModifiers modifiers);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    // Of a button: it gets the keyboard, or a band is drawn from it.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    [[nodiscard]] QRectF drawingArea() const;
    void makeButtons();
    void setTabStop(ControlButton& stop);
    void focusArrowTarget(std::int32_t tag, int right, int down, Qt::KeyboardModifiers modifiers);
    // Of the picture or of one of its buttons; whether the band takes the event.
    bool drawBand(const QMouseEvent& mouse, QWidget& from);
    [[nodiscard]] std::vector<std::int32_t> tagsIn(const QRect& band) const;

    std::array<ControlButton*, kControlCount> buttons_{}; // children, in the order of their tags
    ControlButton* tabStop_ = nullptr;
    QRubberBand* band_ = nullptr; // child, from the first drag on
    QPoint pressed_;              // where a band may begin
};

} // namespace scenewright
