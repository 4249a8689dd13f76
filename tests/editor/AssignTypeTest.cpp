// The rule of a pad's or key's assign type.
#include "tests/editor/EditorBench.h"

#include <cstdint>

namespace scenewright::testing {

namespace {

using AssignType = EditorBench;

} // namespace

TEST_F(AssignType, PadToNote) {
    loaded();
    record(13).setAssignType(1);
    choose(13);
    journal.clear();
    pick("padAssignType", 2);
    EXPECT_EQ(journal.withoutPicture(),
              (Lines{"padCCOrNoteNumber.setEnabled(yes)", "padOnValue.setEnabled(no)",
                     "padOffValue.setEnabled(no)", "padPadBehavior.setEnabled(yes)",
                     "padMIDIChannel.setEnabled(yes)", "padCCOrNoteNumber.removeAllItems()",
                     "padCCOrNoteNumber.addItems(button-note:0 x128)",
                     "padCCOrNoteNumber.selectItem(36)"}));
    EXPECT_EQ(button(13).title.text, "Note\nbutton-note:36");
}

TEST_F(AssignType, PadToController) {
    loaded();
    choose(13);
    journal.clear();
    pick("padAssignType", 1);
    EXPECT_EQ(journal.withoutPicture(),
              (Lines{"padCCOrNoteNumber.setEnabled(yes)", "padOnValue.setEnabled(yes)",
                     "padOffValue.setEnabled(yes)", "padPadBehavior.setEnabled(yes)",
                     "padMIDIChannel.setEnabled(yes)", "padCCOrNoteNumber.removeAllItems()",
                     "padCCOrNoteNumber.addItems(select127:0 x128)",
                     "padCCOrNoteNumber.selectItem(36)"}));
    EXPECT_EQ(button(13).title.text, "CC#\nselect127:36");
}

TEST_F(AssignType, PadToOffKeepsTheNumbersEntries) {
    loaded();
    choose(13);
    journal.clear();
    pick("padAssignType", 0);
    EXPECT_EQ(journal.withoutPicture(),
              (Lines{"padCCOrNoteNumber.setEnabled(no)", "padOnValue.setEnabled(no)",
                     "padOffValue.setEnabled(no)", "padPadBehavior.setEnabled(no)",
                     "padMIDIChannel.setEnabled(no)"}));
    EXPECT_EQ(popUp("padCCOrNoteNumber").titles.size(), 128U);
    EXPECT_EQ(popUp("padCCOrNoteNumber").selected, 36);
    EXPECT_EQ(button(13).title.text, "---");
}

TEST_F(AssignType, PadToAnythingElseOnlyRefreshesTheSummary) {
    loaded();
    choose(13);
    for (const std::int32_t type : {-1, 3, 127}) {
        journal.clear();
        pick("padAssignType", type);
        EXPECT_EQ(record(13).AssignType(), type);
        EXPECT_EQ(journal.withoutPicture(), Lines{});
        EXPECT_EQ(journal.of("button13.setTitle"), Lines{"button13.setTitle(---)"});
    }
}

TEST_F(AssignType, KeyToNote) {
    loaded();
    record(21).setAssignType(1);
    choose(21);
    journal.clear();
    pick("keyAssignType", 2);
    EXPECT_EQ(journal.withoutPicture(),
              (Lines{"keyCCOrNoteNumber.setEnabled(yes)", "keyOnValue.setEnabled(no)",
                     "keyOffValue.setEnabled(no)", "keyKeyBehavior.setEnabled(yes)",
                     "keyCCOrNoteNumber.removeAllItems()",
                     "keyCCOrNoteNumber.addItems(button-note:0 x128)",
                     "keyCCOrNoteNumber.selectItem(60)"}));
}

TEST_F(AssignType, KeyToController) {
    loaded();
    choose(21);
    journal.clear();
    pick("keyAssignType", 1);
    EXPECT_EQ(
        journal.withoutPicture(),
        (Lines{"keyCCOrNoteNumber.setEnabled(yes)", "keyOnValue.setEnabled(yes)",
               "keyOffValue.setEnabled(yes)", "keyKeyBehavior.setEnabled(yes)",
               "keyCCOrNoteNumber.removeAllItems()", "keyCCOrNoteNumber.addItems(select127:0 x128)",
               "keyCCOrNoteNumber.selectItem(60)"}));
}

TEST_F(AssignType, KeyToOffKeepsTheNumbersEntries) {
    loaded();
    choose(21);
    journal.clear();
    pick("keyAssignType", 0);
    EXPECT_EQ(journal.withoutPicture(),
              (Lines{"keyCCOrNoteNumber.setEnabled(no)", "keyOnValue.setEnabled(no)",
                     "keyOffValue.setEnabled(no)", "keyKeyBehavior.setEnabled(no)"}));
    EXPECT_EQ(popUp("keyCCOrNoteNumber").titles.size(), 128U);
}

TEST_F(AssignType, NoteNumberWithinTheListIsKept) {
    loaded();
    choose(13);
    record(13).setCCOrNoteNumber(127);
    pick("padAssignType", 2);
    EXPECT_EQ(record(13).CCOrNoteNumber(), 127);
    EXPECT_EQ(popUp("padCCOrNoteNumber").selected, 127);
}

TEST_F(AssignType, NoteNumberBeyondTheListBecomesItsLast) {
    setEntries("button-note", 100);
    loaded();
    choose(13);
    record(13).setCCOrNoteNumber(127);
    pick("padAssignType", 2);
    EXPECT_EQ(record(13).CCOrNoteNumber(), 99);
    EXPECT_EQ(popUp("padCCOrNoteNumber").selected, 99);
}

TEST_F(AssignType, NoteNumberEqualToTheListsLengthIsSpared) {
    setEntries("button-note", 100);
    loaded();
    choose(13);
    record(13).setCCOrNoteNumber(100);
    pick("padAssignType", 2);
    EXPECT_EQ(record(13).CCOrNoteNumber(), 100);
    EXPECT_EQ(popUp("padCCOrNoteNumber").selected, -1);
    EXPECT_EQ(button(13).title.text, "---");
}

TEST_F(AssignType, NoteNumberOneAboveTheListsLengthIsClamped) {
    setEntries("button-note", 100);
    loaded();
    choose(13);
    record(13).setCCOrNoteNumber(101);
    pick("padAssignType", 2);
    EXPECT_EQ(record(13).CCOrNoteNumber(), 99);
}

TEST_F(AssignType, AbsentNumberCountsAsBeyondTheList) {
    loaded();
    choose(21);
    record(21).setCCOrNoteNumber(-1);
    pick("keyAssignType", 2);
    EXPECT_EQ(record(21).CCOrNoteNumber(), 127);
    EXPECT_EQ(popUp("keyCCOrNoteNumber").selected, 127);
}

TEST_F(AssignType, NumberIsNotClampedOnTheWayToAController) {
    setEntries("button-note", 100);
    loaded();
    choose(13);
    record(13).setCCOrNoteNumber(-1);
    pick("padAssignType", 1);
    EXPECT_EQ(record(13).CCOrNoteNumber(), -1);
    EXPECT_EQ(popUp("padCCOrNoteNumber").selected, -1);
}

TEST_F(AssignType, WithoutANoteListTheNumberBecomesAbsentAndThePopUpStaysEmpty) {
    setEntries("button-note", 0);
    loaded();
    choose(13);
    pick("padAssignType", 2);
    EXPECT_EQ(record(13).CCOrNoteNumber(), -1);
    EXPECT_TRUE(popUp("padCCOrNoteNumber").titles.empty());
}

TEST_F(AssignType, ColoursOfThePadAreNotTouched) {
    loaded();
    choose(13);
    journal.clear();
    for (const std::int32_t type : {0, 1, 2, 3})
        pick("padAssignType", type);
    for (const char* name : {"padCR.", "padCG.", "padCB."})
        EXPECT_EQ(journal.of(name), Lines{});
    EXPECT_EQ(record(13).CR(), 10);
}

TEST_F(AssignType, KeyPaneIsNotTouchedByThePadsRule) {
    loaded();
    choose(13);
    journal.clear();
    pick("padAssignType", 1);
    EXPECT_EQ(journal.of("key"), Lines{});
}

} // namespace scenewright::testing
