#include "model/Setting.h"

#include <gtest/gtest.h>

#include <memory>
#include <utility>
#include <vector>

namespace scenewright {
namespace {

std::shared_ptr<SceneValue> fullScene() {
    auto scene = std::make_shared<SceneValue>();
    scene->setCommonValue(std::make_shared<CommonValue>());
    std::vector<std::shared_ptr<ButtonValue>> buttons;
    for (int i = 0; i < 45; ++i)
        buttons.push_back(std::make_shared<ButtonValue>());
    scene->setButtonValueArray(buttons);
    return scene;
}

const Setting& settingOf(ControlKind kind, std::string_view name) {
    const Setting* const found = findSetting(kind, name);
    EXPECT_NE(found, nullptr) << name;
    return found != nullptr ? *found : settings()[0];
}

TEST(Setting, RowsAreThoseThatTheDeviceStoresInItsOrder) {
    using K = ControlKind;
    const std::vector<std::pair<K, std::string_view>> expected{{K::Common, "GlobalMIDICh"},
                                                               {K::Common, "PianoKeyCh"},
                                                               {K::Common, "PitchBendSpeed"},
                                                               {K::Common, "KeyTranspose"},
                                                               {K::Common, "KeyVelocityCurve"},
                                                               {K::Common, "KeyConstVelocity"},
                                                               {K::Common, "PadVelocityCurve"},
                                                               {K::Common, "PadConstVelocity"},
                                                               {K::Key, "AssignType"},
                                                               {K::Key, "KeyBehavior"},
                                                               {K::Key, "CCOrNoteNumber"},
                                                               {K::Key, "OnValue"},
                                                               {K::Key, "OffValue"},
                                                               {K::Group, "MIDIChannel"},
                                                               {K::Knob, "Enable"},
                                                               {K::Knob, "CCOrNoteNumber"},
                                                               {K::Knob, "UpperOrRightValue"},
                                                               {K::Knob, "LowerOrLeftValue"},
                                                               {K::Slider, "Enable"},
                                                               {K::Slider, "CCOrNoteNumber"},
                                                               {K::Slider, "UpperOrRightValue"},
                                                               {K::Slider, "LowerOrLeftValue"},
                                                               {K::Pad, "AssignType"},
                                                               {K::Pad, "CCOrNoteNumber"},
                                                               {K::Pad, "MIDIChannel"},
                                                               {K::Pad, "PadBehavior"},
                                                               {K::Pad, "OnValue"},
                                                               {K::Pad, "OffValue"},
                                                               {K::Pad, "CR"},
                                                               {K::Pad, "CG"},
                                                               {K::Pad, "CB"}};
    std::vector<std::pair<K, std::string_view>> rows;
    for (const Setting& setting : settings())
        rows.emplace_back(setting.kind(), setting.name());
    EXPECT_EQ(rows, expected);
}

TEST(Setting, CommonSettingReadsAndWritesTheCommonRecord) {
    const auto scene = fullScene();
    settingOf(ControlKind::Common, "KeyTranspose").write(*scene, 0, 7);
    EXPECT_EQ(scene->commonValue()->KeyTranspose(), 7);
    EXPECT_EQ(settingOf(ControlKind::Common, "KeyTranspose").read(*scene, 0), 7);
}

TEST(Setting, MembersOfEachKindAreItsOwnControls) {
    const auto scene = fullScene();
    const auto& buttons = scene->buttonValueArray();
    settingOf(ControlKind::Group, "MIDIChannel").write(*scene, 0, 1);
    EXPECT_EQ(buttons[0]->MIDIChannel(), 1);
    settingOf(ControlKind::Knob, "Enable").write(*scene, 3, 2);
    EXPECT_EQ(buttons[7]->Enable(), 2);
    settingOf(ControlKind::Slider, "CCOrNoteNumber").write(*scene, 0, 3);
    EXPECT_EQ(buttons[8]->CCOrNoteNumber(), 3);
    settingOf(ControlKind::Pad, "CB").write(*scene, 7, 4);
    EXPECT_EQ(buttons[19]->CB(), 4);
    settingOf(ControlKind::Key, "KeyBehavior").write(*scene, 24, 5);
    EXPECT_EQ(buttons[44]->KeyBehavior(), 5);
    EXPECT_EQ(settingOf(ControlKind::Key, "KeyBehavior").read(*scene, 24), 5);
    EXPECT_EQ(settingOf(ControlKind::Key, "KeyBehavior").read(*scene, 0), 0);
}

TEST(Setting, SceneWithoutTheRecordReadsAbsentAndKeepsNothing) {
    const SceneValue scene;
    for (const Setting& setting : settings()) {
        setting.write(scene, 0, 9);
        EXPECT_EQ(setting.read(scene, 0), -1) << setting.name();
    }
}

TEST(Setting, SceneShortOfControlsReadsAbsentForThoseThatItLacks) {
    SceneValue scene;
    scene.setButtonValueArray({std::make_shared<ButtonValue>(), nullptr});
    const Setting& channel = settingOf(ControlKind::Group, "MIDIChannel");
    channel.write(scene, 1, 5);
    channel.write(scene, 2, 5);
    EXPECT_EQ(channel.read(scene, 0), 0);
    EXPECT_EQ(channel.read(scene, 1), -1);
    EXPECT_EQ(channel.read(scene, 2), -1);
}

TEST(Setting, MemberOutsideItsKindTouchesNoOtherKind) {
    const auto scene = fullScene();
    const Setting& channel = settingOf(ControlKind::Group, "MIDIChannel");
    channel.write(*scene, 4, 9);
    channel.write(*scene, -1, 9);
    EXPECT_EQ(channel.read(*scene, 4), -1);
    EXPECT_EQ(channel.read(*scene, -1), -1);
    for (const auto& button : scene->buttonValueArray())
        EXPECT_EQ(button->MIDIChannel(), 0);
}

TEST(Setting, FieldThatAKindDoesNotCarryIsNotFound) {
    EXPECT_EQ(findSetting(ControlKind::Knob, "AssignType"), nullptr);
    EXPECT_EQ(findSetting(ControlKind::Pad, "Enable"), nullptr);
    EXPECT_EQ(findSetting(ControlKind::Common, "SceneName"), nullptr);
    EXPECT_EQ(findSetting(ControlKind::Key, "keybehavior"), nullptr);
}

} // namespace
} // namespace scenewright
