#include "editor/ControlCondition.h"

#include "editor/options/SettingOptions.h"

namespace scenewright {

bool holds(ControlCondition condition, const ButtonValue& record) {
    switch (condition) {
    case ControlCondition::Always:
        return true;
    case ControlCondition::Disabled:
        return record.Enable() == 0;
    case ControlCondition::Enabled:
        return record.Enable() != 0;
    case ControlCondition::Unassigned:
        return record.AssignType() == kAssignOff;
    case ControlCondition::Assigned:
        return record.AssignType() != kAssignOff;
    case ControlCondition::Controller:
        return record.AssignType() == kAssignController;
    case ControlCondition::Note:
        return record.AssignType() == kAssignNote;
    }
    return false;
}

} // namespace scenewright
