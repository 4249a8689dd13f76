// The guide in a window of its own: the pages among the resources, which need no network.
#pragma once

#include <QDialog>
#include <QTextBrowser>

class QLabel;
class QLineEdit;

namespace scenewright {

// The pages in the colours of the theme. What a link leads to outside them is the desktop's to
// open.
class GuidePages final : public QTextBrowser {
    Q_OBJECT

public:
    explicit GuidePages(QWidget* parent);

    // The page where the guide begins, or a sentence that there is none.
    void begin();

protected:
    void doSetSource(const QUrl& url, QTextDocument::ResourceType type) override;
    [[nodiscard]] QVariant loadResource(int type, const QUrl& name) override;
    void changeEvent(QEvent* event) override;
};

// Tab goes from link to link, Return follows one, Alt+Left goes back, Ctrl+F searches, Escape
// closes.
class GuideWindow final : public QDialog {
    Q_OBJECT

public:
    explicit GuideWindow(QWidget* parent = nullptr);

    [[nodiscard]] GuidePages& pages() { return *pages_; }
    [[nodiscard]] QLineEdit& search() { return *search_; }

private:
    void find();

    GuidePages* pages_;
    QLineEdit* search_;
    QLabel* found_;
};

} // namespace scenewright
