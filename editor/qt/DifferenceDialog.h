// What differs between the controller and the window, a line each.
#pragma once

#include <QDialog>
#include <QStringList>

class QPlainTextEdit;

namespace scenewright {

class DifferenceDialog final : public QDialog {
    Q_OBJECT

public:
    DifferenceDialog(const QStringList& lines, QWidget* parent);

    [[nodiscard]] QStringList lines() const;

private:
    QPlainTextEdit* text_ = nullptr;
};

} // namespace scenewright
