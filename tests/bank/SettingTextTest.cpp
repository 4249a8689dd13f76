#include "bank/SettingText.h"

#include <gtest/gtest.h>

#include <array>
#include <tuple>
#include <utility>

namespace scenewright {

namespace {

using Paths = std::vector<std::string>;

std::string errorOf(std::string_view text) {
    const auto path = parsePath(text);
    return path ? "none" : path.error();
}

Paths pathsAt(std::string_view text) {
    Paths paths;
    for (const SettingPlace& place : settingsAt(parsePath(text).value()))
        paths.push_back(pathOf(place));
    return paths;
}

} // namespace

TEST(Path, NamesOneSetting) {
    for (const std::string path : {"scene1.pad3.CR", "scene2.common.KeyTranspose",
                                   "scene4.key25.OffValue", "scene3.common.SceneName"})
        EXPECT_EQ(pathsAt(path), Paths{path});
}

TEST(Path, StarControlAndSceneNameAllOfTheirsInOrder) {
    struct Row {
        const char* path;
        std::size_t count;
        const char* first;
        const char* last;
    };
    for (const Row& row : std::array<Row, 9>{{
             {"scene*.knob*.Enable", 16, "scene1.knob1.Enable", "scene4.knob4.Enable"},
             {"scene2.key*.AssignType", 25, "scene2.key1.AssignType", "scene2.key25.AssignType"},
             {"scene*.common.SceneName", 4, "scene1.common.SceneName", "scene4.common.SceneName"},
             {"scene1.group2", 1, "scene1.group2.MIDIChannel", "scene1.group2.MIDIChannel"},
             {"scene1.slider4", 4, "scene1.slider4.Enable", "scene1.slider4.LowerOrLeftValue"},
             {"scene1.pad*", 72, "scene1.pad1.AssignType", "scene1.pad8.CB"},
             {"scene1.common", 9, "scene1.common.SceneName", "scene1.common.PadConstVelocity"},
             {"scene3", 242, "scene3.common.SceneName", "scene3.key25.OffValue"},
             {"scene*", 968, "scene1.common.SceneName", "scene4.key25.OffValue"},
         }}) {
        const Paths paths = pathsAt(row.path);
        EXPECT_EQ(std::tuple(paths.size(), paths.front(), paths.back()),
                  std::tuple(row.count, std::string(row.first), std::string(row.last)))
            << row.path;
    }
    const Paths knobs = pathsAt("scene*.knob*.Enable");
    EXPECT_EQ(Paths(knobs.begin() + 3, knobs.begin() + 5),
              (Paths{"scene1.knob4.Enable", "scene2.knob1.Enable"}));
    EXPECT_EQ(pathsAt("scene1.slider4"),
              (Paths{"scene1.slider4.Enable", "scene1.slider4.CCOrNoteNumber",
                     "scene1.slider4.UpperOrRightValue", "scene1.slider4.LowerOrLeftValue"}));
}

TEST(Path, EverySettingsPathNamesItAlone) {
    EXPECT_EQ(allSettings(4).size(), 968U);
    for (const SettingPlace& place : allSettings(4)) {
        const auto path = parsePath(pathOf(place));
        ASSERT_TRUE(path) << path.error();
        ASSERT_EQ(settingsAt(*path), std::vector{place});
    }
}

TEST(Path, WordsSayWhatThePathNames) {
    for (const auto& [path, words] :
         {std::pair{"scene1.pad3.CR", "Scene 1, Pad 3, Red"},
          {"scene2.common.KeyTranspose", "Scene 2, Octave transposition"},
          {"scene2.common.SceneName", "Scene 2, Name"},
          {"scene4.slider1.Enable", "Scene 4, Slider 1, Enabled"}})
        EXPECT_EQ(wordsOf(settingsAt(parsePath(path).value()).front()), words);
}

TEST(Path, WhatIsNotExpectedIsToldWithItsPlace) {
    struct Row {
        Paths texts;
        std::string error; // behind the text
    };
    const std::string end = ", a dot or the end was expected";
    const std::string pad = ": at character 11, a pad's number from 1 to 8 or * was expected";
    const std::string key = ": at character 11, a key's number from 1 to 25 or * was expected";
    for (const Row& row : std::initializer_list<Row>{
             {{"pad3.CR", "Scene1", " scene1"}, ": at character 1, \"scene\" was expected"},
             {{"scene", "scene0", "scene5", "scene01", "scene-1", "scene 1", "scene10",
               "scene.pad1", "scene99999999999999999999"},
              ": at character 6, a scene's number from 1 to 4 or * was expected"},
             {{"scene1a", "scene**", "scene1 "}, ": at character 7" + end},
             {{"scene1.", "scene1.Pad3", "scene1.pads", "scene1.3", "scene1.*", "scene1.p",
               "scene1..CR"},
              ": at character 8, common, group, knob, slider, pad or key was expected"},
             {{"scene1.pad9.CR", "scene1.pad"}, pad},
             {{"scene1.key26", "scene1.key100"}, key},
             {{"scene1.common1"}, ": at character 14" + end},
             {{"scene1.knob1.CR"},
              ": at character 14, one of Enable, CCOrNoteNumber, UpperOrRightValue, "
              "LowerOrLeftValue was expected"},
             {{"scene1.group1.midichannel"}, ": at character 15, one of MIDIChannel was expected"},
             {{"scene1.pad1.SceneName"},
              ": at character 13, one of AssignType, CCOrNoteNumber, MIDIChannel, PadBehavior, "
              "OnValue, OffValue, CR, CG, CB, colour was expected"},
             {{"scene1.common."},
              ": at character 15, one of SceneName, GlobalMIDICh, PianoKeyCh, PitchBendSpeed, "
              "KeyTranspose, KeyVelocityCurve, KeyConstVelocity, PadVelocityCurve, "
              "PadConstVelocity was expected"},
             {{"scene1.pad1.CR2", "scene1.pad1.CR.x"}, ": at character 15, the end was expected"},
         })
        for (const std::string& text : row.texts)
            EXPECT_EQ(errorOf(text), text + row.error);
    EXPECT_EQ(errorOf(""), "an empty path: at character 1, \"scene\" was expected");
}

TEST(Path, ErrorStaysOneShortLine) {
    const std::string error = errorOf("scene1.\n\xFF" + std::string(10000, 'x'));
    EXPECT_EQ(error.find('\n'), std::string::npos);
    EXPECT_LT(error.size(), 250U);
    EXPECT_EQ(error.substr(0, 13), "scene1.\xEF\xBF\xBD\xEF\xBF\xBD");
}

TEST(Path, AnyByteInAnyPlaceIsReadOrTold) {
    const std::string path = "scene1.pad3.CR";
    for (std::size_t at = 0; at < path.size(); ++at) {
        EXPECT_NE(errorOf(path.substr(0, at)), "");
        for (int byte = 0; byte < 256; ++byte) {
            std::string text = path;
            text[at] = static_cast<char>(byte);
            EXPECT_NE(errorOf(text), "");
        }
    }
}

} // namespace scenewright
