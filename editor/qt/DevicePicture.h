// The picture of the keyboard: the drawing of its body, and a real button on each control's place.
#pragma once

#include "editor/qt/ControlButton.h"
#include "editor/qt/DeviceDrawing.h"
#include "model/SceneValue.h"

#include <QWidget>

#include <array>

namespace scenewright {

class PopUpValue;

// Keeps the drawing's proportions whatever its size. The Tab key goes through the controls in the
// order of their tags; the arrows go to the neighbour on the picture, and along the keys from one
// semitone to the next.
class DevicePicture final : public QWidget, public ButtonBoard {
    Q_OBJECT

public:
    explicit DevicePicture(QWidget* parent = nullptr);

    [[nodiscard]] Button* viewWithTag(std::int32_t tag) override;

    // Null when no button carries the tag.
    [[nodiscard]] ControlButton* button(std::int32_t tag) const;
    [[nodiscard]] const DeviceDrawing& drawing() const { return drawing_; }
    // Brings the pads' lights and every button's description up to date.
    void showScene(const PopUpValue& lists, const SceneValue& scene);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] QRectF drawingArea() const;
    void makeButtons();
    void focusArrowTarget(std::int32_t tag, int right, int down);

    DeviceDrawing drawing_;
    std::array<ControlButton*, kControlCount> buttons_{}; // children, in the order of their tags
};

} // namespace scenewright
