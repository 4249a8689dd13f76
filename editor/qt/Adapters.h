// The smaller adapters: a pane, a segmented control, a slider, a label and a line of text; and what
// the window's widgets are to an assistive technology.
#pragma once

#include "editor/Widgets.h"

#include <QButtonGroup>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSlider>
#include <QStringList>

namespace scenewright {

// A pane: one rounded panel of settings, shown or hidden as a whole.
class PaneFrame final : public QFrame, public Pane {
    Q_OBJECT

public:
    explicit PaneFrame(QWidget* parent = nullptr);

    void setHidden(bool hidden) override;
};

// A segment: its title is whole where there is room, set in either weight, and cut short at its end
// where there is not.
class SegmentButton final : public QPushButton {
    Q_OBJECT

public:
    SegmentButton(const QString& title, QWidget* parent);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] QSize sizeAround(int width) const;
    [[nodiscard]] int textWidth() const;
};

// A segmented control: a row of buttons of which one is down.
//
// Left and Right move between the segments, Space chooses.
class SegmentBar final : public QFrame, public Segmented {
    Q_OBJECT

public:
    // As many segments as names, the first one down; a name says to a screen reader what the
    // segment is.
    explicit SegmentBar(const QStringList& names, QWidget* parent = nullptr);

    [[nodiscard]] std::int32_t selectedSegment() const override;

    // Shown as it is: "&" marks no letter.
    void setTitle(int position, const QString& title);
    [[nodiscard]] QAbstractButton& segment(int position) const;

signals:
    // The user's choice; nothing that the program does emits it.
    void chosen();

private:
    QButtonGroup group_;
};

// A slider with a tag; it carries 0 to 127.
class SliderBar final : public QSlider, public Slider {
    Q_OBJECT

public:
    explicit SliderBar(std::int32_t tag, QWidget* parent = nullptr);

    [[nodiscard]] std::int32_t tag() const override { return tag_; }
    [[nodiscard]] std::int32_t value() const override { return QSlider::value(); }
    void setValue(std::int32_t value) override;

signals:
    // The user moved it; nothing that the program does emits it.
    void moved();

private:
    std::int32_t tag_;
    bool isProgram_ = false;
};

// A label, which nobody can type into. Texts are shown as they are, never taken for markup.
class TextLabel final : public QLabel, public TextField {
    Q_OBJECT

public:
    explicit TextLabel(QWidget* parent = nullptr);

    void setText(const std::string& text) override;
    // A label cannot be edited either way.
    void setEditable(bool editable) override;

protected:
    // What is selected is copied, whatever the window does with the keys otherwise.
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
};

// The name beside a field, or over several: a label that nothing in it can be marked of, in one
// line or in lines that it has already. It is as large as any label, and measures its text once.
class NameLabel final : public QLabel {
    Q_OBJECT

public:
    using QLabel::QLabel;

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void changeEvent(QEvent* event) override;

private:
    mutable QString measured_;
    mutable int flags_ = 0; // that it was measured with
    mutable QSize size_;    // of what was measured; empty before
};

// A line of text that can be locked.
class TextLine final : public QLineEdit, public TextField {
    Q_OBJECT

public:
    explicit TextLine(QWidget* parent = nullptr);

    // Without the zero bytes that pad a name, and readable whatever the bytes are.
    void setText(const std::string& text) override;
    void setEditable(bool editable) override;
};

// Where the toolkit's idea of the window's own widgets would mislead: segments are radio buttons, a
// notice is an alert, and the controls of the picture stand in the order of their tags, whichever
// is drawn above another. For all widgets whose faces are asked for afterwards. May be called
// again; main thread.
void installAccessibleFaces();

} // namespace scenewright
