// Finding an entry of a list by typing its digits or its name.
#pragma once

#include <QString>
#include <QStringList>

#include <chrono>

namespace scenewright {

// The entry that `typed` means, -1 for none. Letters of either case; best first: the entry itself,
// one that begins with it, one with a word that begins with it. "1" is 1 and not 10; "c#" is C#-1.
[[nodiscard]] int findTyped(const QStringList& entries, const QString& typed);

// Gathers keystrokes: those that come within a second of each other make one text.
class TypedSearch {
public:
    using Clock = std::chrono::steady_clock;

    // Adds `text`. When the longer text finds nothing, `text` alone begins anew. -1 for none.
    [[nodiscard]] int type(const QString& text, const QStringList& entries,
                           Clock::time_point now = Clock::now());

private:
    QString typed_;
    Clock::time_point last_;
};

} // namespace scenewright
