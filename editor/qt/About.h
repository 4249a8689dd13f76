// What the program is, and the versions of its parts.
#pragma once

#include <QDialog>

namespace scenewright {

class About final : public QDialog {
    Q_OBJECT

public:
    explicit About(QWidget* parent = nullptr);
};

} // namespace scenewright
