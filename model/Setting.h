// Every setting of a scene as data: the kind of control that carries it, and its field.
//
// The 31 rows are the fields that the controller stores, in the order of the scene byte image.
// Byte image, option lists, printed tables and panes are built on these rows.
#pragma once

#include "model/Control.h"
#include "model/SceneValue.h"

#include <array>
#include <cstdint>
#include <string_view>

namespace scenewright {

class Setting {
public:
    consteval explicit Setting(const IndexField<CommonValue>& field)
        : kind_(ControlKind::Common), common_(&field) {}
    consteval Setting(ControlKind kind, const IndexField<ButtonValue>& field)
        : kind_(kind), button_(&field) {}

    [[nodiscard]] constexpr ControlKind kind() const { return kind_; }
    [[nodiscard]] constexpr std::string_view name() const {
        return common_ != nullptr ? common_->name : button_->name;
    }

    // The value in member `member` (from 0) of the setting's kind. The scene must hold that
    // record: common settings for the common kind, at least 45 controls for the others.
    [[nodiscard]] std::int32_t read(const SceneValue& scene, std::int32_t member) const;
    void write(const SceneValue& scene, std::int32_t member, std::int32_t value) const;

private:
    ControlKind kind_;
    const IndexField<CommonValue>* common_ = nullptr;
    const IndexField<ButtonValue>* button_ = nullptr;
};

inline constexpr std::size_t kSettingCount = 31;
[[nodiscard]] const std::array<Setting, kSettingCount>& settings();

// The row of a kind's field; null when the kind does not carry a field of that name.
[[nodiscard]] const Setting* findSetting(ControlKind kind, std::string_view name);

} // namespace scenewright
