// What stands below the picture: the settings, and the strips that are open.
//
// The strips share one place, where the one that was opened or chosen last is seen; the names of
// the others stand beside it. In a window that is too low for both, they share the settings' place
// too, so that the picture keeps its size and nothing is scrolled.
#pragma once

#include <QButtonGroup>
#include <QFrame>
#include <QGridLayout>
#include <QPushButton>
#include <QStackedWidget>
#include <QVBoxLayout>
#include <QWidget>

#include <vector>

namespace scenewright {

// Main thread only. The strips may end before it.
class StripPlace final : public QWidget {
    Q_OBJECT

public:
    // The settings become its child. Each page is called by its accessible name.
    StripPlace(QWidget& settings, QWidget* parent);
    ~StripPlace() override;
    Q_DISABLE_COPY_MOVE(StripPlace)

    // Shows the strip, which it takes as a child the first time.
    void open(QWidget& strip);
    // Hides it; fine if it is not open.
    void close(QWidget& strip);
    // Brings the settings back where they share the place.
    void showSettings();

    // The height that a window needs to have settings and strips above one another; the picture
    // with them.
    [[nodiscard]] int heightApart() const;
    // Whether there is not as much.
    void setLow(bool isLow);

signals:
    // A strip was opened or closed.
    void changed();

private:
    struct Page {
        QWidget* page;
        QPushButton* name;
    };

    void addPage(QWidget& page);
    void forget(const QWidget* page);
    void bringUp(QWidget& page);
    void arrange();
    [[nodiscard]] int stripHeight() const;
    [[nodiscard]] bool hasStrips() const { return pages_.size() > 1; }

    bool isLow_ = false;
    std::vector<Page> pages_; // the settings, then the open strips
    QWidget* seen_;           // of these, the last that was brought up
    // Children.
    QGridLayout* grid_;
    QFrame* names_;
    QVBoxLayout* column_; // the names'
    QButtonGroup* group_; // the same
    QStackedWidget* stack_;
    QWidget* settings_;
};

} // namespace scenewright
