// The small dialogs: what the program is, and the whole text of a notice.
#pragma once

#include <QDialog>

namespace scenewright {

// What the program is, its licence, and the libraries in it.
class About final : public QDialog {
    Q_OBJECT

public:
    explicit About(QWidget* parent = nullptr);
};

// The whole text of a notice, which can be selected and copied.
class NoticeDetails final : public QDialog {
    Q_OBJECT

public:
    NoticeDetails(const QString& text, QWidget* parent);
};

} // namespace scenewright
