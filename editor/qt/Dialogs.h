// The dialogs: what the program is, and what differs between the controller and the window.
#pragma once

#include <QDialog>
#include <QStringList>

class QPlainTextEdit;

namespace scenewright {

// What the program is, and the versions of its parts.
class About final : public QDialog {
    Q_OBJECT

public:
    explicit About(QWidget* parent = nullptr);
};

// The whole text of a notice, which can be selected and copied.
class NoticeDetails final : public QDialog {
    Q_OBJECT

public:
    NoticeDetails(const QString& text, QWidget* parent);
};

// What differs between the controller and the window, a line each.
class DifferenceDialog final : public QDialog {
    Q_OBJECT

public:
    DifferenceDialog(const QStringList& lines, QWidget* parent);

    [[nodiscard]] QStringList lines() const;

private:
    QPlainTextEdit* text_ = nullptr;
};

} // namespace scenewright
