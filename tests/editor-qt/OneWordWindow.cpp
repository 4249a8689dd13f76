// A window as large as the editor's with one word in it: what the toolkit alone takes to open one
// and to draw a letter.
#include "editor/qt/QtHelpers.h"

#include <QApplication>
#include <QLabel>
#include <QMainWindow>

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    QMainWindow window;
    window.setCentralWidget(&scenewright::makeChild<QLabel>(QStringLiteral("Ready"), &window));
    window.resize(1180, 720);
    window.show();
    return QApplication::exec();
}
