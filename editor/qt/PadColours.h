// The colours that a pad's mixed colour opens: a palette, one that people who see red and green
// alike tell apart, those used last, and any other.
#pragma once

#include "editor/qt/Document.h"
#include "editor/qt/MainWindow.h"
#include "model/TypedValue.h"

#include <QMenu>
#include <QObject>

#include <cstddef>
#include <span>
#include <vector>

class QToolButton;

namespace scenewright {

// Window and history outlive it. Main thread only.
class PadColours final : public QObject {
    Q_OBJECT

public:
    PadColours(MainWindow& window, History& history);

    // Writes the three levels of the chosen pads, as one step of the history. Nothing when no pad
    // is chosen.
    void choose(const PadColour& colour);
    // The palettes as they stand now, to be shown at the mixed colour.
    [[nodiscard]] QMenu& menu() { return *menu_; }

protected:
    // Of a colour's button: the arrows go through the rows, Return chooses.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void fill();
    void addRow(std::span<const PadColour> colours);
    void popUp(const QWidget& swatch);
    void goTo(std::ptrdiff_t place);
    void chooseOther();
    [[nodiscard]] ButtonValue* pad() const;

    MainWindow& window_;
    History& history_;
    QMenu* menu_; // child of the window
    // Of the menu as it stands now: the colours, row by row, and the entry below them.
    std::vector<QToolButton*> buttons_;
    QAction* other_ = nullptr;
    std::vector<PadColour> used_; // newest first
};

} // namespace scenewright
