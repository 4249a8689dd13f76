// A small turning mark, shown while something runs.
#pragma once

#include <QTimer>
#include <QWidget>

namespace scenewright {

class BusyMark final : public QWidget {
    Q_OBJECT

public:
    explicit BusyMark(QWidget* parent = nullptr);

    void setBusy(bool isBusy);

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QTimer clock_;
    int turn_ = 0; // in steps of kStep degrees
};

} // namespace scenewright
