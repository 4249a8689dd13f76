#include "editor/qt/KeyboardsDialog.h"

#include "app/DeviceSession.h"
#include "app/Keyboards.h"
#include "editor/qt/QtHelpers.h"
#include "tests/editor-qt-files/CommandsBench.h"
#include "tests/support/TempFolder.h"
#include "usb/Devices.h"

#include <QClipboard>
#include <QCoreApplication>
#include <QFile>
#include <QLabel>
#include <QSignalSpy>
#include <QTreeWidget>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <sys/stat.h>
#include <vector>

namespace scenewright::testing {

namespace {

class KeyboardsDialogTest : public CommandsBench {
protected:
    KeyboardsDialogTest() { plugged = {deviceAt("1-1"), deviceAt("1-2")}; }

    KeyboardsDialog& dialog() {
        commands().keyboards().action().trigger();
        EXPECT_TRUE(commands().keyboards().dialog()->isVisible());
        return *commands().keyboards().dialog();
    }
    static void chooseRow(KeyboardsDialog& dialog, int row) {
        dialog.table().setCurrentItem(dialog.table().topLevelItem(row));
    }
    // The buttons that can be pressed.
    static QString enabled(KeyboardsDialog& dialog) {
        QStringList names;
        for (const char* name : {"Use This One", "Allow", "Copy Command", "Add To My List"})
            if (const auto& button = field<QPushButton>(dialog, name);
                button.isEnabled() && !button.isHidden())
                names.append(name);
        return names.join(", ");
    }
};

TEST_F(KeyboardsDialogTest, TheDialogsUseThisOneWaitsForTheEndOfASend) {
    watch();
    for (const bool isOpen : {false, true}) {
        window().commands().send();
        KeyboardsDialog& shown = isOpen ? *commands().keyboards().dialog() : dialog();
        chooseRow(shown, 1);
        EXPECT_EQ(enabled(shown), "") << isOpen;
        waitForSend();
        chooseRow(shown, 1);
        EXPECT_EQ(enabled(shown), "Use This One") << isOpen;
    }
    field<QPushButton>(*commands().keyboards().dialog(), "Close").click();
    EXPECT_FALSE(commands().keyboards().dialog()->isVisible());
}

TEST_F(KeyboardsDialogTest, ALongNameLeavesTheOtherColumnsInSight) {
    plugged.front().name = std::string(99, 'W');
    watch();
    EXPECT_EQ(dialog().table().columnWidth(0), 280);
    EXPECT_GE(dialog().help().minimumHeight(), 3 * dialog().help().fontMetrics().lineSpacing());
}

TEST_F(KeyboardsDialogTest, TheDialogsRowStaysWhereItWasAndUseThisOneUsesIt) {
    watch();
    KeyboardsDialog& shown = dialog();
    EXPECT_EQ(shown.table().currentItem()->text(1), "1-1") << "the one in use";
    chooseRow(shown, 1);
    plugged.insert(plugged.begin(), strange("1-0"));
    look();
    EXPECT_EQ(shown.table().currentItem()->text(1), "1-2");
    field<QPushButton>(shown, "Use This One").click();
    EXPECT_EQ(keyboards->chosen(), "1-2");
    EXPECT_EQ(shown.table().currentItem()->text(3), "in use");
}

// A folder of configuration and a path of programs of the test's own.
class OwnFoldersTest : public KeyboardsDialogTest {
protected:
    OwnFoldersTest() {
        qputenv("XDG_CONFIG_HOME", folder.path().c_str());
        qputenv("PATH", folder.path().c_str());
    }
    ~OwnFoldersTest() override {
        qputenv("PATH", path_);
        qputenv("XDG_CONFIG_HOME", config_);
    }

