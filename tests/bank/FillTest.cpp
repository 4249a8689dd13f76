#include "bank/Fill.h"

#include "bank/BankFile.h"
#include "bank/Edit.h"
#include "bank/SettingText.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace scenewright {

namespace {

using Bytes = std::vector<int>;

const PopUpValue& lists() {
    static const auto kLists = loadPopUpValue();
    return *kLists;
}

// Where the fields of each kind stand in a scene's image.
constexpr std::size_t kKeyTypes = 20;
constexpr std::size_t kKeyNumbers = 70;
constexpr std::size_t kKnobNumbers = 153;
constexpr std::size_t kPadTypes = 181;
constexpr std::size_t kPadNumbers = 189;
constexpr std::size_t kPadChannels = 197;
constexpr std::size_t kPadReds = 229;
constexpr std::size_t kPadGreens = 237;
constexpr std::size_t kPadBlues = 245;

// Every pad and key sends a controller, and all else is 0.
SceneList scenesOfControllers() {
    return setValues(
               lists(), parseScenes(BankImage{}),
               std::vector<std::string>{"scene*.pad*.AssignType=CC", "scene*.key*.AssignType=CC"})
        .value();
}

Bytes bytes(const SceneList& scenes, std::size_t from, std::size_t count = 8) {
    const BankImage image = encodeBank(scenes);
    return {image.begin() + static_cast<long>(from),
            image.begin() + static_cast<long>(from + count)};
}

FilledScenes fill(std::string_view path, std::string_view start, const FillSteps& steps = {}) {
    const SceneList scenes = scenesOfControllers();
    auto filled = fillValues(lists(), scenes, path, start, steps);
    EXPECT_EQ(encodeBank(scenes), encodeBank(scenesOfControllers()));
    return filled;
}

FillSteps scaleSteps(std::string_view name) {
    return stepsOf(*findScale(name));
}

std::string errorOf(const FilledScenes& scenes) {
    return scenes ? "none" : scenes.error().text;
}

void expectScale(const char* name, const Bytes& notes) {
    const auto filled = fill("scene1.pad*", "C4", scaleSteps(name));
    ASSERT_TRUE(filled) << name << filled.error().text;
    EXPECT_EQ(bytes(*filled, kPadNumbers), notes) << name;
    EXPECT_EQ(bytes(*filled, kPadTypes), Bytes(8, 2)) << name;
}

} // namespace

TEST(FillValues, ScaleTakesItsNotes) {
    for (const auto& [name, notes] : std::initializer_list<std::pair<const char*, Bytes>>{
             {"major", {60, 62, 64, 65, 67, 69, 71, 72}},
             {"ionian", {60, 62, 64, 65, 67, 69, 71, 72}},
             {"dorian", {60, 62, 63, 65, 67, 69, 70, 72}},
             {"phrygian", {60, 61, 63, 65, 67, 68, 70, 72}},
             {"lydian", {60, 62, 64, 66, 67, 69, 71, 72}},
             {"mixolydian", {60, 62, 64, 65, 67, 69, 70, 72}},
             {"minor", {60, 62, 63, 65, 67, 68, 70, 72}},
             {"aeolian", {60, 62, 63, 65, 67, 68, 70, 72}},
             {"locrian", {60, 61, 63, 65, 66, 68, 70, 72}},
             {"harmonic-minor", {60, 62, 63, 65, 67, 68, 71, 72}},
             {"melodic-minor", {60, 62, 63, 65, 67, 69, 71, 72}},
             {"major-pentatonic", {60, 62, 64, 67, 69, 72, 74, 76}},
             {"minor-pentatonic", {60, 63, 65, 67, 70, 72, 75, 77}},
             {"blues", {60, 63, 65, 66, 67, 70, 72, 75}},
             {"whole-tone", {60, 62, 64, 66, 68, 70, 72, 74}},
             {"chromatic", {60, 61, 62, 63, 64, 65, 66, 67}},
             {"fourths", {60, 65, 70, 75, 80, 85, 90, 95}},
             {"fifths", {60, 67, 74, 81, 88, 95, 102, 109}}})
        expectScale(name, notes);
    EXPECT_EQ(bytes(fill("scene1.pad*", "C0", scaleSteps("octaves")).value(), kPadNumbers),
              (Bytes{12, 24, 36, 48, 60, 72, 84, 96}));
    EXPECT_EQ(scales().size(), 19U);
    EXPECT_EQ(findScale("Major"), nullptr);
}

