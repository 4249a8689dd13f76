// The commands on banks that people keep in files: the File menu, and banks dropped on the window.
// None of them needs a controller or sends anything.
#pragma once

#include "app/StoredScenes.h"
#include "editor/qt/Document.h"
#include "editor/qt/MainWindow.h"
#include "editor/qt/SceneSheet.h"

#include <QAction>
#include <QFileDialog>
#include <QMenu>
#include <QObject>
#include <QStringList>

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace scenewright {

// Window, history and document outlive the commands. Main thread only.
class BankCommands final : public QObject {
    Q_OBJECT

public:
    BankCommands(MainWindow& window, StoreFiles files, History& history, Document& document);

    // Files that nothing is to be saved in, as the program writes to them.
    void setUsed(std::vector<NamedFile> files) { files_.setUsed(std::move(files)); }

    // A notice tells what was done; one of an error when a file could not be opened or written,
    // and then nothing is changed. Paths of local files.
    //
    // Of a file that holds one scene it is asked which of the four it is to be.
    void openBank(const QString& file);
    // What the program was started with: a bank, or a scene into the one that is shown.
    void openAtStart(const QString& file);
    void saveBank(const QString& file);
    // In the document's file; asks for one when there is none, and before it replaces what another
    // program has put there.
    void save();
    // Into the scene that is shown. Of a file that holds four it is asked which one.
    void openScene(const QString& file);
    void saveScene(const QString& file);
    // A page of paper each scene: as the file's name ends, or by the printer that is chosen.
    void exportSheet(const QString& file);
    void print();

protected:
    // Of the window: a file is dragged over it or dropped on it.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    using FileCommand = void (BankCommands::*)(const QString& file);
    // An entry of the menu that asks for a file.
    struct FileEntry {
        QString title;
        QKeySequence keys;
        QFileDialog::AcceptMode mode = QFileDialog::AcceptOpen;
        FileCommand command = nullptr;
        QStringList filters;  // of names, with a sentence; the first holds at first
        QStringList suffixes; // one a filter, of a name that is typed without one
        // Of a name, without its suffix; null for none.
        QString (BankCommands::*suggestion)() const = nullptr;
        const char* name = ""; // of the action, for whoever looks for it
    };
    QAction& addEntry(const QString& title, const QKeySequence& keys, const char* name);
    void addFileEntry(const FileEntry& entry);
    QMenu& addMenu(const QString& title, const QString& name);
    void askForFile(const FileEntry& entry);
    // The names in the dialog follow the form that is chosen there.
    static void followFilter(QFileDialog& dialog, const FileEntry& entry);
    [[nodiscard]] QString bankSuggestion() const;
    [[nodiscard]] QString sceneSuggestion() const;
    [[nodiscard]] SceneSheet sheet() const;
    // Asks for one of four scenes; `chosen` is told its place.
    void askForScene(const QString& question, const std::vector<std::string>& names,
                     const std::function<void(std::int32_t place)>& chosen);
    void openSceneAs(const QString& file, std::int32_t from, std::int32_t index);
    void fillRecent();
    [[nodiscard]] static QString openStep(const QString& file);
    [[nodiscard]] QString openedBank(const QString& file) const;
    [[nodiscard]] static QString openedScene(const QString& file, std::int32_t index);
    void showWritten(const Result<void>& written, const QString& done);

    MainWindow& window_;
    StoreFiles files_;
    History& history_;
    Document& document_;
    FileEntry saveAs_;
    QMenu* recent_ = nullptr; // child of the File menu
};

} // namespace scenewright
