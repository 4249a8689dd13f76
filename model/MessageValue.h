// The progress record of the device transactions: three texts that can be observed by name.
// Main thread only.
#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace scenewright {

class MessageValue {
public:
    using Text = std::optional<std::string>;
    // Told the name of the field and the value that was written, on the thread that wrote it, for
    // every write, equal values included.
    using Observer = std::function<void(std::string_view key, const Text& value)>;

    // An observation, which ends with it: then its observer is told nothing more, writes that are
    // still to be told included. It may outlive the record.
    using Subscription = std::shared_ptr<const void>;

    MessageValue() = default;
    MessageValue(const MessageValue&) = delete;
    MessageValue& operator=(const MessageValue&) = delete;
    MessageValue(MessageValue&&) = delete;
    MessageValue& operator=(MessageValue&&) = delete;
    ~MessageValue() = default;

    // Absent until first written. The flags hold "Yes" or "No".
    [[nodiscard]] const Text& Message() const noexcept { return Message_; }
    [[nodiscard]] const Text& isReadFinish() const noexcept { return isReadFinish_; }
    [[nodiscard]] const Text& isSendFinish() const noexcept { return isSendFinish_; }

    // Each stores its value at once and returns when every observer has been told of it. A write
    // by an observer is stored at once too, but told after the one that is being told, so that all
    // hear the writes in their order; the outermost writer returns when all of them are told. What
    // observers throw keeps nobody from being told; the first of it leaves the outermost writer.
    void setMessage(Text value);
    void setIsReadFinish(Text value);
    void setIsSendFinish(Text value);

    // Registers for one of the three names. No initial call. Observers of a name are told in the
    // order of their registration. An observer may write to the record, and may begin and end
    // observations, its own included; one that is begun is told from the next write on.
    [[nodiscard]] Subscription addObserver(std::string key, Observer observer);

private:
    struct Registration {
        std::string key;
        Observer observer;
    };
    using Registrations = std::vector<std::weak_ptr<const Registration>>;
    struct Write {
        std::string_view key;
        Text value;
        Registrations registrations; // those of the time of the write
    };

    void write(Text& field, std::string_view key, Text value);
    void tellAll();

    Text Message_;
    Text isReadFinish_;
    Text isSendFinish_;
    Registrations registrations_;
    std::deque<Write> untold_;
    bool isTelling_ = false;
};

// Where the one progress record of the process lives: made on its first request, kept until the
// process ends. Main thread only.
class Progress {
public:
    Progress() = delete;

    // The record, made now if there is none yet.
    [[nodiscard]] static std::shared_ptr<MessageValue> record();
    // The record, or null when nobody has asked for it yet.
    [[nodiscard]] static std::shared_ptr<MessageValue> recordIfAny();
    // Forgets the record: the process is as fresh as at its start. For tests.
    static void forget();
};

} // namespace scenewright
