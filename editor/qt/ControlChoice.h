// Which controls are chosen by mouse and keys, on the picture and in the list: one, as the view
// logic has it, or several around it. With Ctrl a control is taken in or out, with Shift all up to
// it; a band on the picture takes what it touches.
#pragma once

#include "editor/ControlSelection.h"
#include "editor/ViewController.h"
#include "editor/qt/ControlList.h"
#include "editor/qt/DevicePicture.h"
#include "editor/qt/ValuePanes.h"

#include <QObject>

#include <cstdint>
#include <vector>

namespace scenewright {

// What it is given outlives it. Main thread only.
class ControlChoice final : public QObject {
    Q_OBJECT

public:
    ControlChoice(ViewController& view, DevicePicture& picture, ControlList& list,
                  ValuePanes& panes, QObject* parent);

    [[nodiscard]] const ControlSelection& selection() const { return selection_; }
    // All of the chosen one's kind.
    void selectAll();
    // Brings picture and list up to date after a change of the view. What the view chose by itself
    // is chosen alone.
    void follow();

signals:
    // Others are chosen beside the same one, so that the view has told nothing.
    void changed();

private:
    // Of a button of the picture.
    void click(const ControlButton& button);
    void choose(std::int32_t control, Qt::KeyboardModifiers modifiers);
    void chooseAll(const std::vector<std::int32_t>& controls, Qt::KeyboardModifiers modifiers);
    // Chooses in the view what the selection has come to.
    void apply();
    // Before the view writes a popup's option into the chosen control: into the others alike.
    void writeBeside(const Setting& setting, std::int32_t option);

    ViewController& view_;
    DevicePicture& picture_;
    ControlList& list_;
    ControlSelection selection_;
};

} // namespace scenewright
