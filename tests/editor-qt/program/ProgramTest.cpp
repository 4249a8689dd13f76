#include "bank/BankFile.h"
#include "editor/ValuePopUps.h"
#include "tests/editor-qt/UsableScenes.h"
#include "tests/editor-qt/program/ProgramBench.h"
#include "tests/support/RunProgram.h"

#include <QTest>
#include <fmt/format.h>

#include <filesystem>

namespace scenewright::testing {
namespace {

std::string programPath() {
    return SCENEWRIGHT_BINARY_DIR "/bin/scenewright";
}

std::vector<std::uint8_t> bytesOf(const SceneList& scenes) {
    const BankImage image = encodeBank(scenes);
    return {image.begin(), image.end()};
}

// "OFFSET: is VALUE, not VALUE" for each byte that is not as expected.
std::string differences(const std::vector<std::uint8_t>& is,
                        const std::vector<std::uint8_t>& expected) {
    std::string text;
    for (std::size_t place = 0; place < is.size() && place < expected.size(); ++place)
        if (is[place] != expected[place])
            text += fmt::format("{}: is {}, not {}\n", place, is[place], expected[place]);
    return text;
}

class ProgramTest : public ProgramBench {
protected:
    ProgramTest() { writeBytes(bankFile(), bytesOf(usableScenes())); }
};

TEST_F(ProgramTest, ReadsAndSendsBackWhatTheControllerHolds) {
    start();
    const auto before = bank();
    read();
    send();
    EXPECT_EQ(bank(), before);
    key("ctrl+q");
    EXPECT_EQ(waitForExit(), 0);
}

TEST_F(ProgramTest, SceneRowAndPictureButtonAreChosenWithTheMouse) {
    start();
    click(twin().scenes().segment(2));
    EXPECT_TRUE(waitForLog(QStringLiteral("SceneValue SCENE3, 45 controls")));
    const ControlList& list = twin().list();
    clickAt(*list.viewport(), list.visualRect(list.model()->index(5, 0)).center());
    EXPECT_TRUE(waitForLog(QStringLiteral("表格选中:5")));
    chooseControl(45);
    EXPECT_TRUE(waitForLog(QStringLiteral("点击了按钮：45")));
    EXPECT_TRUE(waitForLog(QStringLiteral("表格选中:45")));
}

// The second scene, the first control of each kind; what comes first in a pane decides over what
// comes after it, so each pane is gone through from its end.
TEST_F(ProgramTest, EveryOneOfThe31PopUpsReachesTheControllerAndNothingElse) {
    start();
    read();
    key("ctrl+2");
    const SceneList expected = usableScenes();
    twin().view().showSceneValue(); // the stored scenes are usable ones now: the lists as well
    const auto rows = valuePopUps();
    for (std::size_t place = rows.size(); place-- > 0;) {
        const ValuePopUp& row = rows[place];
        chooseControl(controlRange(row.pane()).start);
        PopUpBox& box = twin().panes().popUp(row.name);
        const std::int32_t value = (row.setting->read(*expected.at(1), 0) + 1) % box.count();
        click(box);
        typeText(box.itemText(value));
        key("Return");
        row.setting->write(*expected.at(1), 0, value);
    }
    send();
    EXPECT_EQ(differences(bank(), bytesOf(expected)), "");
    EXPECT_NE(bank(), bytesOf(usableScenes()));
}

TEST_F(ProgramTest, ChangedControllerIsSeenAfterARead) {
    SceneList scenes = usableScenes();
    const auto pad = scenes.at(0)->buttonValueArray().at(15);
    pad->setCR(127);
    pad->setCG(0);
    pad->setCB(127);
    scenes.at(0)->commonValue()->setSceneName("CHANGED");
    writeBytes(bankFile(), bytesOf(scenes));
    start();
    const ControlButton& button = *twin().picture().button(16);
    const QPoint light(button.width() / 2, 14);
    EXPECT_NE(seenAt(button, light), QColor(255, 0, 255));
    read();
    EXPECT_TRUE(waitUntil([&] { return seenAt(button, light) == QColor(255, 0, 255); }));
    EXPECT_TRUE(waitForLog(QStringLiteral("SceneValue CHANGED, 45 controls")));
}

TEST_F(ProgramTest, AFileGivenAtTheStartIsWhatIsSent) {
    SceneList scenes = usableScenes();
    scenes.at(2)->commonValue()->setPitchBendSpeed(77);
    const std::string file = folder().file("given.bank");
    writeBytes(file, bytesOf(scenes));
    start({QString::fromStdString(file)});
    send();
    EXPECT_EQ(differences(bank(), bytesOf(scenes)), "");
    EXPECT_NE(bank(), bytesOf(usableScenes()));
}

TEST_F(ProgramTest, CloseButtonEndsTheProcess) {
    start();
    pressCloseButton();
    EXPECT_EQ(waitForExit(), 0);
}

TEST_F(ProgramTest, ReadIsRefusedWhileASendRuns) {
    start();
    read();
    key("ctrl+Return");
    key("ctrl+r");
    click(twin().readButton());
    ASSERT_TRUE(waitForLog(kSendDone));
    QTest::qWait(500);
    EXPECT_EQ(log().count(QStringLiteral("readSceneData  (null)")), 1);
    key("ctrl+r");
    EXPECT_TRUE(waitForLog(kReadDone, 2));
}

TEST_F(ProgramTest, QuitDuringASendWaitsUntilTheBankIsWhole) {
    start();
    read();
    chooseControl(13);
    PopUpBox& red = twin().panes().popUp("padCR");
    click(red);
    typeText("99");
    key("Return");
    key("ctrl+Return");
    pressCloseButton();
    EXPECT_EQ(waitForExit(), 0);
    SceneList expected = usableScenes();
    expected.at(0)->buttonValueArray().at(12)->setCR(99);
    EXPECT_EQ(bank(), bytesOf(expected));
}

TEST_F(ProgramTest, WheelOverUnfocusedPopUpsChangesNothing) {
    start();
    read();
    chooseControl(13);
    for (const char* outlet : {"padCR", "padCG", "padMIDIChannel"})
        click(twin().panes().popUp(outlet), 5);
    send();
    EXPECT_EQ(bank(), bytesOf(usableScenes()));
}

TEST_F(ProgramTest, KeysAloneChangeASetting) {
    start();
    read();
    chooseControl(13);
    key("alt+r");
    typeText("17");
    send();
    SceneList expected = usableScenes();
    expected.at(0)->buttonValueArray().at(12)->setCR(17);
    EXPECT_EQ(bank(), bytesOf(expected));
}

TEST_F(ProgramTest, TerminateSignalEndsItByThatSignal) {
    start();
    program().terminate();
    ASSERT_TRUE(program().waitForFinished(10000));
    EXPECT_EQ(program().exitStatus(), QProcess::CrashExit);
}

TEST_F(ProgramTest, TitleNamesTheVirtualController) {
    start(); // finds the window by that part of its title
    EXPECT_TRUE(isRunning());
}

TEST(ProgramWithoutADisplay, SaysSoInOneSentence) {
    const auto run = runProgram({programPath(), "--virtual"}, {"DISPLAY=", "QT_QPA_PLATFORM="});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.output, "");
    EXPECT_EQ(run.errors,
              "scenewright: there is no display to open a window on; scenewright-cli does the same "
              "work without one\n");
}

TEST(ProgramWithoutADisplay, DisplayThatDoesNotAnswerIsNamed) {
    const auto run = runProgram({programPath(), "--virtual"}, {"DISPLAY=:9999"});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.errors,
              "scenewright: cannot open a window: could not connect to display :9999\n");
}

