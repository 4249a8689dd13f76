// The menus of the main window.
#pragma once

#include <QAction>
#include <QActionGroup>
#include <QMenuBar>
#include <QStringList>

namespace scenewright {

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
    QAction* about_ = nullptr;
    QActionGroup modes_;
};

} // namespace scenewright
