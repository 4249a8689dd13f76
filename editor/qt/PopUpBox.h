// A popup: a box, the rows of its list, and finding an entry by typing it.
#pragma once

#include "editor/Widgets.h"

#include <QComboBox>
#include <QString>
#include <QStringList>
#include <QStyledItemDelegate>
#include <QTimer>

#include <chrono>
#include <optional>
#include <span>
#include <string_view>

namespace scenewright {

// The entry that `typed` means by the rules of model/TypedValue.h; -1 for none, and for several.
// "1" is 1 and not 10, "db2" is C#2; "c" is nothing yet where there are several octaves. `names`
// are what the entries are called beside their titles, in their order, empty where one has none:
// "sustain" is 64.
using EntryNames = std::span<const std::string_view>;
[[nodiscard]] int findTyped(const QStringList& entries, const QString& typed,
                            EntryNames names = {});

// Gathers keystrokes: those between which no more than the toolkit's keyboard input interval goes
// by make one text.
class TypedSearch {
public:
    using Clock = std::chrono::steady_clock;

    [[nodiscard]] static std::chrono::milliseconds pause();

    // Adds `text`; -1 when the whole means nothing, or nothing yet.
    [[nodiscard]] int type(const QString& text, const QStringList& entries, EntryNames names = {},
                           Clock::time_point now = Clock::now());
    // Whether the next keystroke belongs to the text.
    [[nodiscard]] bool isGoingOn(Clock::time_point now = Clock::now()) const {
        return !typed_.isEmpty() && now - last_ <= pause();
    }
    // The next keystroke begins anew.
    void clear() { typed_.clear(); }

private:
    QString typed_;
    Clock::time_point last_;
};

class EntryModel;

// Above and below the text of a row together, in device-independent pixels.
inline constexpr int kAroundRow = 9;

// Rows of a list with room around their text.
class RowDelegate final : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const override;
};

// A popup as a combo box: 20 entries visible, typing finds an entry, and the wheel turns it only
// while it has the keyboard.
//
// While a text is typed into the closed box, the entry that it means is shown and not yet chosen.
// It is chosen, with one action, by a pause of the toolkit's keyboard input interval, by Return, by
// any other key or click that the box takes, by a key with Ctrl, Alt or Meta, and when the keyboard
// leaves the box. A text that means no entry, or several, shows what was chosen before, and writes
// nothing if it stays so. Escape shows it again too; so does what the program does to the box,
// which then stands. A blank belongs to a text that is being typed; else it opens the list, and in
// there chooses.
// `activated` is the user's choice, also of what was chosen before, as others may be chosen beside;
// nothing that the program does emits it.
//
// What the program does to a box that was never shown reaches the toolkit when it is shown first:
// until then selectedItem() and titles() tell it, and the base class knows of no entry.
class PopUpBox final : public QComboBox, public PopUp {
    Q_OBJECT

public:
    explicit PopUpBox(QWidget* parent = nullptr);

    void removeAllItems() override;
    void addItems(const std::vector<std::string>& titles) override;
    void selectItem(std::int32_t position) override;
    // As a user chooses it.
    void chooseItem(int position);
    // The entry that is shown.
    [[nodiscard]] std::int32_t selectedItem() const override;
    void setEnabled(bool enabled) override;

    [[nodiscard]] QStringList titles() const;
    // As in findTyped(); they outlive the box.
    void setNames(EntryNames names) { names_ = names; }
    [[nodiscard]] EntryNames names() const { return names_; }
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;
    void showPopup() override;

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void offer(EntryModel& entries);
    void select(int position);
    void type(const QString& text);
    // Chooses what is shown, if it was typed.
    void finishTyping();
    // Shows again what was chosen before the typing.
    void cancelTyping();
    // What was typed is no longer of any meaning.
    void forgetTyping();

    EntryModel* entries_ = nullptr; // the application's; null before it offered any
    int unseen_ = -1;               // what is selected, until the box is shown
    bool wasShown_ = false;
    EntryNames names_;
    TypedSearch search_;
    QTimer pause_;
    std::optional<int> chosen_; // what it was, while a text is typed
    int found_ = -1;            // what the text means
    bool hasEntryList_ = false;
};

} // namespace scenewright
