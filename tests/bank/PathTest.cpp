#include "bank/Path.h"

#include <gtest/gtest.h>

namespace scenewright {

namespace {

std::string troubleOfPath(std::string_view text) {
    const PathResult result = parsePath(text);
    EXPECT_EQ(result.path.has_value(), result.trouble.empty());
    return result.trouble;
}

std::vector<std::string> pathsAt(std::string_view text) {
    const PathResult result = parsePath(text);
    EXPECT_EQ(result.trouble, "");
    std::vector<std::string> paths;
    for (const SettingPlace& place : settingsAt(result.path.value()))
        paths.push_back(pathOf(place));
    return paths;
}

using Paths = std::vector<std::string>;

} // namespace

TEST(Path, NamesOneSetting) {
    EXPECT_EQ(pathsAt("scene1.pad3.CR"), Paths{"scene1.pad3.CR"});
    EXPECT_EQ(pathsAt("scene2.common.KeyTranspose"), Paths{"scene2.common.KeyTranspose"});
    EXPECT_EQ(pathsAt("scene4.key25.OffValue"), Paths{"scene4.key25.OffValue"});
    EXPECT_EQ(pathsAt("scene3.common.SceneName"), Paths{"scene3.common.SceneName"});
}

TEST(Path, StarsNameAll) {
    const Paths enables = pathsAt("scene*.knob*.Enable");
    ASSERT_EQ(enables.size(), 16U);
    EXPECT_EQ(enables.front(), "scene1.knob1.Enable");
    EXPECT_EQ(enables[3], "scene1.knob4.Enable");
    EXPECT_EQ(enables[4], "scene2.knob1.Enable");
    EXPECT_EQ(enables.back(), "scene4.knob4.Enable");
    EXPECT_EQ(pathsAt("scene2.key*.AssignType").size(), 25U);
    EXPECT_EQ(pathsAt("scene*.common.SceneName").size(), 4U);
}

TEST(Path, ControlNamesAllOfItsSettings) {
    EXPECT_EQ(pathsAt("scene1.group2"), Paths{"scene1.group2.MIDIChannel"});
    EXPECT_EQ(pathsAt("scene1.slider4"),
              (Paths{"scene1.slider4.Enable", "scene1.slider4.CCOrNoteNumber",
                     "scene1.slider4.UpperOrRightValue", "scene1.slider4.LowerOrLeftValue"}));
    EXPECT_EQ(pathsAt("scene1.pad*").size(), 72U);
    EXPECT_EQ(pathsAt("scene1.common").size(), 9U);
    EXPECT_EQ(pathsAt("scene1.common").front(), "scene1.common.SceneName");
}

TEST(Path, SceneNamesItsNameAndAll241Settings) {
    EXPECT_EQ(pathsAt("scene3").size(), 242U);
    EXPECT_EQ(pathsAt("scene3").front(), "scene3.common.SceneName");
    EXPECT_EQ(pathsAt("scene3").back(), "scene3.key25.OffValue");
    EXPECT_EQ(pathsAt("scene*").size(), 968U);
    EXPECT_EQ(allSettings(4).size(), 968U);
}

TEST(Path, EverySettingsPathNamesItAlone) {
    for (const SettingPlace& place : allSettings(4)) {
        const PathResult result = parsePath(pathOf(place));
        ASSERT_TRUE(result.path) << result.trouble;
        ASSERT_EQ(settingsAt(*result.path), std::vector{place});
    }
}

TEST(Path, WordsSayWhatThePathNames) {
    const auto words = [](std::string_view text) {
        return wordsOf(settingsAt(parsePath(text).path.value()).front());
    };
    EXPECT_EQ(words("scene1.pad3.CR"), "Scene 1, Pad 3, Red");
    EXPECT_EQ(words("scene2.common.KeyTranspose"), "Scene 2, Octave transposition");
    EXPECT_EQ(words("scene2.common.SceneName"), "Scene 2, Name");
    EXPECT_EQ(words("scene4.slider1.Enable"), "Scene 4, Slider 1, Enabled");
}

TEST(Path, SceneIsExpectedFirst) {
    EXPECT_EQ(troubleOfPath(""), "an empty path: at character 1, \"scene\" was expected");
    EXPECT_EQ(troubleOfPath("pad3.CR"), "pad3.CR: at character 1, \"scene\" was expected");
    EXPECT_EQ(troubleOfPath("Scene1"), "Scene1: at character 1, \"scene\" was expected");
    EXPECT_EQ(troubleOfPath(" scene1"), " scene1: at character 1, \"scene\" was expected");
}

TEST(Path, SceneNumberIsChecked) {
    for (const std::string text : {"scene", "scene0", "scene5", "scene01", "scene-1", "scene 1",
                                   "scene10", "scene.pad1", "scene99999999999999999999"})
        EXPECT_EQ(troubleOfPath(text),
                  text + ": at character 6, a scene's number from 1 to 4 or * was expected");
    EXPECT_EQ(troubleOfPath("scene1a"), "scene1a: at character 7, a dot or the end was expected");
    EXPECT_EQ(troubleOfPath("scene**"), "scene**: at character 7, a dot or the end was expected");
    EXPECT_EQ(troubleOfPath("scene1 "), "scene1 : at character 7, a dot or the end was expected");
}

TEST(Path, KindIsChecked) {
    for (const std::string text : {"scene1.", "scene1.Pad3", "scene1.pads", "scene1.3", "scene1.*",
                                   "scene1.p", "scene1..CR"})
        EXPECT_EQ(troubleOfPath(text), text +
                                           ": at character 8, common, group, knob, slider, pad or "
                                           "key was expected");
}

TEST(Path, ControlNumberIsChecked) {
    EXPECT_EQ(troubleOfPath("scene1.pad9.CR"),
              "scene1.pad9.CR: at character 11, a pad's number from 1 to 8 or * was expected");
    EXPECT_EQ(troubleOfPath("scene1.pad"),
              "scene1.pad: at character 11, a pad's number from 1 to 8 or * was expected");
    EXPECT_EQ(troubleOfPath("scene1.key26"),
              "scene1.key26: at character 11, a key's number from 1 to 25 or * was expected");
    EXPECT_EQ(troubleOfPath("scene1.key100"),
              "scene1.key100: at character 11, a key's number from 1 to 25 or * was expected");
    EXPECT_EQ(troubleOfPath("scene1.common1"),
              "scene1.common1: at character 14, a dot or the end was expected");
}

TEST(Path, SettingIsCheckedAgainstItsKind) {
    EXPECT_EQ(troubleOfPath("scene1.knob1.CR"),
              "scene1.knob1.CR: at character 14, one of Enable, CCOrNoteNumber, UpperOrRightValue, "
              "LowerOrLeftValue was expected");
    EXPECT_EQ(troubleOfPath("scene1.group1.midichannel"),
              "scene1.group1.midichannel: at character 15, one of MIDIChannel was expected");
    EXPECT_EQ(troubleOfPath("scene1.pad1.SceneName"),
              "scene1.pad1.SceneName: at character 13, one of AssignType, CCOrNoteNumber, "
              "MIDIChannel, PadBehavior, OnValue, OffValue, CR, CG, CB was expected");
    EXPECT_EQ(troubleOfPath("scene1.common."),
              "scene1.common.: at character 15, one of SceneName, GlobalMIDICh, PianoKeyCh, "
              "PitchBendSpeed, KeyTranspose, KeyVelocityCurve, KeyConstVelocity, "
              "PadVelocityCurve, PadConstVelocity was expected");
    EXPECT_EQ(troubleOfPath("scene1.pad1.CR2"),
              "scene1.pad1.CR2: at character 15, the end was expected");
    EXPECT_EQ(troubleOfPath("scene1.pad1.CR.x"),
              "scene1.pad1.CR.x: at character 15, the end was expected");
}

TEST(Path, TroubleStaysOneShortLine) {
    const std::string trouble = troubleOfPath("scene1.\n\xFF" + std::string(10000, 'x'));
    EXPECT_EQ(trouble.find('\n'), std::string::npos);
    EXPECT_LT(trouble.size(), 250U);
    EXPECT_EQ(trouble.substr(0, 13), "scene1.\xEF\xBF\xBD\xEF\xBF\xBD");
}

TEST(Path, AnyByteInAnyPlaceIsReadOrTold) {
    const std::string path = "scene1.pad3.CR";
    for (std::size_t at = 0; at < path.size(); ++at) {
        static_cast<void>(troubleOfPath(path.substr(0, at)));
        for (int byte = 0; byte < 256; ++byte) {
            std::string text = path;
            text[at] = static_cast<char>(byte);
            static_cast<void>(troubleOfPath(text));
        }
    }
}

} // namespace scenewright
