// The number fields of a scene's records, written out by hand, each with its key in default.plist.
#pragma once

#include "model/SceneValue.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>

namespace scenewright::testing {

template <typename Record>
struct RecordField {
    const char* key;
    std::int32_t (Record::*read)() const;
    void (Record::*write)(std::int32_t);
};

using B = ButtonValue;
inline constexpr std::array<RecordField<B>, 14> kButtonFields{{
    {"BtnID", &B::ButtonID, &B::setButtonID},
    {"MIDIChannel", &B::MIDIChannel, &B::setMIDIChannel},
    {"AssignType", &B::AssignType, &B::setAssignType},
    {"CCOrNoteNumber", &B::CCOrNoteNumber, &B::setCCOrNoteNumber},
    {"UpperOrRightValue", &B::UpperOrRightValue, &B::setUpperOrRightValue},
    {"LowerOrLeftValue", &B::LowerOrLeftValue, &B::setLowerOrLeftValue},
    {"PadBehavior", &B::PadBehavior, &B::setPadBehavior},
    {"KeyBehavior", &B::KeyBehavior, &B::setKeyBehavior},
    {"OnValue", &B::OnValue, &B::setOnValue},
    {"OffValue", &B::OffValue, &B::setOffValue},
    {"Enable", &B::Enable, &B::setEnable},
    {"CR", &B::CR, &B::setCR},
    {"CG", &B::CG, &B::setCG},
    {"CB", &B::CB, &B::setCB},
}};

using C = CommonValue;
inline constexpr std::array<RecordField<C>, 8> kCommonFields{{
    {"globalMIDICh", &C::GlobalMIDICh, &C::setGlobalMIDICh},
    {"pianoKeyCh", &C::PianoKeyCh, &C::setPianoKeyCh},
    {"pitchBendSpeed", &C::PitchBendSpeed, &C::setPitchBendSpeed},
    {"keyTranspose", &C::KeyTranspose, &C::setKeyTranspose},
    {"keyVelocityCurve", &C::KeyVelocityCurve, &C::setKeyVelocityCurve},
    {"keyConstVelocity", &C::KeyConstVelocity, &C::setKeyConstVelocity},
    {"padVelocityCurve", &C::PadVelocityCurve, &C::setPadVelocityCurve},
    {"padConstVelocity", &C::PadConstVelocity, &C::setPadConstVelocity},
}};

// Each field holds its place in the table from 1 on, or all hold 0.
template <typename Record, std::size_t Count>
void expectPlaces(const Record& record, const std::array<RecordField<Record>, Count>& fields) {
    std::int32_t place = 0;
    for (const auto& field : fields)
        EXPECT_EQ((record.*field.read)(), ++place) << field.key;
}

template <typename Record, std::size_t Count>
void expectZeros(const Record& record, const std::array<RecordField<Record>, Count>& fields) {
    for (const auto& field : fields)
        EXPECT_EQ((record.*field.read)(), 0) << field.key;
}

} // namespace scenewright::testing
