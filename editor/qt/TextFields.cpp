#include "editor/qt/TextFields.h"

#include "editor/qt/Text.h"
#include "model/SceneName.h"

namespace scenewright {

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
