// The declaration of a value popup of the editor view: its outlet and its action in one line.
//
//   SCENEWRIGHT_VALUE_OUTLET(padCR, setPadCR, changePadCRAction)
//       an outlet property of type PopUp*, null until set; the action, to be called when the user
//       has chosen an entry; and the constant ViewController::padCROutlet, by which a table names
//       both. It leaves the class in private access behind it.
#pragma once

#include "editor/Widgets.h"
#include "model/Property.h"

#include <string_view>

namespace scenewright {

class ViewController;

struct ValueOutlet {
    std::string_view name;
    PopUp* (ViewController::*read)() const;
    void (ViewController::*write)(PopUp*);
    void (ViewController::*action)(const PopUp& sender);
};

} // namespace scenewright

// NOLINTBEGIN(bugprone-macro-parentheses): the arguments are names
#define SCENEWRIGHT_VALUE_OUTLET(Name, SetName, Action)                                            \
    SCENEWRIGHT_PROPERTY(PopUp*, Name, SetName)                                                    \
public:                                                                                            \
    void Action(const PopUp& sender) {                                                             \
        changeValue(sender, Name##Outlet);                                                         \
    }                                                                                              \
    static constexpr ValueOutlet Name##Outlet{#Name, &ViewController::Name,                        \
                                              &ViewController::SetName, &ViewController::Action};  \
                                                                                                   \
private:
// NOLINTEND(bugprone-macro-parentheses)
