// drag-source FILE: a window of one colour, from which FILE is dragged as a file manager does.
#include <QApplication>
#include <QDrag>
#include <QMimeData>
#include <QMouseEvent>
#include <QUrl>
#include <QWidget>

#include <memory>

namespace {

class Source final : public QWidget {
public:
    explicit Source(const QString& file) : file_(file) {
        setFixedSize(120, 120);
        setStyleSheet(QStringLiteral("background: #ff00fe"));
        setAttribute(Qt::WA_StyledBackground);
    }

protected:
    void mouseMoveEvent(QMouseEvent* /*event*/) override {
        auto dragged = std::make_unique<QMimeData>();
        dragged->setUrls({QUrl::fromLocalFile(file_)});
        // The toolkit owns a drag and its data, and deletes both when it is over.
        auto drag = std::make_unique<QDrag>(this);
        drag->setMimeData(dragged.release());
        drag.release()->exec(Qt::CopyAction);
    }

private:
    QString file_;
};

} // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    Source source(QApplication::arguments().value(1));
    source.show();
    return QApplication::exec();
}
