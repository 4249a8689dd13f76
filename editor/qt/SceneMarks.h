// What the window tells of its scenes beside their values: what is not sent, and what a player may
// not have meant. Main thread only.
#pragma once

#include "app/DeviceSession.h"
#include "app/StoredScenes.h"
#include "editor/qt/DeviceVerification.h"
#include "editor/qt/Document.h"
#include "editor/qt/MainWindow.h"

#include <QAction>
#include <QDialog>
#include <QListWidget>
#include <QObject>
#include <QPushButton>
#include <QTimer>

#include <cstddef>
#include <vector>

namespace scenewright {

// "3 changes not sent". It keeps its room while it is hidden, so that nothing moves, and has only
// the number where there is no room for more.
class UnsentButton final : public QPushButton {
    Q_OBJECT

public:
    explicit UnsentButton(QWidget* parent);

    // Hidden for 0.
    void setCount(std::size_t count);
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    [[nodiscard]] static QString sentence(std::size_t count);
    [[nodiscard]] QSize sizeOf(const QString& text) const;
    void showText();

    std::size_t count_ = 0;
};

// The difference between the window's scenes and those that the keyboard is known to hold: a dot on
// each scene that differs, how many changes are not sent, and, if wanted, a dot on each control of
// the picture. Nothing of it is seen while it is not known what the keyboard holds. Window, history
// and verification outlive it.
class ChangeMarks final : public QObject {
    Q_OBJECT

public:
    ChangeMarks(MainWindow& window, History& history, DeviceVerification& verification);

private:
    // Finds the differences anew, and shows them.
    void follow();
    void showOnPicture();

    MainWindow& window_;
    std::vector<Difference> unsent_; // the keyboard's values first
    // Child of the View menu; whether the picture shows which controls differ.
    QAction* picture_ = nullptr;
    KnownKeyboard::Subscription keyboard_;
};

// What may not be meant: how much of it there is, on the status line, and a list of it, whose rows
// choose their controls. Window and history outlive it.
class SceneChecks final : public QObject {
    Q_OBJECT

public:
    SceneChecks(MainWindow& window, History& history);

    // Hidden while there is nothing to tell.

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