TEST(FillValues, StartOfControlsTellsTheSetting) {
    const SceneList notes = fill("scene1.pad*", "c#2").value();
    EXPECT_EQ(bytes(notes, kPadNumbers), (Bytes{37, 38, 39, 40, 41, 42, 43, 44}));
    EXPECT_EQ(bytes(notes, kPadTypes), Bytes(8, 2));
    const SceneList controllers = fillValues(lists(), notes, "scene1.pad*", "cc:20").value();
    EXPECT_EQ(bytes(controllers, kPadNumbers), (Bytes{20, 21, 22, 23, 24, 25, 26, 27}));
    EXPECT_EQ(bytes(controllers, kPadTypes), Bytes(8, 1));
    EXPECT_EQ(bytes(fill("scene1.pad*", "cc:sustain").value(), kPadNumbers).front(), 64);
    EXPECT_EQ(bytes(fill("scene1.pad*", "ch:10").value(), kPadChannels), Bytes(8, 9));
    EXPECT_EQ(bytes(fill("scene1.knob*", "16").value(), kKnobNumbers, 4), (Bytes{16, 17, 18, 19}));
    EXPECT_EQ(bytes(fill("scene1.key3", "C4").value(), kKeyNumbers, 4), (Bytes{0, 0, 60, 0}));
    EXPECT_EQ(bytes(fill("scene1.key3", "C4").value(), kKeyTypes, 4), (Bytes{1, 1, 2, 1}));
    EXPECT_EQ(bytes(fill("scene1.pad*", "#ff0000").value(), kPadReds), Bytes(8, 127));
}

TEST(FillValues, StepsAreWhatTheSettingSuggestsUnlessGiven) {
    const std::string number = "scene1.pad*.CCOrNoteNumber";
    EXPECT_EQ(bytes(fill(number, "20").value(), kPadNumbers),
              (Bytes{20, 21, 22, 23, 24, 25, 26, 27}));
    EXPECT_EQ(bytes(fill(number, "20", {.intervals = Intervals{-2}}).value(), kPadNumbers),
              (Bytes{20, 18, 16, 14, 12, 10, 8, 6}));
    EXPECT_EQ(bytes(fill(number, "20", {.intervals = Intervals{2, 2, 3}}).value(), kPadNumbers),
              (Bytes{20, 22, 24, 27, 29, 31, 34, 36}));
    EXPECT_EQ(bytes(fill("scene1.pad*.MIDIChannel", "ch:10").value(), kPadChannels), Bytes(8, 9));
    EXPECT_EQ(bytes(fill("scene1.pad*.MIDIChannel", "ch:1", {.intervals = Intervals{1}}).value(),
                    kPadChannels),
              (Bytes{0, 1, 2, 3, 4, 5, 6, 7}));
}

TEST(FillValues, EachSceneBeginsAnew) {
    const SceneList filled = fill("scene*.pad*", "C1").value();
    for (std::size_t scene = 0; scene < 4; ++scene)
        EXPECT_EQ(bytes(filled, scene * 253 + kPadNumbers),
                  (Bytes{24, 25, 26, 27, 28, 29, 30, 31}));
}

