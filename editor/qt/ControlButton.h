// One control of the device picture: a push button in the shape of what it stands for.
#pragma once

#include "editor/qt/Caption.h"
#include "editor/widgets/Widgets.h"
#include "model/Control.h"

#include <QAbstractButton>

#include <optional>
#include <string>

namespace scenewright {

class ControlButton final : public QAbstractButton, public Button {
    Q_OBJECT

public:
    ControlButton(std::int32_t tag, ControlKind kind, QWidget* parent = nullptr);

    [[nodiscard]] std::int32_t tag() const override { return tag_; }
    void setImage(const std::optional<std::string>& name) override;
    void setTitle(const std::string& title) override;
    [[nodiscard]] AttributedTitle attributedTitle() const override { return title_; }
    void setAttributedTitle(const AttributedTitle& title) override;
    void setNeedsDisplay() override;
    void setAction(std::function<void()> action) override;

    [[nodiscard]] ControlKind kind() const { return kind_; }
    [[nodiscard]] bool isBlackKey() const;
    [[nodiscard]] const std::optional<std::string>& image() const { return image_; }
    // What a pad shines in; black is unlit. Other controls have no light.
    void setLight(const Colour& colour);
    [[nodiscard]] const Colour& light() const { return light_; }
    // The size that a title is set in where it has the room, in device-independent pixels.
    void setLargestCaption(int pixels);
    // Everything that the control does, in words.
    void setSummary(const QString& summary);

    // Where the title stands, and how it is set there.
    [[nodiscard]] QRectF captionRoom() const;
    [[nodiscard]] CaptionSetting captionSetting() const;

signals:
    // An arrow key was pressed while the button had the keyboard: -1, 0 or 1 each way.
    void arrowPressed(int right, int down);

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    void describe();

    std::int32_t tag_;
    ControlKind kind_;
    AttributedTitle title_;
    std::optional<std::string> image_;
    Colour light_;
    QString summary_;
    int largestCaption_ = kSmallestCaption;
    std::function<void()> action_;
};

} // namespace scenewright