    KeyboardsDialog& dialogOn(const AttachedDevice& device) {
        plugged = {device};
        watch();
        KeyboardsDialog& shown = dialog();
        chooseRow(shown, 0);
        return shown;
    }
    KeyboardsDialog& dialogOnForbidden() {
        AttachedDevice device = deviceAt("1-1");
        device.access = AttachedDevice::Access::NoPermission;
        return dialogOn(device);
    }

private:
    QByteArray path_ = qgetenv("PATH");
    QByteArray config_ = qgetenv("XDG_CONFIG_HOME");
};

struct Row {
    QString state;
    QString enabled;
    QString help; // how it begins
};

TEST_F(OwnFoldersTest, TheDialogTellsEachDevicesStateAndWhatCanBeDone) {
    using Access = AttachedDevice::Access;
    plugged = {deviceAt("1-1"), deviceAt("1-2"), deviceAt("1-3"), strange("1-4"), strange("1-5")};
    plugged[0].access = Access::Claimed;
    plugged[2].access = Access::NoPermission;
    plugged[4].access = Access::NoPermission;
    watch();
    KeyboardsDialog& dialog = this->dialog();
    const std::vector<Row> rows{
        {"in use, busy", "", shown(causeAndCure(kResultBusy))},
        {"ready", "Use This One", ""},
        {"not allowed", "Use This One, Copy Command", shown(causeAndCure(kResultAccess))},
        {"not in the list", "Add To My List", "Only keyboards of the list"},
        {"not in the list, not allowed", "Add To My List", "Only keyboards of the list"}};
    for (int row = 0; row < static_cast<int>(rows.size()); ++row) {
        chooseRow(dialog, row);
        EXPECT_EQ(dialog.table().topLevelItem(row)->text(1), QString("1-%1").arg(row + 1));
        EXPECT_EQ(dialog.table().topLevelItem(row)->text(3), rows.at(row).state);
        EXPECT_EQ(enabled(dialog), rows.at(row).enabled) << row;
        EXPECT_EQ(dialog.help().text().left(rows.at(row).help.size()), rows.at(row).help) << row;
        EXPECT_EQ(dialog.help().text().isEmpty(), rows.at(row).help.isEmpty()) << row;
    }
    plugged.clear();
    look();
    EXPECT_EQ(dialog.help().text(), "No USB MIDI device is plugged in.");
}

TEST_F(OwnFoldersTest, AddToMyListMakesADeviceAKeyboardOrSaysWhyNot) {
    KeyboardsDialog& shown = dialogOn(strange("1-1"));
    std::filesystem::create_directories(folder.path() / "scenewright/project.plist");
    field<QPushButton>(shown, "Add To My List").click();
    EXPECT_TRUE(shown.help().text().contains(file("scenewright/project.plist")))
        << shown.help().text().toStdString();
    std::filesystem::remove_all(folder.path() / "scenewright");
    field<QPushButton>(shown, "Add To My List").click();
    EXPECT_EQ(shown.table().topLevelItem(0)->text(3), "in use");
    EXPECT_EQ(deviceList().front(), (DeviceIds{0x1234, 0x5678}));
}

TEST_F(OwnFoldersTest, WithoutPolkitThereIsOnlyTheCommandToCopy) {
    KeyboardsDialog& shown = dialogOnForbidden();
    EXPECT_EQ(enabled(shown), "Copy Command");
    field<QPushButton>(shown, "Copy Command").click();
    EXPECT_EQ(QGuiApplication::clipboard()->text(),
              AccessInstaller::command(QCoreApplication::applicationDirPath()));
    EXPECT_TRUE(shown.help().text().startsWith("Copied.")) << shown.help().text().toStdString();
}

TEST_F(OwnFoldersTest, AllowAsksOnceAndItsAnswerStaysUntilTheStateIsAnother) {
    ASSERT_EQ(::mkfifo(folder.file("answer").c_str(), 0600), 0);
    QFile pkexec(file("pkexec"));
    ASSERT_TRUE(pkexec.open(QIODevice::WriteOnly));
    pkexec.write("#!/bin/sh\nread -r code <\"${0%/*}/answer\"\nexit $code\n");
    pkexec.close();
    pkexec.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
    KeyboardsDialog& shown = dialogOnForbidden();
    EXPECT_EQ(enabled(shown), "Allow, Copy Command");
    field<QPushButton>(shown, "Allow").click();
    EXPECT_EQ(enabled(shown), "Copy Command");
    EXPECT_EQ(shown.help().text(), "Waiting for an administrator's password...");
    QFile answer(file("answer"));
    ASSERT_TRUE(answer.open(QIODevice::WriteOnly));
    const int before = looks;
    answer.write("126\n");
    answer.close();
    ASSERT_TRUE(waitUntil([&shown] { return field<QPushButton>(shown, "Allow").isEnabled(); }));
    EXPECT_GT(looks, before) << "the rules may count by now";
    look();
    EXPECT_EQ(shown.help().text(),
              "The rules were not installed: the question for a password was closed.");
    plugged.front().access = AttachedDevice::Access::Usable;
    look();
    EXPECT_EQ(shown.help().text(), "This keyboard is read from and sent to.");
}

// The programs of the path are the test's own, which stand in for the system's.
class AccessInstallerTest : public ::testing::Test {
protected:
    AccessInstallerTest() { qputenv("PATH", folder.path().c_str()); }
    ~AccessInstallerTest() override { qputenv("PATH", path_); }