TEST(FillValues, ColoursGoFromOneToTheOtherOrInTurn) {
    const std::string path = "scene1.pad*.colour";
    const SceneList gradient = fill(path, "#ff0000..#ffff00").value();
    EXPECT_EQ(bytes(gradient, kPadReds), Bytes(8, 127));
    EXPECT_EQ(bytes(gradient, kPadGreens), (Bytes{0, 18, 36, 54, 73, 91, 109, 127}));
    EXPECT_EQ(bytes(gradient, kPadBlues), Bytes(8, 0));
    const SceneList stations = fill(path, "#000000..#ff0000..#ffffff").value();
    EXPECT_EQ(bytes(stations, kPadReds), (Bytes{0, 36, 73, 109, 127, 127, 127, 127}));
    EXPECT_EQ(bytes(stations, kPadBlues), (Bytes{0, 0, 0, 0, 18, 54, 91, 127}));
    const SceneList turns = fill(path, "#ff0000,#00ff00,#0000ff").value();
    EXPECT_EQ(bytes(turns, kPadReds), (Bytes{127, 0, 0, 127, 0, 0, 127, 0}));
    EXPECT_EQ(bytes(turns, kPadBlues), (Bytes{0, 0, 127, 0, 0, 127, 0, 0}));
    EXPECT_EQ(bytes(fill("scene1.pad2.colour", "#ff0000..#00ff00").value(), kPadReds, 3),
              (Bytes{0, 127, 0}));
    EXPECT_EQ(bytes(fill(path, "safe").value(), kPadReds),
              (Bytes{0, 127, 127, 127, 127, 0, 90, 0}));
}

TEST(FillValues, ErrorIsOnePhraseAndNothingIsFilled) {
    const std::string colours =
        ": a colour as in #ff8000, several with commas between, the first and "
        "the last as in #ff0000..#ffff00, or one of bright, safe was expected";
    const std::string ends = ", and its options go from 0 (C-1) to 127 (G9)";
    const std::string noNote = " is no note, and a scale needs notes";
    const std::string noPath =
        ": the path of controls or of a setting that is a number was expected";
    struct Row {
        const char* path;
        const char* start;
        std::string error;
        FillSteps steps = {};
    };
    for (const Row& row : std::initializer_list<Row>{
             {"scene1.key*", "C9", "scene1.key9.CCOrNoteNumber would be 128" + ends},
             {"scene1.pad*",
              "C-1",
              "scene1.pad2.CCOrNoteNumber would be -1" + ends,
              {.intervals = Intervals{-1}}},
             {"scene1.pad*.CCOrNoteNumber", "C2",
              "scene1.pad1.CCOrNoteNumber has no option \"C2\": its options go from 0 to 127"},
             {"scene1.pad*.CCOrNoteNumber", "20", "scene1.pad1.CCOrNoteNumber" + noNote,
              scaleSteps("major")},
             {"scene1.knob*", "20", "scene1.knob1.CCOrNoteNumber" + noNote, scaleSteps("major")},
             {"scene1.pad*.CR", "5", "scene1.pad1.CR" + noNote, scaleSteps("major")},
             {"scene1.pad*.colour", "red",
              "scene1.pad*.colour cannot be filled with \"red\"" + colours},
             {"scene1.pad*.colour",
              "#ff0000",
              "scene1.pad*.colour cannot be filled with \"#ff0000\"" + colours,
              {.intervals = Intervals{1}}},
             {"scene1.group*", "20", "scene1.group* cannot be filled with \"20\""},
             {"scene1.group*", "", "scene1.group* cannot be filled with \"\""},
             {"scene1.key*", "ch:10", "scene1.key* cannot be filled with \"ch:10\""},
             {"scene1", "20", "scene1" + noPath},
             {"scene1.common.SceneName", "20", "scene1.common.SceneName" + noPath},
             {"scene1.pad9", "20",
              "scene1.pad9: at character 11, a pad's number from 1 to 8 or * was expected"}})
        EXPECT_EQ(errorOf(fill(row.path, row.start, row.steps)), row.error) << row.path;
}

