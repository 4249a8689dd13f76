#include "tests/protocol/TestScenes.h"

#include <memory>
#include <vector>

namespace scenewright::testing {

const std::vector<ControlBytes>& controlBytes() {
    using B = ButtonValue;
    static const std::vector<ControlBytes> rows{
        {"key AssignType", 20, 20, 25, &B::AssignType, &B::setAssignType},
        {"key KeyBehavior", 45, 20, 25, &B::KeyBehavior, &B::setKeyBehavior},
        {"key CCOrNoteNumber", 70, 20, 25, &B::CCOrNoteNumber, &B::setCCOrNoteNumber},
        {"key OnValue", 95, 20, 25, &B::OnValue, &B::setOnValue},
        {"key OffValue", 120, 20, 25, &B::OffValue, &B::setOffValue},
        {"group MIDIChannel", 145, 0, 4, &B::MIDIChannel, &B::setMIDIChannel},
        {"knob Enable", 149, 4, 4, &B::Enable, &B::setEnable},
        {"knob CCOrNoteNumber", 153, 4, 4, &B::CCOrNoteNumber, &B::setCCOrNoteNumber},
        {"knob UpperOrRightValue", 157, 4, 4, &B::UpperOrRightValue, &B::setUpperOrRightValue},
        {"knob LowerOrLeftValue", 161, 4, 4, &B::LowerOrLeftValue, &B::setLowerOrLeftValue},
        {"slider Enable", 165, 8, 4, &B::Enable, &B::setEnable},
        {"slider CCOrNoteNumber", 169, 8, 4, &B::CCOrNoteNumber, &B::setCCOrNoteNumber},
        {"slider UpperOrRightValue", 173, 8, 4, &B::UpperOrRightValue, &B::setUpperOrRightValue},
        {"slider LowerOrLeftValue", 177, 8, 4, &B::LowerOrLeftValue, &B::setLowerOrLeftValue},
        {"pad AssignType", 181, 12, 8, &B::AssignType, &B::setAssignType},
        {"pad CCOrNoteNumber", 189, 12, 8, &B::CCOrNoteNumber, &B::setCCOrNoteNumber},
        {"pad MIDIChannel", 197, 12, 8, &B::MIDIChannel, &B::setMIDIChannel},
        {"pad PadBehavior", 205, 12, 8, &B::PadBehavior, &B::setPadBehavior},
        {"pad OnValue", 213, 12, 8, &B::OnValue, &B::setOnValue},
        {"pad OffValue", 221, 12, 8, &B::OffValue, &B::setOffValue},
        {"pad CR", 229, 12, 8, &B::CR, &B::setCR},
        {"pad CG", 237, 12, 8, &B::CG, &B::setCG},
        {"pad CB", 245, 12, 8, &B::CB, &B::setCB},
    };
    return rows;
}

const std::vector<CommonByte>& commonBytes() {
    using C = CommonValue;
    static const std::vector<CommonByte> rows{
        {"GlobalMIDICh", 12, &C::GlobalMIDICh, &C::setGlobalMIDICh},
        {"PianoKeyCh", 13, &C::PianoKeyCh, &C::setPianoKeyCh},
        {"PitchBendSpeed", 14, &C::PitchBendSpeed, &C::setPitchBendSpeed},
        {"KeyTranspose", 15, &C::KeyTranspose, &C::setKeyTranspose},
        {"KeyVelocityCurve", 16, &C::KeyVelocityCurve, &C::setKeyVelocityCurve},
        {"KeyConstVelocity", 17, &C::KeyConstVelocity, &C::setKeyConstVelocity},
        {"PadVelocityCurve", 18, &C::PadVelocityCurve, &C::setPadVelocityCurve},
        {"PadConstVelocity", 19, &C::PadConstVelocity, &C::setPadConstVelocity},
    };
    return rows;
}

std::shared_ptr<SceneValue> zeroScene() {
    auto scene = std::make_shared<SceneValue>();
    scene->setCommonValue(std::make_shared<CommonValue>());
    std::vector<std::shared_ptr<ButtonValue>> buttons;
    for (int i = 0; i < 45; ++i)
        buttons.push_back(std::make_shared<ButtonValue>());
    scene->setButtonValueArray(buttons);
    return scene;
}

Bytes randomImages(std::mt19937& random, std::size_t count) {
    std::uniform_int_distribution<int> any(0, 255);
    Bytes images;
    for (std::size_t i = 0; i < count * 253; ++i) {
        const bool isName = i % 253 < 12;
        images.push_back(static_cast<std::uint8_t>(isName ? any(random) : any(random) / 2));
    }
    return images;
}

} // namespace scenewright::testing
