// The main window: it lays the widgets out, gives them to the view logic, and passes the user's
// choices on.
#pragma once

#include "editor/ViewController.h"
#include "editor/WindowControllers.h"
#include "editor/qt/Adapters.h"
#include "editor/qt/ControlChoice.h"
#include "editor/qt/DeviceCommands.h"
#include "editor/qt/DevicePicture.h"
#include "editor/qt/Dialogs.h"
#include "editor/qt/NoticeBar.h"
#include "editor/qt/QtHelpers.h"
#include "editor/qt/Theme.h"
#include "editor/qt/ValuePanes.h"
#include "model/SceneValue.h"

#include <QAction>
#include <QActionGroup>
#include <QMainWindow>
#include <QMenuBar>
#include <QPointer>
#include <QPushButton>
#include <QStringList>

#include <array>
#include <functional>

class QHBoxLayout;

namespace scenewright {

class StripPlace;
class UnsentButton;

// What the menu bar offers; who owns the window connects the actions. All are the bar's children.
class MainMenu final : public QObject {
    Q_OBJECT

public:
    explicit MainMenu(QMenuBar& bar);

    // The display modes, once their titles are known.
    void setModes(const QStringList& titles);
    void checkMode(int mode);

    [[nodiscard]] QAction& quit() { return *quit_; }
    [[nodiscard]] QAction& read() { return *read_; }
    [[nodiscard]] QAction& send() { return *send_; }
    [[nodiscard]] QAction& gainPanel() { return *gainPanel_; }
    [[nodiscard]] QAction& previousControl() { return *previousControl_; }
    [[nodiscard]] QAction& nextControl() { return *nextControl_; }
    [[nodiscard]] QAction& guide() { return *guide_; }
    [[nodiscard]] QAction& whatsThis() { return *whatsThis_; }
    [[nodiscard]] QAction& about() { return *about_; }
    [[nodiscard]] QMenu& file() { return *file_; }
    [[nodiscard]] QMenu& device() { return *device_; }
    [[nodiscard]] QMenu& view() { return *view_; }

signals:
    void modeChosen(int mode);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QMenu* file_ = nullptr;
    QMenu* device_ = nullptr;
    QMenu* view_ = nullptr;
    QAction* quit_ = nullptr;
    QAction* read_ = nullptr;
    QAction* send_ = nullptr;
    QAction* gainPanel_ = nullptr;
    QAction* previousControl_ = nullptr;
    QAction* nextControl_ = nullptr;
    QAction* guide_ = nullptr;
    QAction* whatsThis_ = nullptr;
    QAction* about_ = nullptr;
    QActionGroup modes_;
};

// The close button of the window's frame.
class CloseButton final : public Clickable {
public:
    void setAction(std::function<void()> action) override { action_ = std::move(action); }
    void click() {
        if (action_)
            action_();
    }

private:
    std::function<void()> action_;
};

class MainWindow final : public QMainWindow, public Window {
    Q_OBJECT

public:
    // `application` ends when the user wants it; `appearance` and `application` outlive the window.
    // Scenes and progress record are the process's own.
    MainWindow(QuitController& application, Appearance& appearance, bool isVirtual);
    ~MainWindow() override;
    Q_DISABLE_COPY_MOVE(MainWindow)

    [[nodiscard]] Clickable& standardCloseButton() override { return closeButton_; }

    [[nodiscard]] ViewController& view() { return view_; }
    [[nodiscard]] SegmentBar& scenes() { return *scenes_; }
    [[nodiscard]] PopUpBox& displayModes() { return *displayModes_; }
    [[nodiscard]] ControlList& list() { return *list_; }
    [[nodiscard]] DevicePicture& picture() { return *picture_; }
    [[nodiscard]] ValuePanes& panes() { return *panes_; }
    [[nodiscard]] StripPlace& strips() { return *strips_; }
    // Of one control or several.
    [[nodiscard]] ControlChoice& choice() { return *choice_; }
    [[nodiscard]] StatusLine& status() { return *status_; }
    [[nodiscard]] MainMenu& menu() { return *menu_; }
    [[nodiscard]] NoticeBar& notices() { return *notices_; }
    [[nodiscard]] DeviceCommands& commands() { return commands_; }
    [[nodiscard]] QPushButton& readButton() { return *readButton_; }
    [[nodiscard]] QPushButton& sendButton() { return *sendButton_; }
    [[nodiscard]] UnsentButton& unsentButton() { return *unsentButton_; }
    // The scenes that are not what the keyboard holds have a dot.
    using SceneMarks = std::array<bool, kSceneCount>;
    void setSceneMarks(const SceneMarks& marks);
    // The gain panel or the guide, made when it is first wanted.
    template <typename Made>
    [[nodiscard]] Made& subWindow() {
        auto* const made = findChild<Made*>();
        return made != nullptr ? *made : makeChild<Made>(this);
    }
    // Shows the chosen scene from its scene-wide settings, after all scenes were replaced.
    void showScenesAnew();
    // Chooses a control, 0 to 45, of a scene, 0 to 3, as if the user had, and shows its settings as
    // they are now.
    void showControl(std::int32_t scene, std::int32_t control);
    // A value that is being typed is chosen, as if the keyboard left its field.
    void finishTyping();

signals:
    // After each change of the view: what the view logic does not know of has followed it.
    void refreshed();

protected:
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void layOut();
    QWidget& makeRoot();
    void layOutHeader(QHBoxLayout& header, QWidget& root);
    // Whether the window is too low for settings and strips above one another.
    void fitStrips();
    void connectOutlets();
    void connectChoices();
    void connectCommands();
    void connectQuit();
    void addSceneKeys();
    void addAppearanceMenu();
    void showBusy(bool isBusy);
    void chooseMode(int mode);
    // Chooses the control that is so many rows below the one that the list stands on.
    void chooseBeside(std::int32_t rows);
    // Brings everything up to date that the view logic does not know of.
    void refresh();
    void refreshSceneTitles();

    QuitController& application_;
    Appearance& appearance_;
    ViewController view_;
    CloseButton closeButton_;
    MainWindowController windowController_;
    DeviceCommands commands_;
    // Children of the window.
    SegmentBar* scenes_ = nullptr;
    PopUpBox* displayModes_ = nullptr;
    QPushButton* readButton_ = nullptr;
    QPushButton* sendButton_ = nullptr;
    UnsentButton* unsentButton_ = nullptr;
    SceneMarks sceneMarks_{};
    ControlList* list_ = nullptr;
    DevicePicture* picture_ = nullptr;
    ValuePanes* panes_ = nullptr;
    ControlChoice* choice_ = nullptr;
    StatusLine* status_ = nullptr;
    MainMenu* menu_ = nullptr;
    NoticeBar* notices_ = nullptr;
    StripPlace* strips_ = nullptr;
    QPointer<QWidget> former_; // had the keyboard before a send greyed it
};

} // namespace scenewright