    [[nodiscard]] QString file(const char* name) const {
        return QString::fromStdString(folder.file(name));
    }
    void makeProgram(const char* name, const QString& script) const {
        QFile program(file(name));
        ASSERT_TRUE(program.open(QIODevice::WriteOnly));
        program.write(("#!/bin/sh\n" + script + '\n').toUtf8());
        program.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    // One that allows all, but installs below the folder.
    void makeWillingPkexec() const {
        makeProgram("pkexec",
                    QString("[ \"$1 $2 $3\" = '--disable-internal-agent /bin/sh -c' ] || exit 99\n"
                            "PATH='%1':/usr/bin:/bin\n"
                            "exec sh -c \"$(printf %s \"$4\" | sed 's:/etc/udev/rules.d:%1:g')\"")
                        .arg(QString::fromStdString(folder.path().string())));
    }
    // What the installer says in the end.
    static QString installed() {
        AccessInstaller installer;
        QSignalSpy ended(&installer, &AccessInstaller::ended);
        installer.start();
        if (ended.empty() && !ended.wait(kPatience))
            return "nothing";
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_EQ(installer.children(), QObjectList());
        return ended.front().front().toString();
    }

    static constexpr int kPatience = 120'000; // milliseconds, for what hangs
    TempFolder folder;

private:
    QByteArray path_ = qgetenv("PATH");
};

TEST_F(AccessInstallerTest, TheRulesOfTheListComeIntoTheSystem) {
    for (const char* const reload : {"exit 0", "exit 1"}) {
        makeProgram("udevadm", QString("echo \"$@\" >>'%1'\n%2").arg(file("asked"), reload));
        makeWillingPkexec();
        EXPECT_TRUE(AccessInstaller::isAvailable());
        EXPECT_EQ(installed(),
                  "The rules are installed. If the keyboard is still not allowed, plug "
                  "it in again.");
        QFile rules(file("70-scenewright.rules"));
        ASSERT_TRUE(rules.open(QIODevice::ReadOnly));
        EXPECT_EQ(rules.readAll().toStdString(), udevRules(deviceList()));
        EXPECT_EQ(rules.permissions() & (QFile::ReadOther | QFile::WriteOther), QFile::ReadOther);
        EXPECT_EQ(folder.names(),
                  (std::vector<std::string>{"70-scenewright.rules", "asked", "pkexec", "udevadm"}));
        ASSERT_TRUE(rules.remove());
    }
    QFile asked(file("asked"));
    ASSERT_TRUE(asked.open(QIODevice::ReadOnly));
    EXPECT_EQ(asked.readAll(), "control --reload\n"
                               "trigger --action=change --subsystem-match=usb\n"
                               "control --reload\n");
}

TEST_F(AccessInstallerTest, RulesThatCannotBeWrittenLeaveNothingAndTheSystemSaysWhy) {
    makeProgram("mv", "echo 'mv: the disk is full' >&2; exit 1");
    makeWillingPkexec();
    EXPECT_EQ(installed(), "The rules were not installed: mv: the disk is full");
    EXPECT_EQ(folder.names(), (std::vector<std::string>{"mv", "pkexec"}));
}

TEST_F(AccessInstallerTest, WhatPkexecRefusedIsToldInOneSentence) {
    const QString refused =
        "The rules were not installed: polkit did not allow it, or cannot ask for a "
        "password here. Copy Command copies a line for a terminal.";
    makeProgram("pkexec", "exit 126");
    EXPECT_EQ(installed(), "The rules were not installed: the question for a password was closed.");
    for (const char* const end : {"exit 127", "kill -9 $$"}) {
        makeProgram("pkexec", end);
        EXPECT_EQ(installed(), refused) << end;
    }
    std::filesystem::remove(folder.path() / "pkexec");
    EXPECT_FALSE(AccessInstaller::isAvailable());
    EXPECT_EQ(installed(), refused);
}

TEST_F(AccessInstallerTest, TheCommandNamesTheProgramOfThisFolderUnlessTheShellFindsIt) {
    const QString rest = " udev-rules | sudo tee /etc/udev/rules.d/70-scenewright.rules";
    std::filesystem::create_directory(folder.path() / "own");
    const QString programs = file("own");
    EXPECT_EQ(AccessInstaller::command(programs), "scenewright-cli" + rest) << "there is none";
    makeProgram("own/scenewright-cli", "");
    EXPECT_EQ(AccessInstaller::command(programs), programs + "/scenewright-cli" + rest);
    makeProgram("scenewright-cli", "");
    EXPECT_EQ(AccessInstaller::command(programs), programs + "/scenewright-cli" + rest)
        << "the shell finds another one";
    QFile::remove(file("scenewright-cli"));
    QFile::link(programs + "/scenewright-cli", file("scenewright-cli"));
    EXPECT_EQ(AccessInstaller::command(programs), "scenewright-cli" + rest);
}

} // namespace

} // namespace scenewright::testing
