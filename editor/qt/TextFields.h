// Text fields: a label, which nobody can type into, and a line that can be locked.
#pragma once

#include "editor/widgets/Widgets.h"

#include <QLabel>
#include <QLineEdit>

namespace scenewright {

// Texts are shown as they are, never taken for markup.
class TextLabel final : public QLabel, public TextField {
    Q_OBJECT

public:
    explicit TextLabel(QWidget* parent = nullptr);

    void setText(const std::string& text) override;
    // A label cannot be edited either way.
    void setEditable(bool editable) override;
};

class TextLine final : public QLineEdit, public TextField {
    Q_OBJECT

public:
    explicit TextLine(QWidget* parent = nullptr);

    // Without the zero bytes that pad a name, and readable whatever the bytes are.
    void setText(const std::string& text) override;
    void setEditable(bool editable) override;
};

} // namespace scenewright
