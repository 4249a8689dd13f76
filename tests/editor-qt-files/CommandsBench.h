// The window with its commands, on a virtual controller that holds four default scenes, without
// the pauses of a real bus. Settings, earlier scenes and files are the bench's own.
#pragma once

#include "editor/qt/DeviceCommands.h"
#include "editor/qt/EditorCommands.h"
#include "tests/support/TempFolder.h"
#include "virtual/VirtualController.h"
#include "virtual/VirtualHost.h"

#include <QTimer>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace scenewright::testing {

class CommandsBench : public ::testing::Test {
protected:
    CommandsBench();
    ~CommandsBench() override;

    void open(std::shared_ptr<Keyboards> attached = nullptr);
    // On the keyboards that are `plugged`.
    void watch(const std::string& chosen = {});
    // As when one comes or goes.
    void look() { commands().keyboard().look(); }
    // One of the list, and one that is not in it.
    static AttachedDevice deviceAt(const std::string& port, const std::string& name = "Keys");
    static AttachedDevice strange(const std::string& port);
    void close();
    // From the next transaction on.
    void plugIn(FaultPlan faults = {}, BankFileStore keeper = BankFileStore({}));
    static void unplug();

    MainWindow& window() { return *window_; }
    EditorCommands& commands() { return *commands_; }
    [[nodiscard]] QString message() const { return window_->status().message().text(); }
    // What is shown of the notices.
    [[nodiscard]] QString notice() const { return window_->notices().text(); }
    NoticeBar& notices() { return window_->notices(); }
    [[nodiscard]] const EarlierScenes& earlier() const { return earlier_; }
    [[nodiscard]] const SendJournal& journal() const { return journal_; }
    [[nodiscard]] QString file(const char* name) const;
    // The stored record of a control, 1 to 45, of the first scene.
    static ButtonValue& record(std::int32_t control);
    ControlButton& button(std::int32_t control) { return *window_->picture().button(control); }
    void choose(std::int32_t control) { button(control).click(); }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::ControlModifier);
    void undo() { press(Qt::Key_Z); }
    void redo() { press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier); }
    QUndoStack& steps() { return commands_->history().steps(); }
    // As a user does with the mouse, in the pane that is shown.
    void pick(const char* popUp, std::int32_t value);
    // Of the first pad.
    void pickRed(std::int32_t red);
    // Sends and waits for the end.
    void send();
    void waitForSend();
    // The action of the notice with that title, and the end of what it does.
    void clickNotice(const char* title);
    // As a user does, with the keyboard on the popup and Return at the end.
    void type(const char* popUp, const QString& text);
    // Does what opens a dialog, and that in the dialog.
    template <typename Dialog>
    void inDialog(const std::function<void()>& open, const std::function<void(Dialog&)>& act) {
        bool isSeen = false;
        QTimer timer; // ends with what it speaks of
        timer.setSingleShot(true);
        QObject::connect(&timer, &QTimer::timeout, &timer, [&act, &isSeen] {
            auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
            isSeen = dialog != nullptr;
            if (isSeen)
                act(*dialog);
        });
        timer.start(0);
        open();
        EXPECT_TRUE(isSeen);
        activate();
    }
    // The widget of that type and accessible name.
    template <typename Field>
    static Field& field(QWidget& in, const QString& name) {
        for (auto* at : in.findChildren<Field*>())
            if (at->accessibleName() == name)
                return *at;
        throw std::out_of_range(name.toStdString());
    }
    // What the window has one of.
    template <typename Part>
    Part& part() {
        return *window().findChild<Part*>();
    }
    // The mark on the status line with that tool tip or description.
    QPushButton& mark(const QString& meaning);
    // Tells how much there is to check.
    QPushButton& badge() { return mark("What may not be meant in these scenes"); }
    // The first entry of the menus whose title begins so.
    QAction& entry(const QString& title);
    // What the Tab key goes to from this field on, by name.
    static QStringList tabStops(const QWidget& first);
    // A bank of four default scenes in which pad 1 of the first one has this red.
    QString bankWithRed(const char* name, std::int32_t red);
    // The window takes keys, as it does once a dialog has given way.
    void activate();
    bool waitUntil(const std::function<bool()>& condition);

    TempFolder folder;
    std::vector<AttachedDevice> plugged;
    int looks = 0; // at them
    std::shared_ptr<Keyboards> keyboards;
    std::shared_ptr<VirtualController> controller;
    std::shared_ptr<VirtualHost> host;
    // What the next window keeps its edited scenes with; null for a window that keeps none.
    std::shared_ptr<Recovery> recovery;

private:
    EarlierScenes earlier_{folder.path() / "backups"};
    SendJournal journal_{folder.path() / "sends"};
    MainLoop loop_;
    std::unique_ptr<Appearance> appearance_;
    std::unique_ptr<QuitController> quit_;
    std::unique_ptr<MainWindow> window_;
    std::unique_ptr<EditorCommands> commands_;
};

// The first of each kind.
inline constexpr std::int32_t kKnob = 5;
inline constexpr std::int32_t kSlider = 9;
inline constexpr std::int32_t kPad = 13;
inline constexpr std::int32_t kKey = 21;

// With the window open from the start.
class OpenWindow : public CommandsBench {
protected:
    OpenWindow() { open(); }
};

} // namespace scenewright::testing
