// The small dialogs, which are what the program is, the whole text of a notice and the gain panel;
// and what dialogs with a table and a row of buttons have in common.
#pragma once

#include "editor/WindowControllers.h"
#include "editor/qt/Adapters.h"

#include <QDialog>
#include <QStringList>

#include <array>
#include <span>

class QPushButton;
class QTreeWidget;
class QGridLayout;
class QVBoxLayout;

namespace scenewright {

// A table whose rows are chosen whole.
void layOutTable(QTreeWidget& table, const QString& name, const QStringList& columns);

// Makes each column as wide as its texts; `widest`, in device-independent pixels, is for all but
// the last.
void fitColumns(QTreeWidget& table, int widest = QWIDGETSIZE_MAX);

// A button at the end of a row, which has a layout; the row's child. `title` marks a letter.
QPushButton& addRowButton(QWidget& row, const QString& title, const QString& help);

// The foot of a dialog that is accepted or not: its last stops of the Tab key. The titles mark
// letters; gives the button that accepts, the default one.
QPushButton& addAnswers(QDialog& dialog, QVBoxLayout& column, const QString& cancel,
                        const QString& accept);

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

class GainWindow final : public QDialog {
    Q_OBJECT

public:
    explicit GainWindow(QWidget* parent = nullptr);

    [[nodiscard]] GainController& controller() { return controller_; }

    static constexpr std::int32_t kGains = 8;

private:
    void makeGain(QGridLayout& grid, std::int32_t tag);
    void makeButtons(QGridLayout& grid);

    GainController controller_;
};

// The program's licence, and the libraries that it was built with.
struct Library {
    const char* name;
    const char* version;
    const char* licence;
};

[[nodiscard]] std::span<const Library> libraries();
[[nodiscard]] const char* licenceText();

} // namespace scenewright
