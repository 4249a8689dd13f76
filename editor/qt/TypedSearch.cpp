#include "editor/qt/TypedSearch.h"

#include <QApplication>

#include <algorithm>
#include <array>

namespace scenewright {

namespace {

bool equalsIgnoringCase(const QString& entry, const QString& typed) {
    return entry.compare(typed, Qt::CaseInsensitive) == 0;
}

bool beginsWithIt(const QString& entry, const QString& typed) {
    return entry.startsWith(typed, Qt::CaseInsensitive);
}

bool hasWordOfIt(const QString& entry, const QString& typed) {
    return entry.contains(QLatin1Char(' ') + typed, Qt::CaseInsensitive);
}

} // namespace

int findTyped(const QStringList& entries, const QString& typed) {
    constexpr std::array kRules{&equalsIgnoringCase, &beginsWithIt, &hasWordOfIt};
    for (const auto& rule : kRules) {
        const auto found =
            std::ranges::find_if(entries, [&](const QString& entry) { return rule(entry, typed); });
        if (found != entries.end())
            return static_cast<int>(found - entries.begin());
    }
    return -1;
}

std::chrono::milliseconds TypedSearch::pause() {
    return std::chrono::milliseconds(QApplication::keyboardInputInterval());
}

int TypedSearch::type(const QString& text, const QStringList& entries, Clock::time_point now) {
    if (now - last_ > pause())
        typed_.clear();
    last_ = now;
    typed_ += text;
    const int found = findTyped(entries, typed_);
    if (found >= 0 || typed_ == text)
        return found;
    typed_ = text;
    return findTyped(entries, typed_);
}

} // namespace scenewright
