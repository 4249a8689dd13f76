// What stands in a window, as a table of a test has it.
#pragma once

#include <QWidget>

#include <string>

class QMenuBar;

namespace scenewright::testing {

// A line for each widget: its rows from above, each from the left with "| " before all but its
// first, what is hidden after them, and the names of what only holds others.
//
//     button "&Close" default
//     line "Name" = SCENE1
//
// Of what is usual nothing is said. The window is shown for it.
[[nodiscard]] std::string contentsOf(QWidget& window);

// The entries of a window's menus, those of a menu in a menu below its own: title, keys, and what
// can be checked or is greyed.
[[nodiscard]] std::string menusOf(const QMenuBar& bar);

} // namespace scenewright::testing
