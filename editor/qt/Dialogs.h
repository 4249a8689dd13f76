// The small dialogs, what the program is and the whole text of a notice; and what dialogs with a
// table and a row of buttons have in common.
#pragma once

#include <QDialog>
#include <QStringList>

class QPushButton;
class QTreeWidget;

namespace scenewright {

// A table whose rows are chosen whole.
void layOutTable(QTreeWidget& table, const QString& name, const QStringList& columns);

// A button at the end of a row, which has a layout; the row's child. `title` marks a letter.
QPushButton& addRowButton(QWidget& row, const QString& title, const QString& help);

// What the program is, its licence, and the libraries in it.
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

} // namespace scenewright
