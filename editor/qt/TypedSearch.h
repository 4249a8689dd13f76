// Finding an entry of a list by typing its digits or its name.
#pragma once

#include <QString>
#include <QStringList>

#include <chrono>

namespace scenewright {

// The entry that `typed` means, -1 for none. Letters of either case; best first: the entry itself,
// one that begins with it, one with a word that begins with it. "1" is 1 and not 10; "c#" is C#-1.
[[nodiscard]] int findTyped(const QStringList& entries, const QString& typed);

// Gathers keystrokes: those between which no more than the toolkit's keyboard input interval goes
// by make one text.
class TypedSearch {
public:
    using Clock = std::chrono::steady_clock;

    [[nodiscard]] static std::chrono::milliseconds pause();

    // Adds `text`. When the longer text finds nothing, `text` alone begins anew. -1 for none.
    [[nodiscard]] int type(const QString& text, const QStringList& entries,
                           Clock::time_point now = Clock::now());
    // The next keystroke begins anew.
    void clear() { typed_.clear(); }

private:
    QString typed_;
    Clock::time_point last_;
};

} // namespace scenewright