TEST(FillValues, ErrorTellsItsCauseAndTheControl) {
    using Cause = FillError::Cause;
    const FilledScenes tooHigh = fill("scene1.key*", "C9");
    ASSERT_FALSE(tooHigh);
    EXPECT_EQ(tooHigh.error().cause, Cause::TooHigh);
    EXPECT_EQ(pathOf(tooHigh.error().place), "scene1.key9.CCOrNoteNumber");
    EXPECT_EQ(tooHigh.error().end, "G9");
    const FilledScenes tooLow = fill("scene1.knob*", "1", {.intervals = Intervals{-1}});
    ASSERT_FALSE(tooLow);
    EXPECT_EQ(tooLow.error().cause, Cause::TooLow);
    EXPECT_EQ(pathOf(tooLow.error().place), "scene1.knob3.CCOrNoteNumber");
    EXPECT_EQ(tooLow.error().end, "0");
    EXPECT_EQ(fill("scene1.pad*", "H2").error().cause, Cause::Start);
    EXPECT_EQ(fill("scene1.knob*", "20", scaleSteps("major")).error().cause, Cause::NoNote);
    EXPECT_EQ(fill("scene1", "20").error().cause, Cause::Usage);
    EXPECT_EQ(transposeNotes(lists(), scenesOfControllers(), "scene1", 1).error().cause,
              Cause::NoneNotes);
}

TEST(FillValues, IntervalsAreWholeNumbersWithCommasBetween) {
    EXPECT_EQ(intervalsOf("2,2,3"), (Intervals{2, 2, 3}));
    EXPECT_EQ(intervalsOf("-12"), Intervals{-12});
    for (const char* text :
         {"", "2,", ",2", "2;2", "a", "128", "-128", "2.5", "-2147483648", "99999999999"})
        EXPECT_EQ(intervalsOf(text), std::nullopt) << text;
}

TEST(TransposeNotes, NotesMoveAndControllersStay) {
    const SceneList scenes = setValues(lists(), scenesOfControllers(),
                                       std::vector<std::string>{"scene1.pad*.CCOrNoteNumber=60",
                                                                "scene1.pad2.AssignType=Note",
                                                                "scene1.key25.AssignType=Note",
                                                                "scene1.key25.CCOrNoteNumber=C4"})
                                 .value();
    const SceneList up = transposeNotes(lists(), scenes, "scene1", 7).value();
    EXPECT_EQ(bytes(up, kPadNumbers), (Bytes{60, 67, 60, 60, 60, 60, 60, 60}));
    EXPECT_EQ(bytes(up, kKeyNumbers + 24, 1), Bytes{67});
    EXPECT_EQ(bytes(scenes, kPadNumbers), Bytes(8, 60));
    EXPECT_EQ(
        encodeBank(transposeNotes(lists(), up, "scene*.pad*", -7).value()),
        encodeBank(setValues(lists(), up, std::vector<std::string>{"scene1.pad2.CCOrNoteNumber=60"})
                       .value()));
    EXPECT_EQ(
        errorOf(transposeNotes(lists(), scenes, "scene1.pad*", 68)),
        "scene1.pad2.CCOrNoteNumber would be 128, and its options go from 0 (C-1) to 127 (G9)");
    EXPECT_EQ(
        errorOf(transposeNotes(lists(), scenes, "scene1.pad2", -61)),
        "scene1.pad2.CCOrNoteNumber would be -1, and its options go from 0 (C-1) to 127 (G9)");
    EXPECT_EQ(errorOf(transposeNotes(lists(), scenes, "scene1.knob*", 1)),
              "scene1.knob*: nothing there sends notes");
    EXPECT_EQ(errorOf(transposeNotes(lists(), scenes, "scene9", 1)),
              "scene9: at character 6, a scene's number from 1 to 4 or * was expected");
}

} // namespace scenewright
