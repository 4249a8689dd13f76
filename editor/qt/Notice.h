// What the window tells its user in its bar, and by whom.
//
// Apart from the bar, as lupdate of Qt 6.8 finds the classes below an enumeration with a size of
// its own outside their namespace.
#pragma once

#include <QString>

#include <cstdint>
#include <functional>
#include <vector>

namespace scenewright {

struct NoticeAction {
    QString title;
    std::function<void()> action;
};

struct Notice {
    enum class Kind : std::uint8_t { Done, Error };
    // Who speaks. A source has one notice at most: its next one takes the place of the former.
    enum class Source : std::uint8_t {
        Transfer,
        Comparison,
        Kept,
        Unfinished,
        Files,
        Recovery,
        Resources,
        Keyboards,
        Midi,
        Quit,
        Edit
    };

    Source source = Source::Transfer;
    Kind kind = Kind::Error;
    // The first line is what is seen; the others are its details.
    QString text;
    std::vector<NoticeAction> actions{};
    // What is still so while it is shown: time does not take it away.
    bool stays = false;
};

} // namespace scenewright
