// What differs between the keyboard and the window, a row each.
#pragma once

#include "app/DeviceSession.h"

#include <QDialog>
#include <QStringList>

#include <cstdint>
#include <vector>

class QAbstractButton;
class QLabel;
class QTreeWidget;

namespace scenewright {

// A table of control, setting, and the two values. The row that the keyboard or the pointer chooses
// is told, so that its control can be shown. Rows can be taken over from the keyboard, some or all,
// and copied as text; whoever opens the dialog carries out what it tells.
class DifferenceDialog final : public QDialog {
    Q_OBJECT

public:
    // The keyboard's values first.
    DifferenceDialog(std::vector<Difference> differences, QWidget* parent);

    // The rows in words: "Scene 1, Pad 3, Red: 12 -> 99".
    [[nodiscard]] QStringList lines() const;
    [[nodiscard]] QTreeWidget& table() { return *table_; }

signals:
    // A row was chosen: its scene, 0 to 3, and its control, 0 to 45.
    void chosen(std::int32_t scene, std::int32_t control);
    // The keyboard's values are wanted in the window. The rows are gone when this is told.
    void takeWanted(const std::vector<scenewright::Difference>& differences);
    // The window's scenes are to be sent. The dialog is closed when this is told.
    void sendWanted();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void fill();
    void addButtons(QWidget& row);
    // Those that are selected, or all when none is.
    [[nodiscard]] std::vector<std::size_t> wanted() const;
    void take();
    void copy() const;
    void tellChosen();
    void showCount();

    std::vector<Difference> differences_; // as the rows of the table
    // Children of the dialog.
    QLabel* count_;
    QTreeWidget* table_;
    QAbstractButton* take_ = nullptr;
};

} // namespace scenewright
