#include "model/MessageValue.h"

#include <exception>
#include <utility>

namespace scenewright {

namespace {

std::shared_ptr<MessageValue>& kept() {
    static std::shared_ptr<MessageValue> record;
    return record;
}

} // namespace

void MessageValue::setMessage(Text value) {
    write(Message_, "Message", std::move(value));
}

void MessageValue::setIsReadFinish(Text value) {
    write(isReadFinish_, "isReadFinish", std::move(value));
}

void MessageValue::setIsSendFinish(Text value) {
    write(isSendFinish_, "isSendFinish", std::move(value));
}

MessageValue::Subscription MessageValue::addObserver(std::string key, Observer observer) {
    std::erase_if(registrations_, [](const auto& registration) { return registration.expired(); });
    auto added = std::make_shared<const Registration>(
        Registration{.key = std::move(key), .observer = std::move(observer)});
    registrations_.push_back(added);
    return added;
}

void MessageValue::write(Text& field, std::string_view key, Text value) {
    field = std::move(value);
    untold_.push_back({.key = key, .value = field, .registrations = registrations_});
    if (!isTelling_)
        tellAll();
}

void MessageValue::tellAll() {
    std::exception_ptr first;
    isTelling_ = true;
    while (!untold_.empty()) {
        const Write write = std::move(untold_.front());
        untold_.pop_front();
        for (const auto& registration : write.registrations) {
            // Held during the call, because the observer may end its own observation.
            const auto told = registration.lock();
            if (!told || told->key != write.key)
                continue;
            try {
                told->observer(write.key, write.value);
            } catch (...) {
                first = first ? first : std::current_exception();
            }
        }
    }
    isTelling_ = false;
    if (first)
        std::rethrow_exception(first);
}

std::shared_ptr<MessageValue> Progress::record() {
    if (!kept())
        kept() = std::make_shared<MessageValue>();
    return kept();
}

std::shared_ptr<MessageValue> Progress::recordIfAny() {
    return kept();
}

void Progress::forget() {
    kept().reset();
}

} // namespace scenewright
