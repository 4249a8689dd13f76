// The six panes and the popups in them, built from the table of value popups.
#pragma once

#include "editor/ControlSelection.h"
#include "editor/ViewController.h"
#include "editor/qt/Adapters.h"
#include "editor/qt/PopUpBox.h"

#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QWidget>

#include <array>
#include <map>

class QGridLayout;

namespace scenewright {

// One pane is seen at a time, or a hint when none is; the room that they take stays the same.
class ValuePanes final : public QWidget {
    Q_OBJECT

public:
    explicit ValuePanes(QWidget* parent = nullptr);

    // Sets the panes, the popups and the scene's name as outlets, and calls the view's actions.
    // `view` must outlive the panes' last event.
    void connectTo(ViewController& view);

    // Brings headings, hint, the names of options and the pad's mixed colour up to date.
    void show(const ViewController& view, const ControlSelection& selection);

    [[nodiscard]] PaneFrame& pane(ControlKind kind) const;
    [[nodiscard]] PopUpBox& popUp(std::string_view outlet) const;
    // The pad's mixed colour, as it is shown beside the three levels.
    [[nodiscard]] QPushButton& swatch() const { return *swatch_; }

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;
    // The hint's lines do not decide how high the panes are.
    [[nodiscard]] bool hasHeightForWidth() const override { return false; }

signals:
    // An option of a popup was chosen; the view writes it after this.
    void choiceComing(const scenewright::Setting& setting, std::int32_t option);

protected:
    void changeEvent(QEvent* event) override;
    // Of a pane: it is hidden, perhaps to be shown again at once.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Body {
        PaneFrame* frame = nullptr;
        QLabel* heading = nullptr;
        QLabel* sends = nullptr; // under the number, by MIDI's own names; null without a number
        QGridLayout* fields = nullptr;
        QString taken; // mnemonics in use
        int count = 0;
    };

    void makePane(ControlKind kind);
    // `help` answers "What's this?" and is what a screen reader tells beside the title.
    void addField(Body& body, const QString& title, QWidget& field, const QString& help);
    void addSwatch(Body& body);
    // Under the field that was added last.
    void addSends(Body& body);
    static void showTitle(const Body& body, const QString& title, bool isOfSeveral);
    void showNames(const ViewController& view, ControlKind kind, std::int32_t member);
    void showSwatch(const Colour& colour);
    // Brings the keyboard back into the panes when it was in one that was hidden: to the same
    // field, to one of the same title, or to the first.
    void giveKeyboardBack();

    // All are children of this widget.
    std::array<Body, kControlRanges.size()> bodies_;
    std::map<std::string_view, PopUpBox*> popUps_;
    TextLine* sceneName_ = nullptr;
    QPushButton* swatch_ = nullptr;
    std::optional<Colour> swatchColour_;
    QLabel* hint_ = nullptr;
    QPointer<QWidget> former_; // had the keyboard in a pane that was hidden
};

} // namespace scenewright
