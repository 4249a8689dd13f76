// A window without anything in it: what the toolkit alone takes to open one.
#include <QApplication>
#include <QWidget>

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    QWidget window;
    window.show();
    return QApplication::exec();
}
