// Letters by which the keys reach a field: Alt and the underlined letter of its label.
#pragma once

#include <QString>

namespace scenewright {

// `title` with one of its letters marked, the first that is not in `taken`, which gains it. The
// title alone when all are taken.
[[nodiscard]] QString withMnemonic(const QString& title, QString& taken);

} // namespace scenewright
