#include "app/StoredScenes.h"

#include "app/WindowAction.h"
#include "bank/BankFile.h"
#include "bank/Edit.h"
#include "model/SceneValue.h"
#include "protocol/SceneImage.h"
#include "protocol/Transactions.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>

namespace scenewright {

namespace {

using testing::TempFolder;

ButtonValue& record(std::int32_t scene, std::int32_t control) {
    const auto& records = WindowAction::getSceneWithIndex(scene)->buttonValueArray();
    return *records.at(static_cast<std::size_t>(control) - 1);
}

class StoreFilesTest : public ::testing::Test {
protected:
    void SetUp() override { WindowAction::getSceneValue(); }
    void TearDown() override { WindowAction::getSceneValue(); }

    // A bank whose scenes are named A to D, and one pad of the second is red.
    std::string bankFile() {
        SceneList scenes = copyOf(WindowAction::scenes());
        char name = 'A';
        for (const auto& scene : scenes)
            scene->commonValue()->setSceneName(std::string(1, name++));
        scenes[1]->buttonValueArray()[12]->setCR(127);
        EXPECT_TRUE(writeBank(folder.file("a.bank"), scenes, BankFormat::Image, {}));
        return folder.file("a.bank");
    }
    std::string sceneFile() {
        const SceneList scenes = copyOf(WindowAction::scenes());
        scenes[0]->commonValue()->setSceneName("Alone");
        scenes[0]->commonValue()->setPitchBendSpeed(5);
        scenes[0]->buttonValueArray()[12]->setCG(99);
        scenes[0]->buttonValueArray()[44]->setOnValue(88);
        EXPECT_TRUE(writeScene(folder.file("a.scene.json"), *scenes[0], *lists));
        return folder.file("a.scene.json");
    }
    std::string badFile() {
        std::ofstream(folder.file("bad.json")) << "{";
        return folder.file("bad.json");
    }

    void restoreLatest() { EXPECT_TRUE(files.bringBack(files.newestOther().value().image)); }

