// The progress record of the device transactions: three texts that can be observed by name.
// Main thread only.
#pragma once

#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace scenewright {

class MessageValue {
public:
    using Text = std::optional<std::string>;
    // Told the name of the field and its new value, on the thread that wrote it, before the
    // writer returns, for every write, equal values included.
    using Observer = std::function<void(std::string_view key, const Text& value)>;

    // Absent until first written. The flags hold "Yes" or "No".
    [[nodiscard]] const Text& Message() const noexcept { return Message_; }
    [[nodiscard]] const Text& isReadFinish() const noexcept { return isReadFinish_; }
    [[nodiscard]] const Text& isSendFinish() const noexcept { return isSendFinish_; }

    void setMessage(Text value);
    void setIsReadFinish(Text value);
    void setIsSendFinish(Text value);

    // Registers for one of the three names, for the life of the record. No initial call.
    // Observers of a name are told in the order of their registration. An observer may write to
    // the record and may add observers; one that is added is told from the next write on.
    void addObserver(std::string key, Observer observer);

private:
    void write(Text& field, std::string_view key, Text value);

    Text Message_;
    Text isReadFinish_;
    Text isSendFinish_;
    // A deque, so that an observer that is being called stays in its place while another is added.
    std::map<std::string, std::deque<Observer>, std::less<>> observers_;
};

} // namespace scenewright
