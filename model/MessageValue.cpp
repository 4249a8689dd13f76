#include "model/MessageValue.h"

#include <utility>

namespace scenewright {

void MessageValue::setMessage(Text value) {
    write(Message_, "Message", std::move(value));
}

void MessageValue::setIsReadFinish(Text value) {
    write(isReadFinish_, "isReadFinish", std::move(value));
}

void MessageValue::setIsSendFinish(Text value) {
    write(isSendFinish_, "isSendFinish", std::move(value));
}

void MessageValue::addObserver(std::string key, Observer observer) {
    observers_[std::move(key)].push_back(std::move(observer));
}

void MessageValue::write(Text& field, std::string_view key, Text value) {
    field = std::move(value);
    const auto observers = observers_.find(key);
    if (observers == observers_.end())
        return;
    // The count and the text as they are now: an observer may add others, and may write the field
    // itself.
    const Text written = field;
    const std::size_t count = observers->second.size();
    for (std::size_t i = 0; i < count; ++i)
        observers->second[i](key, written);
}

} // namespace scenewright
