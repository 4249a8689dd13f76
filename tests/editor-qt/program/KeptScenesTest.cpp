// What was edited survives the end of the program, whichever it is.
#include "app/Recovery.h"
#include "bank/BankFile.h"
#include "tests/editor-qt/UsableScenes.h"
#include "tests/editor-qt/program/ProgramBench.h"
#include "tests/editor-qt/program/SessionManager.h"

#include <QProcessEnvironment>
#include <QTest>

#include <array>
#include <csignal>
#include <cstdint>
#include <filesystem>
#include <string>

namespace scenewright::testing {
namespace {

constexpr std::int32_t kPad = 13; // the first

struct End {
    const char* name;
    int signal;           // 0 for the close button
    bool isAtOnce = true; // before the program has put the edit on the disk by itself
    bool isOfSession = false;
};

class KeptScenesTest : public ProgramBench, public ::testing::WithParamInterface<End> {
protected:
    KeptScenesTest() {
        const BankImage image = encodeBank(usableScenes());
        writeBytes(bankFile(), image);
    }

    [[nodiscard]] QColor light() {
        const ControlButton& button = *twin().picture().button(kPad);
        return seenAt(button, {button.width() / 2, 14});
    }
    // Of the first pad of the default scenes.
    void editRed() {
        const QColor before = light();
        chooseControl(kPad);
        click(twin().panes().popUp("padCR"));
        typeText(QStringLiteral("99"));
        key("Return");
        ASSERT_TRUE(waitUntil([&] { return light() != before; }));
    }
    void end() {
        if (!GetParam().isAtOnce) {
            ASSERT_TRUE(waitUntil([this] { return isOnDisk(); }));
        }
        if (GetParam().isOfSession) {
            ASSERT_TRUE(waitUntil([this] { return session_.hasClient(); }));
            session_.endSession();
            ASSERT_TRUE(waitUntil([this] { return session_.isSaved(); }));
        }
        if (GetParam().signal == 0)
            pressCloseButton();
        else
            kill(static_cast<pid_t>(program().processId()), GetParam().signal);
        ASSERT_EQ(waitForExit(), GetParam().signal == 0 ? 0 : -1);
    }
    [[nodiscard]] bool isOnDisk() const {
        return std::filesystem::exists(folder().file("state/scenewright/unsent/1.scenes"));
    }
    // The notice's buttons stand in the twin where they stand in the program.
    QPushButton& answer(std::size_t place) {
        twin().notices().post({.source = Notice::Source::Recovery,
                               .kind = Notice::Kind::Error,
                               .text = QStringLiteral("The scenes were neither sent nor saved"),
                               .actions = {{"Bring Back", [] {}}, {"Forget", [] {}}}});
        QApplication::processEvents();
        return *twin().notices().action(place);
    }
    [[nodiscard]] std::int32_t sentRed() const {
        const auto sent = readBank(bankFile());
        return sent ? sent->scenes.at(0)->buttonValueArray().at(kPad - 1)->CR() : -1;
    }
    void joinSession() {
        auto environment = program().processEnvironment();
        environment.insert("SESSION_MANAGER", QString::fromLatin1(session_.variable()));
        program().setProcessEnvironment(environment);
    }

private:
    SessionManager session_;
};

TEST_P(KeptScenesTest, ComeBackAfterTheEnd) {
    joinSession();
    start();
    editRed();
    end();
    EXPECT_TRUE(isOnDisk());
    start();
    const QColor before = light();
    click(answer(0)); // Bring Back
    ASSERT_TRUE(waitUntil([&] { return light() != before; }));
    send();
    EXPECT_EQ(sentRed(), 99);
    key("ctrl+q");
    EXPECT_EQ(waitForExit(), 0);
    EXPECT_FALSE(isOnDisk()); // they are on the keyboard
}

INSTANTIATE_TEST_SUITE_P(Ends, KeptScenesTest,
                         ::testing::Values(End{"CloseButton", 0}, End{"Terminate", SIGTERM},
                                           End{"HangUp", SIGHUP}, End{"Interrupt", SIGINT},
                                           End{"Kill", SIGKILL, false},
                                           End{"Session", SIGKILL, true, true}),
                         [](const auto& row) { return std::string(row.param.name); });

// What a player does who has no mouse.
class KeysAloneTest : public ProgramBench {
protected:
    KeysAloneTest() {
        const BankImage image = encodeBank(usableScenes());
        writeBytes(bankFile(), image);
    }

    void nextControl(int times) {
        for (int time = 0; time < times; ++time)
            key("ctrl+Next");
    }
    void typeRed(const QString& value) {
        key("alt+r");
        typeText(value);
        key("Return");
    }
    // Of the first three pads.
    [[nodiscard]] std::array<std::int32_t, 3> sentReds() const {
        const auto sent = readBank(bankFile());
        std::array<std::int32_t, 3> reds{};
        for (std::size_t pad = 0; pad < reds.size(); ++pad)
            reds.at(pad) = sent->scenes.at(0)->buttonValueArray().at(kPad - 1 + pad)->CR();
        return reds;
    }
};

TEST_F(KeysAloneTest, AWholeEveningLosesNothing) {
    const std::int32_t third = usableScenes().at(0)->buttonValueArray().at(kPad + 1)->CR();
    start();
    read();
    nextControl(kPad);
    typeRed("11");
    nextControl(1);
    typeRed("22");
    nextControl(1);
    typeRed("33");
    key("ctrl+z");
    send();
    EXPECT_EQ(sentReds(), (std::array{11, 22, third}));
    typeRed("44");
    key("ctrl+q");
    ASSERT_EQ(waitForExit(), 0);
    EXPECT_EQ(sentReds(), (std::array{11, 22, third}));

    start();
    key("F6"); // the notice
    key("space");
    send();
    EXPECT_EQ(sentReds(), (std::array{11, 22, 44}));
    key("ctrl+q");
    EXPECT_EQ(waitForExit(), 0);
}

} // namespace
} // namespace scenewright::testing
