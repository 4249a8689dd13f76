#include "model/Progress.h"

namespace scenewright {

namespace {

std::shared_ptr<MessageValue>& kept() {
    static std::shared_ptr<MessageValue> record;
    return record;
}

} // namespace

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