TEST(ProgramOptions, UnknownOptionIsRefused) {
    const auto run = runProgram({programPath(), "--nonsense"});
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_TRUE(run.errors.starts_with("scenewright: "));
}

TEST(ProgramOptions, VersionIsTold) {
    const auto run = runProgram({programPath(), "--version"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_TRUE(run.output.starts_with("scenewright "));
}

TEST(ProgramOptions, FolderOfResourcesThatIsMissingIsRefused) {
    const auto run = runProgram({programPath(), "--virtual", "--resources", "/no/such/folder"});
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_EQ(run.errors, "scenewright: /no/such/folder: no such folder of resources\n");
}

struct SheetCase {
    std::vector<std::string> words;
    int exitCode;
    std::string errors; // the end of them
};

TEST(ProgramSheet, TheCommandLineDrawsItWithoutADisplay) {
    const TempFolder folder;
    const std::string bank = folder.file("live.bank");
    const std::string pdf = folder.file("live.pdf");
    writeBytes(bank, bytesOf(usableScenes()));
    const std::string cli = SCENEWRIGHT_BINARY_DIR "/bin/scenewright-cli";
    for (const SheetCase& row : std::vector<SheetCase>{
             {{cli, "sheet", bank, pdf}, 0, ""},
             {{cli, "sheet", "--scene", "2", "--paper", "Letter", bank, pdf}, 0, ""},
             {{programPath(), "--sheet", pdf, bank}, 0, ""},
             {{cli, "sheet", folder.file("none"), pdf}, 2, "No such file or directory.\n"},
             {{cli, "sheet", bank, folder.file("live.gif")}, 1, "one of pdf, svg, png\n"},
             {{cli, "sheet", bank, bank}, 1, "one of pdf, svg, png\n"},
             {{programPath(), "--sheet", pdf}, 2, "FILE is missing (--help tells more)\n"},
             {{programPath(), "--scene", "2", bank},
              2,
              "--scene and --paper belong to --sheet (--help tells more)\n"}}) {
        std::filesystem::remove(pdf);
        const auto run = runProgram(row.words, {"DISPLAY=", "QT_QPA_PLATFORM="});
        EXPECT_EQ(run.exitCode, row.exitCode) << run.errors;
        EXPECT_TRUE(run.errors.ends_with(row.errors)) << run.errors;
        EXPECT_EQ(run.errors.empty(), row.errors.empty()) << run.errors;
        EXPECT_EQ(std::filesystem::exists(pdf), row.exitCode == 0);
    }
    EXPECT_EQ(readBytes(bank), bytesOf(usableScenes()));
}

} // namespace
} // namespace scenewright::testing
