#include "bank/BankFile.h"
#include "editor/ValuePopUps.h"
#include "editor/qt/DeviceCommands.h"
#include "model/PopUpValue.h"
#include "tests/editor-qt/UsableScenes.h"
#include "tests/editor-qt/program/ProgramBench.h"
#include "tests/support/RunProgram.h"

#include <QElapsedTimer>
#include <QTest>
#include <fmt/format.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

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
    key("ctrl+q");
    EXPECT_EQ(waitForExit(), 0);
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
    QElapsedTimer sinceClose;
    sinceClose.start();
    pressCloseButton();
    EXPECT_EQ(waitForExit(), 0);
    SceneList expected = usableScenes();
    // A busy machine can make a send take longer than a quit waits for it.
    if (sinceClose.hasExpired(QuitController::kLimit.count()) && bank() == bytesOf(expected))
        return;
    expected.at(0)->buttonValueArray().at(12)->setCR(99);
    EXPECT_EQ(differences(bank(), bytesOf(expected)), "");
}

struct Refusal {
    std::vector<std::string> words;
    std::vector<std::string> environment;
    int exitCode;
    std::string errors; // the beginning of them
};

TEST(Program, SaysInOneSentenceWhyItDoesNotStart) {
    const TempFolder folder;
    const std::string noBank = folder.file("short.bank");
    std::ofstream(noBank) << "short";
    for (const Refusal& row : std::vector<Refusal>{
             {{"--virtual"},
              {"DISPLAY=", "QT_QPA_PLATFORM="},
              1,
              "scenewright: there is no display to open a window on; scenewright-cli does the same "
              "work without one\n"},
             {{"--virtual"},
              {"DISPLAY=:9999"},
              1,
              "scenewright: cannot open a window: could not connect to display :9999\n"},
             {{"--nonsense"}, {}, 2, "scenewright: "},
             {{"--virtual", "--resources", "/no/such/folder"},
              {},
              2,
              "scenewright: /no/such/folder: no such folder of resources\n"},
             {{"--virtual=" + noBank},
              {},
              2,
              "scenewright: " + noBank + ": not a bank for the virtual controller: "}}) {
        std::vector<std::string> words = row.words;
        words.insert(words.begin(), programPath());
        const auto run = runProgram(words, row.environment);
        EXPECT_EQ(run.exitCode, row.exitCode) << run.errors;
        EXPECT_EQ(run.output, "");
        EXPECT_TRUE(run.errors.starts_with(row.errors)) << run.errors;
        EXPECT_EQ(std::ranges::count(run.errors, '\n'), 1) << run.errors;
    }
    EXPECT_TRUE(runProgram({programPath(), "--version"}).output.starts_with("scenewright "));
}

struct SheetCase {
    std::vector<std::string> words;
    int exitCode;
    std::string errors; // the end of them
};

TEST(ProgramSheet, TheCommandLineDrawsItWithoutADisplay) {
    const TempFolder folder;
    const std::string bank = folder.file("live.bank");
    const std::string scene = folder.file("one.scene.json");
    const std::string pdf = folder.file("live.pdf");
    writeBytes(bank, bytesOf(usableScenes()));
    ASSERT_TRUE(writeScene(scene, *usableScenes().front(), *loadPopUpValue()));
    const std::string cli = SCENEWRIGHT_BINARY_DIR "/bin/scenewright-cli";
    for (const SheetCase& row : std::vector<SheetCase>{
             {{cli, "sheet", bank, pdf}, 0, ""},
             {{cli, "sheet", "--scene", "2", "--paper", "Letter", bank, pdf}, 0, ""},
             {{programPath(), "--sheet", pdf, bank}, 0, ""},
             {{cli, "sheet", folder.file("none"), pdf}, 2, "No such file or directory.\n"},
             {{cli, "sheet", bank, folder.file("live.gif")}, 1, "one of pdf, svg, png\n"},
             {{cli, "sheet", bank, bank}, 1, "one of pdf, svg, png\n"},
             {{programPath(), "--sheet", pdf, "--scene", "1", scene}, 0, ""},
             {{programPath(), "--sheet", pdf, "--scene", "2", scene}, 2, "it holds one scene\n"},
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

TEST(ProgramSheet, WithoutItsModuleSaysWhichFileIsMissingAndWritesNone) {
    const TempFolder folder;
    const std::string bank = folder.file("live.bank");
    const std::string svg = folder.file("live.svg");
    writeBytes(bank, bytesOf(usableScenes()));
    std::filesystem::create_directory(folder.file("bin"));
    std::filesystem::copy(programPath(), folder.file("bin/scenewright"));
    const auto run = runProgram({folder.file("bin/scenewright"), "--resources",
                                 SCENEWRIGHT_BINARY_DIR "/share/scenewright", "--sheet", svg, bank},
                                {"DISPLAY=", "QT_QPA_PLATFORM="});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.errors, "scenewright: " + folder.file("bin/../lib/scenewright/paper.so") +
                              ": cannot open shared object file: No such file or directory\n");
    EXPECT_FALSE(std::filesystem::exists(svg));
}

} // namespace
} // namespace scenewright::testing
