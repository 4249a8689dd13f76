#include "editor/qt/Adapters.h"

#include "editor/qt/QtHelpers.h"
#include "model/SceneValue.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QScopedValueRollback>

#include <cstdint>

namespace scenewright {

namespace {

constexpr int kHighest = 127;
constexpr int kPage = 8;

} // namespace

PaneFrame::PaneFrame(QWidget* parent) : QFrame(parent) {
    setProperty("panel", true);
    setFrameShape(QFrame::StyledPanel);
}

void PaneFrame::setHidden(bool hidden) {
    setVisible(!hidden);
}

SegmentBar::SegmentBar(const QStringList& names, QWidget* parent) : QFrame(parent) {
    setProperty("segments", true);
    setFrameShape(QFrame::StyledPanel);
    auto& row = makeChild<QHBoxLayout>(this);
    row.setContentsMargins(3, 3, 3, 3);
    row.setSpacing(2);
    for (int position = 0; position < names.size(); ++position) {
        auto& button = makeChild<QPushButton>(names[position], this);
        button.setCheckable(true);
        button.setAutoDefault(false);
        button.setProperty("segment", true);
        button.setAccessibleName(names[position]);
        group_.addButton(&button, position);
        row.addWidget(&button);
    }
    group_.setExclusive(true);
    segment(0).setChecked(true);
    connect(&group_, &QButtonGroup::idClicked, this, &SegmentBar::chosen);
}

std::int32_t SegmentBar::selectedSegment() const {
    return group_.checkedId();
}

void SegmentBar::setTitle(int position, const QString& title) {
    segment(position).setText(title);
}

QAbstractButton& SegmentBar::segment(int position) const {
    return *group_.button(position);
}

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

TextLabel::TextLabel(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
}

void TextLabel::setText(const std::string& text) {
    QLabel::setText(shown(text));
}

void TextLabel::setEditable(bool /*editable*/) {}

TextLine::TextLine(QWidget* parent) : QLineEdit(parent) {}

void TextLine::setText(const std::string& text) {
    QLineEdit::setText(shown(displayName(text)));
}

void TextLine::setEditable(bool editable) {
    setReadOnly(!editable);
}

} // namespace scenewright
