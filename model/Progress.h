// Where the one progress record of the process lives: made on its first request, kept until the
// process ends. Main thread only.
#pragma once

#include "model/MessageValue.h"

#include <memory>

namespace scenewright {

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