    TempFolder folder;
    StoreFiles files{EarlierScenes(folder.path() / "backups")};
    std::shared_ptr<PopUpValue> lists = WindowAction::InitializePopUp();
};

TEST_F(StoreFilesTest, OpeningABankReplacesTheStoredScenesAndKeepsWhatWasThere) {
    const auto file = bankFile();
    const auto former = WindowAction::getSceneWithIndex(1);
    record(0, 13).setCB(77);
    EXPECT_TRUE(files.openBank(file).value().kept);
    EXPECT_EQ(record(1, 13).CR(), 127);
    EXPECT_NE(WindowAction::getSceneWithIndex(1), former);
    EXPECT_EQ(WindowAction::scenes().size(), 4U);
    ASSERT_EQ(files.earlier().list().size(), 1U);
    EXPECT_EQ(
        files.earlier().list()[0].occasion,
        (EarlierScenes::Occasion{.reason = EarlierScenes::Reason::Opening, .subject = "a.bank"}));
    EXPECT_TRUE(files.bringBack(files.earlier().list()[0].image));
    EXPECT_EQ(record(0, 13).CB(), 77);
}

TEST_F(StoreFilesTest, WhatCannotBeKeptIsToldAndTheBankOpened) {
    const StoreFiles blocked{EarlierScenes(bankFile() + "/backups")};
    record(0, 13).setCB(77);
    const auto kept = blocked.openBank(folder.file("a.bank")).value().kept;
    EXPECT_TRUE(kept.error().starts_with("The former scenes could not be kept: "));
    EXPECT_EQ(record(1, 13).CR(), 127);
}

TEST_F(StoreFilesTest, AtTheStartABankOrASceneIsOpenedAndNothingKept) {
    EXPECT_FALSE(files.openAtStart(bankFile(), 0).value().isScene);
    EXPECT_EQ(record(1, 13).CR(), 127);
    EXPECT_EQ(WindowAction::scenes().size(), 4U);
    EXPECT_TRUE(files.openAtStart(sceneFile(), 1).value().isScene);
    EXPECT_EQ(record(1, 13).CG(), 99);
    EXPECT_NE(record(0, 13).CG(), 99);
    EXPECT_TRUE(files.earlier().list().empty());
}

TEST_F(StoreFilesTest, WhatCannotBeOpenedIsToldAndChangesNothing) {
    const SceneList before = WindowAction::scenes();
    for (const auto& file : {badFile(), folder.file("none.bank")}) {
        EXPECT_NE(files.openBank(file).error().find(file + ": "), std::string::npos) << file;
        EXPECT_NE(files.openAtStart(file, 0).error().find(file + ": "), std::string::npos) << file;
    }
    EXPECT_EQ(WindowAction::scenes(), before);
    EXPECT_TRUE(files.earlier().list().empty());
}

TEST_F(StoreFilesTest, ASceneIsWrittenIntoTheStoredRecordsAndLeavesTheOthersAlone) {
    const auto file = sceneFile();
    const auto stored = WindowAction::getSceneWithIndex(2);
    const auto common = stored->commonValue();
    const auto pad = stored->buttonValueArray()[12];
    record(0, 13).setCB(77);
    const BankImage before = encodeBank(WindowAction::scenes());
    EXPECT_TRUE(files.openScene(file, 2));
    EXPECT_EQ(WindowAction::getSceneWithIndex(2), stored);
    EXPECT_EQ(stored->commonValue(), common);
    EXPECT_EQ(common->SceneName(), std::string("Alone\0\0\0\0\0\0\0", 12));
    EXPECT_EQ(common->PitchBendSpeed(), 5);
    EXPECT_EQ(pad->CG(), 99);
    EXPECT_EQ(record(2, 45).OnValue(), 88);
    BankImage after = encodeBank(WindowAction::scenes());
    std::copy_n(before.begin() + 506, 253, after.begin() + 506);
    EXPECT_EQ(after, before);
    EXPECT_EQ(files.earlier().list().size(), 1U);
}

TEST_F(StoreFilesTest, ASceneWithoutControlsGetsThoseOfTheFile) {
    const auto file = sceneFile();
    WindowAction::getSceneWithIndex(3)->setButtonValueArray({});
    EXPECT_TRUE(files.openScene(file, 3));
    EXPECT_EQ(WindowAction::getSceneWithIndex(3)->buttonValueArray().size(), 45U);
    EXPECT_EQ(record(3, 45).OnValue(), 88);
}

TEST_F(StoreFilesTest, AnySceneOfABankIsOpened) {
    const auto file = bankFile();
    const SceneList bank = readBank(file)->scenes;
    for (std::int32_t from = 0; from < kSceneCount; ++from) {
        EXPECT_TRUE(files.openScene(file, 3, from));
        EXPECT_EQ(SceneAction::sceneToBytes(*WindowAction::getSceneWithIndex(3)),
                  SceneAction::sceneToBytes(*bank.at(static_cast<std::size_t>(from))));
    }
}

TEST_F(StoreFilesTest, TheNewestOtherScenesComeBackAndDamagedOnesArePassedOver) {
    EXPECT_FALSE(files.newestOther());
    for (const std::int32_t red : {1, 2}) {
        record(0, 13).setCR(red);
        EXPECT_TRUE(files.keep({}));
    }
    // What is shown is itself the newest that is kept: the one before it is meant.
    restoreLatest();
    EXPECT_EQ(record(0, 13).CR(), 1);
    restoreLatest();
    EXPECT_EQ(record(0, 13).CR(), 2);
    testing::writeBytes(files.earlier().list().front().file, std::vector<std::uint8_t>(3));
    record(0, 13).setCR(3);
    restoreLatest();
    EXPECT_NE(record(0, 13).CR(), 3);
}

TEST_F(StoreFilesTest, SavedBanksAndScenesOpenAgain) {
    record(3, 1).setMIDIChannel(9);
    for (const char* name : {"x.json", "x.bank"}) {
        EXPECT_TRUE(files.saveBank(folder.file(name), *lists));
        WindowAction::getSceneValue();
        EXPECT_TRUE(files.openBank(folder.file(name)));
        EXPECT_EQ(record(3, 1).MIDIChannel(), 9) << name;
    }
    EXPECT_TRUE(files.saveScene(folder.file("s.json"), 3, *lists));
    EXPECT_TRUE(files.openScene(folder.file("s.json"), 0));
    EXPECT_EQ(record(0, 1).MIDIChannel(), 9);
    EXPECT_FALSE(files.saveBank(folder.file("no/such/x.json"), *lists));
}

TEST_F(StoreFilesTest, NothingIsSavedInAFileThatTheProgramUses) {
    const std::vector<std::uint8_t> held(3);
    testing::writeBytes(folder.file("held.bank"), held);
    std::filesystem::create_symlink("held.bank", folder.file("link.bank"));
    files.setUsed({{folder.file("held.bank"), FileUse::Replaced, {}, {}},
                   {folder.file("log"), FileUse::Appended, {}, {}}});
    for (const char* name : {"held.bank", "link.bank", "log"}) {
        const std::string sentence = "Cannot write " + folder.file(name) +
                                     ": the program itself uses this file; choose another name.";
        EXPECT_EQ(files.saveBank(folder.file(name), *lists).error(), sentence);
        EXPECT_EQ(files.saveScene(folder.file(name), 0, *lists).error(), sentence);
    }
    EXPECT_EQ(testing::readBytes(folder.file("held.bank")), held);
    EXPECT_TRUE(files.saveBank(folder.file("other.bank"), *lists));
}

} // namespace

} // namespace scenewright
