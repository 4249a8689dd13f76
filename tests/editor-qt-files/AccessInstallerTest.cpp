#include "editor/qt/AccessInstaller.h"

#include "app/Keyboards.h"
#include "tests/support/TempFolder.h"
#include "usb/DeviceList.h"

#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

namespace scenewright::testing {

namespace {

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
