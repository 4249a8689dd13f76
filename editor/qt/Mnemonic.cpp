#include "editor/qt/Mnemonic.h"

namespace scenewright {

QString withMnemonic(const QString& title, QString& taken) {
    for (qsizetype place = 0; place < title.size(); ++place) {
        const QChar letter = title[place].toLower();
        // A letter that stands on a key: no ideograph does.
        if (!letter.isLetter() || letter.script() != QChar::Script_Latin || taken.contains(letter))
            continue;
        taken.append(letter);
        QString marked = title;
        return marked.insert(place, QLatin1Char('&'));
    }
    return title;
}

} // namespace scenewright
