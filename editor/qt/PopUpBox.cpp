#include "editor/qt/PopUpBox.h"

#include "editor/qt/QtHelpers.h"
#include "editor/qt/Theme.h"
#include "model/TypedValue.h"

#include <QApplication>
#include <QKeyEvent>
#include <QListView>
#include <QStringListModel>
#include <QStyleOptionComboBox>
#include <QWheelEvent>

#include <algorithm>
#include <array>
#include <cstdint>
#include <utility>
#include <vector>

namespace scenewright {

namespace {

constexpr int kVisibleEntries = 20;
constexpr int kNarrowest = 72; // in device-independent pixels; the longest title may be wider

bool isPrintable(const QKeyEvent& event) {
    return !event.text().isEmpty() && event.text().front().isPrint();
}

bool isCommand(const QKeyEvent& event) {
    return (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != 0;
}

// A blank begins no text.
bool isTyping(const QKeyEvent& event, bool isGoingOn) {
    return !isCommand(event) && isPrintable(event) && (isGoingOn || event.key() != Qt::Key_Space);
}

// A key that is held for the sake of another one.
bool isModifier(const QKeyEvent& event) {
    constexpr std::array kModifiers{Qt::Key_Shift,    Qt::Key_Control, Qt::Key_Meta,   Qt::Key_Alt,
                                    Qt::Key_CapsLock, Qt::Key_AltGr,   Qt::Key_NumLock};
    return std::ranges::find(kModifiers, event.key()) != kModifiers.end();
}

// The opened list, with the same search as the closed box. As nothing is chosen by it, it goes to
// the first of several entries that begin with the text too.
class EntryList final : public QListView {
public:
    explicit EntryList(PopUpBox& box, QWidget* parent) : QListView(parent), box_(box) {}

    void keyboardSearch(const QString& text) override {
        QListView::keyboardSearch(text);
        if (const int found = search_.type(text, box_.titles(), box_.names()); found >= 0)
            setCurrentIndex(model()->index(found, 0));
    }

protected:
    void hideEvent(QHideEvent* event) override {
        search_.clear();
        QListView::hideEvent(event);
    }

    void keyPressEvent(QKeyEvent* event) override {
        if (!isPrintable(*event) && !isModifier(*event))
            search_.clear();
        if (event->key() != Qt::Key_Space)
            QListView::keyPressEvent(event);
        else if (search_.isGoingOn())
            keyboardSearch(event->text());
        else if (currentIndex().isValid())
            box_.chooseItem(currentIndex().row());
    }

    // An assistive technology selects an entry, and that is all that it can do with it: then the
    // entry is not the current one, as with keys and mouse it is a moment later.
    void selectionChanged(const QItemSelection& now, const QItemSelection& before) override {
        QListView::selectionChanged(now, before);
        QTimer::singleShot(0, this, [this] {
            const QModelIndexList rows = selectedIndexes();
            if (isVisible() && rows.size() == 1 && rows.front() != currentIndex())
                box_.chooseItem(rows.front().row());
        });
    }

private:
    PopUpBox& box_;
    TypedSearch search_;
};

bool isReturn(const QKeyEvent& event) {
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

} // namespace

// The entries of all boxes that offer these titles.
class EntryModel final : public QStringListModel {
public:
    EntryModel(const std::vector<std::string>& titles, QObject* parent)
        : QStringListModel(parent), titles_(titles) {
        QStringList entries;
        for (const std::string& title : titles)
            entries.append(shown(title));
        setStringList(entries);
    }

    [[nodiscard]] const std::vector<std::string>& titles() const { return titles_; }

    // Many boxes offer the same 128 entries: the application owns one model for each list of them.
    [[nodiscard]] static EntryModel& of(const std::vector<std::string>& titles) {
        for (QObject* const child : qApp->children())
            if (auto* const made = dynamic_cast<EntryModel*>(child))
                if (made->titles() == titles)
                    return *made;
        return makeChild<EntryModel>(titles, qApp);
    }

private:
    std::vector<std::string> titles_;
};

int findTyped(const QStringList& entries, const QString& typed, EntryNames names) {
    std::vector<std::string> titles;
    for (const QString& entry : entries)
        titles.push_back(entry.toStdString());
    return typedPosition(typed.toStdString(), titles, names).value_or(-1);
}

std::chrono::milliseconds TypedSearch::pause() {
    return std::chrono::milliseconds(QApplication::keyboardInputInterval());
}

int TypedSearch::type(const QString& text, const QStringList& entries, EntryNames names,
                      Clock::time_point now) {
    if (!isGoingOn(now))
        typed_.clear();
    last_ = now;
    typed_ += text;
    return findTyped(entries, typed_, names);
}

QSize RowDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    const QSize size = QStyledItemDelegate::sizeHint(option, index);
    return {size.width(), option.fontMetrics.height() + kAroundRow};
}

PopUpBox::PopUpBox(QWidget* parent) : QComboBox(parent) {
    setMaxVisibleItems(kVisibleEntries);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    pause_.setSingleShot(true);
    connect(&pause_, &QTimer::timeout, this, &PopUpBox::finishTyping);
}

// A list of entries costs more than all the rest of the box, and most boxes are never opened.
void PopUpBox::showPopup() {
    finishTyping();
    if (!hasEntryList_) {
        hasEntryList_ = true;
        setView(&makeChild<EntryList>(*this, this));
        giveSheet(*view(), Sheet::Entries);
        view()->setTextElideMode(Qt::ElideNone);
        setItemDelegate(&makeChild<RowDelegate>(this));
    }
    QComboBox::showPopup();
}

void PopUpBox::removeAllItems() {
    forgetTyping();
    if (entries_ != nullptr)
        offer(EntryModel::of({}));
}

void PopUpBox::addItems(const std::vector<std::string>& titles) {
    std::vector<std::string> all = entries_ != nullptr ? entries_->titles() : decltype(all)();
    all.insert(all.end(), titles.begin(), titles.end());
    offer(EntryModel::of(all));
}

// To give a box its model, or another one, is the most of what it costs, and most boxes of a window
// are on panes that are not seen at its start.
void PopUpBox::offer(EntryModel& entries) {
    entries_ = &entries;
    if (wasShown_)
        setModel(&entries);
    else
        unseen_ = entries.rowCount() > 0 ? 0 : -1;
}

void PopUpBox::selectItem(std::int32_t position) {
    forgetTyping();
    const bool isOffered = entries_ != nullptr && position >= 0 && position < entries_->rowCount();
    select(isOffered ? position : -1);
}

void PopUpBox::select(int position) {
    unseen_ = position;
    if (wasShown_)
        setCurrentIndex(position);
}

std::int32_t PopUpBox::selectedItem() const {
    return wasShown_ ? currentIndex() : unseen_;
}

void PopUpBox::setEnabled(bool enabled) {
    QComboBox::setEnabled(enabled);
}

QStringList PopUpBox::titles() const {
    return entries_ != nullptr ? entries_->stringList() : QStringList();
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

void PopUpBox::type(const QString& text) {
    found_ = search_.type(text, titles(), names_);
    chosen_ = chosen_.value_or(currentIndex());
    setCurrentIndex(found_ >= 0 ? found_ : *chosen_); // "Db" is no entry, but "Db2" is
    pause_.start(TypedSearch::pause());
}

void PopUpBox::finishTyping() {
    const int found = found_;
    forgetTyping();
    if (found >= 0)
        emit activated(found);
}

void PopUpBox::chooseItem(int position) {
    hidePopup();
    select(position);
    emit activated(position);
}

void PopUpBox::cancelTyping() {
    const std::optional<int> before = chosen_;
    forgetTyping();
    if (before)
        setCurrentIndex(*before);
}

void PopUpBox::forgetTyping() {
    pause_.stop();
    search_.clear();
    chosen_.reset();
    found_ = -1;
}

bool PopUpBox::event(QEvent* event) {
    // Before a shortcut is carried out, which may send what was typed or show another control; and
    // before Escape goes to a shortcut.
    if (event->type() == QEvent::ShortcutOverride && chosen_) {
        const auto* key = static_cast<QKeyEvent*>(event);
        if (isCommand(*key) && !isModifier(*key))
            finishTyping();
        else if (key->key() == Qt::Key_Escape)
            event->accept();
    }
    return QComboBox::event(event);
}

void PopUpBox::keyPressEvent(QKeyEvent* event) {
    if (isTyping(*event, chosen_.has_value())) {
        type(event->text());
    } else if (chosen_ && event->key() == Qt::Key_Escape) {
        cancelTyping();
    } else if (chosen_ && isReturn(*event)) {
        finishTyping();
    } else if (isCommand(*event) && isPrintable(*event)) {
        event->ignore(); // the base class would search for the letter
    } else {
        if (!isModifier(*event))
            finishTyping();
        QComboBox::keyPressEvent(event);
    }
}

void PopUpBox::wheelEvent(QWheelEvent* event) {
    if (!hasFocus()) {
        event->ignore();
        return;
    }
    finishTyping();
    QComboBox::wheelEvent(event);
}

void PopUpBox::focusOutEvent(QFocusEvent* event) {
    finishTyping();
    QComboBox::focusOutEvent(event);
}

void PopUpBox::showEvent(QShowEvent* event) {
    if (!std::exchange(wasShown_, true) && entries_ != nullptr) {
        const QSignalBlocker guard(this); // nothing is other than it was
        setModel(entries_);
        setCurrentIndex(unseen_);
    }
    QComboBox::showEvent(event);
}

// Another control may be shown by now: what was typed was not for it.
void PopUpBox::hideEvent(QHideEvent* event) {
    cancelTyping();
    QComboBox::hideEvent(event);
}

} // namespace scenewright
