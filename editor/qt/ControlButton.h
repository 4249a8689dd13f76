// One control of the device picture: a push button in the shape of what it stands for.
//
// A change of what it shows is drawn when the program is done with its changes, and only if the
// button then looks other than before: the view logic writes every title anew, and gives it its
// colour back, whenever one setting has changed.
#pragma once

#include "editor/Widgets.h"
#include "editor/qt/ControlShape.h"
#include "model/SceneValue.h"

#include <QAbstractButton>

#include <optional>
#include <string>

namespace scenewright {

// It takes the keyboard by a click; a picture makes one of its buttons a stop of the Tab key.
class ControlButton final : public QAbstractButton, public Button {
    Q_OBJECT

public:
    ControlButton(std::int32_t tag, ControlKind kind, QWidget* parent = nullptr);

    [[nodiscard]] std::int32_t tag() const override { return tag_; }
    void setImage(const std::optional<std::string>& name) override;
    void setTitle(const std::string& title) override;
    [[nodiscard]] AttributedTitle attributedTitle() const override { return look_.title; }
    void setAttributedTitle(const AttributedTitle& title) override;
    void setNeedsDisplay() override;
    void setAction(std::function<void()> action) override;
    // Those that are held in the click whose action is carried out; none for one that the program
    // makes.
    [[nodiscard]] Qt::KeyboardModifiers modifiers() const { return modifiers_; }
    // A click while they are held.
    void clickWith(Qt::KeyboardModifiers modifiers);

    [[nodiscard]] ControlKind kind() const { return kind_; }
    [[nodiscard]] bool isBlackKey() const;
    [[nodiscard]] const std::optional<std::string>& image() const { return look_.image; }
    // What a pad shines in; black is unlit. Other controls have no light.
    void setLight(const Colour& colour);
    [[nodiscard]] const Colour& light() const { return look_.light; }
    // What is done with it on the keyboard: whether it was just touched, and where a knob or slider
    // stands, from 0 (left, down) to 1.
    void setPlayed(bool isPlayed);
    [[nodiscard]] bool isPlayed() const { return look_.isPlayed; }
    void setTravel(qreal travel);
    [[nodiscard]] std::optional<qreal> travel() const { return look_.travel; }
    // Whether it is one of several that are chosen beside the one that has the image.
    void setTaken(bool isTaken);
    [[nodiscard]] bool isTaken() const { return look_.isTaken; }
    [[nodiscard]] bool isChosen() const { return look_.image || look_.isTaken; }
    // A dot says that something of the control is to be looked at.
    void setMarked(bool isMarked);
    [[nodiscard]] bool isMarked() const { return look_.isMarked; }
    // The size that a title is set in where it has the room, in device-independent pixels.
    void setLargestCaption(int pixels);
    // While it plays, a click calls no action, and a knob or slider is turned by dragging and by
    // the wheel.
    void setPlays(bool plays) { plays_ = plays; }
    [[nodiscard]] bool plays() const { return plays_; }
    // Everything that the control does, in words.
    void setSummary(const QString& summary);

    // Where the title stands, and how it is set there.
    [[nodiscard]] QRectF captionRect() const;
    [[nodiscard]] CaptionSetting captionSetting() const;
    // What its text takes of the button.
    [[nodiscard]] QRect captionBox() const;

signals:
    // An arrow key was pressed while the button had the keyboard: -1, 0 or 1 each way.
    void arrowPressed(int right, int down, Qt::KeyboardModifiers modifiers);
    // By this share of its travel, upwards or to the right.
    void turned(qreal share);

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    // What the program decides of how the button looks.
    struct Look {
        AttributedTitle title;
        std::optional<std::string> image;
        Colour light;
        bool isMarked = false;
        bool isTaken = false;
        int largestCaption = kSmallestCaption;
        bool isPlayed = false;
        std::optional<qreal> travel{};
        friend bool operator==(const Look&, const Look&) = default;
    };

    [[nodiscard]] bool isTurned() const;
    [[nodiscard]] QRectF captionRoom() const;
    void drawBody(QPainter& painter) const;
    void drawFocus(QPainter& painter) const;
    void drawDot(QPainter& painter) const;
    void describe();
    void drawLater();
    void drawIfChanged();

    std::int32_t tag_;
    ControlKind kind_;
    Look look_;
    Look drawn_; // what the last update was asked for
    bool willDraw_ = false;
    bool isToldChosen_ = false; // to an assistive technology
    bool plays_ = false;
    qreal draggedTo_ = 0; // from the upper edge
    Qt::KeyboardModifiers modifiers_;
    QString summary_;
    std::function<void()> action_;
};

} // namespace scenewright
