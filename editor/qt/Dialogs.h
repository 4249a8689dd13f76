// The small windows, which are what the program is, the whole text of a notice, the gain panel and
// the guide; and what dialogs with a table and a row of buttons have in common.
#pragma once

#include "editor/WindowControllers.h"
#include "editor/qt/Adapters.h"

#include <QDialog>
#include <QStringList>
#include <QTextBrowser>

#include <array>
#include <span>

class QGridLayout;
class QHBoxLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QTreeWidget;
class QVBoxLayout;

namespace scenewright {

// Gives a dialog its title, which is its accessible name too, and the column of its parts.
QVBoxLayout& layOutDialog(QDialog& dialog, const QString& title);

// A table whose rows are chosen whole.
void layOutTable(QTreeWidget& table, const QString& name, const QStringList& columns);

// Makes each column as wide as its texts; `widest`, in device-independent pixels, is for all but
// the last.
void fitColumns(QTreeWidget& table, int widest = QWIDGETSIZE_MAX);

// A row of buttons in a dialog's column, and a button at its end. `title` marks a letter.
QHBoxLayout& addRow(QDialog& dialog, QVBoxLayout& column, const QString& name);
QPushButton& addRowButton(QHBoxLayout& row, const QString& title, const QString& help);

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

// The pages in the colours of the theme. What a link leads to outside them is the desktop's to
// open.
class GuidePages final : public QTextBrowser {
    Q_OBJECT

public:
    explicit GuidePages(QWidget* parent);

    // The page where the guide begins, or a sentence that there is none.
    void begin();

protected:
    void doSetSource(const QUrl& url, QTextDocument::ResourceType type) override;
    [[nodiscard]] QVariant loadResource(int type, const QUrl& name) override;
    void changeEvent(QEvent* event) override;
};

// The guide: the pages among the resources, which need no network.
//
// Tab goes from link to link, Return follows one, Alt+Left goes back, Ctrl+F searches, Escape
// closes.
class GuideWindow final : public QDialog {
    Q_OBJECT

public:
    explicit GuideWindow(QWidget* parent = nullptr);

    [[nodiscard]] GuidePages& pages() { return *pages_; }
    [[nodiscard]] QLineEdit& search() { return *search_; }

private:
    void find();

    GuidePages* pages_;
    QLineEdit* search_;
    QLabel* found_;
};

} // namespace scenewright
