// A send that costs nobody the scenes that the keyboard holds: they are read first and kept, and
// the send is in the journal until it has ended. It stands around the store's own send, which
// window and command line never call without it.
//
// Main thread only.
#pragma once

#include "app/Earlier.h"
#include "app/SendJournal.h"
#include "protocol/Connection.h"
#include "protocol/SceneImage.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace scenewright {

// Where a send keeps what may be wanted back.
struct SendStores {
    EarlierScenes earlier{};
    SendJournal journal{};
};

class SafeSend {
public:
    enum class Question : std::uint8_t {
        OtherScenes, // a new window's own scenes are to be sent, and the keyboard may hold others
        NotRead,     // what the keyboard holds could not be read whole
        NotKept,     // it, or the send itself, could not be written down
    };
    enum class Answer : std::uint8_t { Send, ReadFirst, Cancel };
    struct Asked {
        Question question;
        Outcome read{};    // for NotRead
        std::string why{}; // for NotKept
    };
    using Answered = std::function<void(Answer)>;

    struct Ended {
        // Of the send; of the read before it when that reached no keyboard, or the program was
        // asked to end. Nothing when the answer to a question was against the send.
        std::optional<Outcome> outcome{};
        bool wantsRead = false; // the answer was to read first
        // What the keyboard held and nobody knew of; it is among the earlier scenes.
        std::optional<BankImage> others{};
        std::string keyboard{};
    };

    // Makes what blocks: a front end puts its signs of that around it.
    using Around = std::function<void(const std::function<void()>& step)>;

    struct Request {
        bool readsFirst = true;
        // The scenes to be sent are those that a new window begins with.
        bool isUntouched = false;
        std::string subject{}; // the file that is sent; empty if it is none
        // What the keyboard is known to hold, where that was read before.
        std::optional<BankImage> before{};
        // Calls its second argument once, now or later.
        std::function<void(const Asked& asked, const Answered& answered)> ask{};
        std::function<void(const Ended& ended)> ended{};
        Around reading{};
        Around sending{};
    };

    SafeSend() = delete;

    // Sends the stored scenes; `ended` comes in every case. It may come before this returns, a
    // send's own never does. `stores` is kept until then.
    static void run(SendStores stores, Request request);
};

} // namespace scenewright
