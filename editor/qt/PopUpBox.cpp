#include "editor/qt/PopUpBox.h"

#include "editor/qt/Owned.h"
#include "editor/qt/RowDelegate.h"
#include "editor/qt/Text.h"

#include <QKeyEvent>
#include <QListView>
#include <QStyleOptionComboBox>
#include <QWheelEvent>

#include <cstdint>
#include <vector>

namespace scenewright {

namespace {

constexpr int kVisibleEntries = 20;
constexpr int kNarrowest = 72; // in device-independent pixels; the longest title may be wider

// The opened list, with the same search as the closed box.
class EntryList final : public QListView {
public:
    explicit EntryList(const PopUpBox& box, QWidget* parent) : QListView(parent), box_(box) {}

    void keyboardSearch(const QString& text) override {
        const int found = search_.type(text, box_.titles());
        if (found >= 0)
            setCurrentIndex(model()->index(found, 0));
    }

private:
    const PopUpBox& box_;
    TypedSearch search_;
};

bool isTyping(const QKeyEvent& event) {
    const bool isCommand =
        (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != 0;
    return !isCommand && !event.text().isEmpty() && event.text().front().isPrint() &&
           event.key() != Qt::Key_Space;
}

} // namespace

PopUpBox::PopUpBox(QWidget* parent) : QComboBox(parent) {
    setMaxVisibleItems(kVisibleEntries);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

// A list of entries costs more than all the rest of the box, and most boxes are never opened.
void PopUpBox::showPopup() {
    if (!hasEntryList_) {
        hasEntryList_ = true;
        setView(&owned<EntryList>(*this, this));
        view()->setTextElideMode(Qt::ElideNone);
        setItemDelegate(&owned<RowDelegate>(this));
    }
    QComboBox::showPopup();
}

void PopUpBox::removeAllItems() {
    clear();
}

void PopUpBox::addItems(const std::vector<std::string>& titles) {
    QStringList texts;
    for (const std::string& title : titles)
        texts.append(shown(title));
    QComboBox::addItems(texts);
}

void PopUpBox::selectItem(std::int32_t position) {
    setCurrentIndex(position >= 0 && position < count() ? position : -1);
}

std::int32_t PopUpBox::selectedItem() const {
    return currentIndex();
}

void PopUpBox::setEnabled(bool enabled) {
    QComboBox::setEnabled(enabled);
}

QStringList PopUpBox::titles() const {
    QStringList texts;
    for (int position = 0; position < count(); ++position)
        texts.append(itemText(position));
    return texts;
}

// The width is the layout's to give. To ask the base class would be to measure every title of every
// box, which takes longer than drawing the whole window.
QSize PopUpBox::sizeHint() const {
    QStyleOptionComboBox option;
    initStyleOption(&option);
    const QSize contents(kNarrowest, fontMetrics().height());
    return {kNarrowest,
            style()->sizeFromContents(QStyle::CT_ComboBox, &option, contents, this).height()};
}

QSize PopUpBox::minimumSizeHint() const {
    return sizeHint();
}

void PopUpBox::choose(int position) {
    if (position < 0 || position == currentIndex())
        return;
    setCurrentIndex(position);
    emit activated(position);
}

void PopUpBox::keyPressEvent(QKeyEvent* event) {
    if (isTyping(*event))
        choose(search_.type(event->text(), titles()));
    else
        QComboBox::keyPressEvent(event);
}

void PopUpBox::wheelEvent(QWheelEvent* event) {
    if (hasFocus())
        QComboBox::wheelEvent(event);
    else
        event->ignore();
}

} // namespace scenewright
