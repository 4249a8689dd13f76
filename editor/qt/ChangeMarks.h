// What the window shows of the difference between its scenes and those that the keyboard is known
// to hold: a dot on each scene that differs, how many changes are not sent, and, if wanted, a dot
// on each control of the picture. Nothing of it is seen while it is not known what the keyboard
// holds.
#pragma once

#include "app/DeviceSession.h"
#include "app/KnownKeyboard.h"
#include "editor/qt/DeviceVerification.h"
#include "editor/qt/Document.h"
#include "editor/qt/MainWindow.h"

#include <QAction>
#include <QObject>
#include <QPushButton>

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

// Window, history and verification outlive it. Main thread only.
class ChangeMarks final : public QObject {
    Q_OBJECT

public:
    ChangeMarks(MainWindow& window, History& history, DeviceVerification& verification);

    // Whether the picture shows which controls differ.
    [[nodiscard]] QAction& pictureAction() { return *picture_; }

private:
    // Finds the differences anew, and shows them.
    void follow();
    void showOnPicture();

    MainWindow& window_;
    std::vector<Difference> unsent_; // the keyboard's values first
    QAction* picture_ = nullptr;     // child of the View menu
    KnownKeyboard::Subscription keyboard_;
};

} // namespace scenewright
