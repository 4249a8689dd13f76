// What is being sent, on disk as long as the send runs: a send that did not end, because the
// program or the machine died or because transfers failed, is found at the next start and can be
// made again, or what the keyboard held before be sent instead.
//
// One file a send, in the user's state folder, locked by the process that sends: what another one
// still sends is not found. Main thread only.
#pragma once

#include "platform/Process.h"
#include "platform/Text.h"
#include "protocol/Connection.h"
#include "protocol/SceneImage.h"

#include <chrono>
#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace scenewright {

class SendJournal {
public:
    using Clock = std::chrono::system_clock;
    struct Send {
        BankImage sent{};
        std::optional<BankImage> before; // what the keyboard held, if that is known
        std::string subject;             // the file that is sent; empty if it is none
        std::string keyboard;            // how it calls itself
        Clock::time_point begun;         // to the millisecond
        std::size_t scenes = 0;          // of the four that are known to have been sent
        friend bool operator==(const Send&, const Send&) = default;
    };
    struct Unfinished {
        std::filesystem::path file;
        Send send;
    };

    // The entry of a send that runs. Without end() the send stays unfinished.
    class Running {
    public:
        // So many scenes have been sent; on the disk once this returns, if that takes it. By the
        // thread that sends, before end().
        void note(std::size_t scenes) const noexcept;
        // Takes the entry away, unless transfers have failed: then the keyboard may hold a part of
        // each bank. Gives whether it went.
        bool end(const Outcome& outcome);

    private:
        friend class SendJournal;
        Running(std::filesystem::path file, FileDescriptor lock, std::size_t scenesAt)
            : file_(std::move(file)), lock_(std::move(lock)), scenesAt_(scenesAt) {}

        std::filesystem::path file_;
        FileDescriptor lock_;  // of the file, open for writing
        std::size_t scenesAt_; // where in the file the digit of their number stands
    };

    explicit SendJournal(std::optional<std::filesystem::path> folder = stateFolder())
        : folder_(std::move(folder)) {}

    // $XDG_STATE_HOME/scenewright/sends, or the same under ~/.local/state; nothing without either.
    [[nodiscard]] static std::optional<std::filesystem::path> stateFolder();

    // The entry is whole and on the disk once this returns.
    [[nodiscard]] Result<Running> begin(const Send& send) const;

    // The sends that nobody makes any more, newest first.
    [[nodiscard]] std::vector<Unfinished> unfinished() const;
    // The newest of this keyboard.
    [[nodiscard]] std::optional<Unfinished> unfinishedOf(const std::string& keyboard) const;

    static void forget(const Unfinished& unfinished);
    // The keyboard holds a whole bank that was sent to it: its unfinished sends are history.
    void forgetAllOf(const std::string& keyboard) const;
    // The keyboard was read and holds this: history are those of its sends of which it is a bank.
    void forgetSettled(const std::string& keyboard, const BankImage& held) const;

private:
    std::optional<std::filesystem::path> folder_; // without one nothing can be begun
};

// Whether each byte is from one of the two banks of the send: what the keyboard may hold after it.
[[nodiscard]] bool isPartOf(const BankImage& held, const SendJournal::Send& send);

// "The send of live.bank that was begun at 2026-11-22 14:05 did not end: 2 of 4 scenes were sent,
// and the keyboard may hold a part of each bank", in the person's language and time zone.
[[nodiscard]] std::string unfinishedText(const SendJournal::Send& send);

} // namespace scenewright
