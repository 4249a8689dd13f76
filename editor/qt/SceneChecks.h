// What a player may not have meant in the scenes: how much of it there is, on the status line, and
// a list of it, whose rows choose their controls.
#pragma once

#include "app/StoredScenes.h"
#include "editor/qt/Document.h"
#include "editor/qt/MainWindow.h"

#include <QDialog>
#include <QListWidget>
#include <QObject>
#include <QPushButton>
#include <QTimer>

#include <vector>

namespace scenewright {

// Window and history outlive it. Main thread only.
class SceneChecks final : public QObject {
    Q_OBJECT

public:
    SceneChecks(MainWindow& window, History& history);

    // Hidden while there is nothing to tell.
    [[nodiscard]] QPushButton& badge() { return *badge_; }
    // Null until it was shown once.
    [[nodiscard]] QListWidget* list() { return list_; }

private:
    void look();
    void fill();
    void showList();
    void choose(int row);
    [[nodiscard]] static QString textOf(const Finding& finding);

    MainWindow& window_;
    QTimer pause_; // many changes that follow each other are looked at once
    std::vector<Finding> findings_;
    QPushButton* badge_; // children of the status line and the window
    QDialog* dialog_ = nullptr;
    QListWidget* list_ = nullptr;
};

} // namespace scenewright
