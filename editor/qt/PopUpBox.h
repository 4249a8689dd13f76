// A popup as a combo box: 20 entries visible, typing finds an entry, and the wheel turns it only
// while it has the keyboard.
#pragma once

#include "editor/qt/TypedSearch.h"
#include "editor/widgets/Widgets.h"

#include <QComboBox>

namespace scenewright {

// `activated` is the user's choice; nothing that the program does emits it.
class PopUpBox final : public QComboBox, public PopUp {
    Q_OBJECT

public:
    explicit PopUpBox(QWidget* parent = nullptr);

    void removeAllItems() override;
    void addItems(const std::vector<std::string>& titles) override;
    void selectItem(std::int32_t position) override;
    [[nodiscard]] std::int32_t selectedItem() const override;
    void setEnabled(bool enabled) override;

    [[nodiscard]] QStringList titles() const;
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;
    void showPopup() override;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void choose(int position);

    TypedSearch search_;
    bool hasEntryList_ = false;
};

} // namespace scenewright
