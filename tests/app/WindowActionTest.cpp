#include "app/WindowAction.h"

#include "bank/BankFile.h"
#include "model/MessageValue.h"
#include "model/PopUpValue.h"
#include "platform/MainQueue.h"
#include "platform/Resources.h"
#include "protocol/Transactions.h"
#include "tests/support/TempFolder.h"
#include "usb/Transport.h"
#include "virtual/VirtualHost.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace scenewright {

namespace {

std::string nameOf(std::int32_t scene) {
    return WindowAction::getSceneWithIndex(scene)->commonValue()->SceneName();
}

std::vector<std::string> storedNames() {
    std::vector<std::string> names;
    for (std::size_t scene = 0; scene < WindowAction::scenes().size(); ++scene)
        names.push_back(nameOf(static_cast<std::int32_t>(scene)));
    return names;
}

SceneList scenesNamed(const std::vector<std::string>& names) {
    SceneList scenes;
    for (const std::string& name : names) {
        auto scene = std::make_shared<SceneValue>();
        scene->setCommonValue(std::make_shared<CommonValue>());
        scene->commonValue()->setSceneName(name);
        scenes.push_back(scene);
    }
    return scenes;
}

// A transport without a bus, or with the virtual controller, that never sleeps.
class WindowActionTest : public ::testing::Test {
protected:
    void SetUp() override {
        Progress::forget();
        noController();
        WindowAction::getSceneValue();
    }
    void TearDown() override {
        SendJob::waitForEnd();
        SendJob::join();
        noController();
        Progress::forget();
    }

    static void noController() {
        Transport::instance().use(nullptr, [](std::chrono::nanoseconds) {});
    }
    void plugIn(const BankImage& bank) {
        controller_ = std::make_shared<VirtualController>(bank);
        Transport::instance().use(makeVirtualHost(controller_), [](std::chrono::nanoseconds) {});
    }

    std::shared_ptr<VirtualController> controller_;
};

using Write = std::pair<std::string, std::string>;

// What is written as long as the returned list is kept.
std::shared_ptr<std::vector<Write>> watch(MessageValue& message) {
    struct Watch {
        std::vector<Write> writes;
        std::vector<MessageValue::Subscription> observed;
    };
    const auto watch = std::make_shared<Watch>();
    for (const char* key : {"Message", "isReadFinish", "isSendFinish"})
        watch->observed.push_back(message.addObserver(
            key, [&writes = watch->writes](std::string_view name, const MessageValue::Text& value) {
                writes.emplace_back(name, value.value_or("(absent)"));
            }));
    return {watch, &watch->writes};
}

TEST_F(WindowActionTest, ScenesAreFourNamedDefaultsThatShareNothingAndDropEdits) {
    const std::vector<std::string> names{"SCENE1", "SCENE2", "SCENE3", "SCENE4"};
    EXPECT_EQ(storedNames(), names);
    for (const auto& scene : WindowAction::scenes())
        EXPECT_EQ(scene->buttonValueArray().size(), 45U);
    WindowAction::getSceneWithIndex(0)->commonValue()->setSceneName("MINE"); // the stored one
    WindowAction::getSceneWithIndex(0)->buttonValueArray()[4]->setEnable(99);
    EXPECT_EQ(nameOf(0), "MINE");
    EXPECT_NE(WindowAction::getSceneWithIndex(1)->buttonValueArray()[4]->Enable(), 99);
    WindowAction::getSceneValue();
    EXPECT_EQ(storedNames(), names);
    EXPECT_NE(WindowAction::getSceneWithIndex(0)->buttonValueArray()[4]->Enable(), 99);
    EXPECT_THROW((void)WindowAction::getSceneWithIndex(-1), std::out_of_range);
    EXPECT_THROW((void)WindowAction::getSceneWithIndex(4), std::out_of_range);
}

TEST_F(WindowActionTest, WithoutAControllerEachCommandFinishesAndAReadLeavesFourDefaults) {
    AppDelegate delegate;
    const std::function<void()> reads[] = {[] { WindowAction::readSceneData(); },
                                           [&] { delegate.readSceneDataAction(); }};
    for (const auto& read : reads) {
        const auto writes = watch(*WindowAction::getMessageValue());
        WindowAction::getSceneWithIndex(0)->commonValue()->setSceneName("EDITED");
        read();
        EXPECT_EQ(storedNames(),
                  (std::vector<std::string>{"SCENE1", "SCENE2", "SCENE3", "SCENE4"}));
        EXPECT_EQ(*writes, (std::vector<Write>{{"Message", "readSceneData"},
                                               {"isReadFinish", "No"},
                                               {"Message", "Could not connect to midi device"},
                                               {"isReadFinish", "Yes"}}));
    }
    const std::function<void()> sends[] = {[] { WindowAction::sendSceneData(); },
                                           [&] { delegate.sendSceneDataAction(); }};
    for (const auto& send : sends) {
        const auto writes = watch(*WindowAction::getMessageValue());
        send();
        EXPECT_EQ(*writes, (std::vector<Write>{{"isSendFinish", "No"},
                                               {"Message", "sendSceneData"},
                                               {"Message", "Could not connect to midi device"},
                                               {"isSendFinish", "Yes"}}));
        EXPECT_FALSE(SendJob::isRunning());
    }
    const auto writes = watch(*WindowAction::getMessageValue());
    const SceneList before = WindowAction::scenes();
    const BankImage image = encodeBank(before);
    delegate.applicationDidFinishLaunching();
    delegate.applicationWillTerminate();
    WindowAction::GetDefaultValue(); // a spare scene
    EXPECT_EQ(*writes, std::vector<Write>{});
    EXPECT_EQ(WindowAction::scenes(), before);
    EXPECT_EQ(encodeBank(WindowAction::scenes()), image);
}

TEST_F(WindowActionTest, ReadKeepsTheControllersNames) {
    BankImage bank{};
    std::ranges::copy(std::string("LIVE"), bank.begin());
    plugIn(bank);
    const auto message = WindowAction::getMessageValue();
    const auto writes = watch(*message);
    WindowAction::readSceneData();
    EXPECT_EQ(nameOf(0), std::string("LIVE") + std::string(8, '\0'));
    EXPECT_EQ(nameOf(3), std::string(12, '\0'));
    ASSERT_EQ(writes->size(), 2U + 1U + 1012U + 1U + 1U);
    EXPECT_EQ((*writes)[2], Write("Message", "read Time:4"));
    EXPECT_EQ((*writes)[3], Write("Message", "Time:1  Data:0/253"));
    EXPECT_EQ((*writes)[1014], Write("Message", "Time:4  Data:252/253"));
    EXPECT_EQ((*writes)[1015], Write("Message", "Read Scene Data Finish"));
    EXPECT_EQ((*writes)[1016], Write("isReadFinish", "Yes"));
}

TEST_F(WindowActionTest, CommandsWorkWithoutARecord) {
    plugIn(BankImage{});
    ASSERT_EQ(Progress::recordIfAny(), nullptr);
    WindowAction::getSceneWithIndex(1)->commonValue()->setSceneName("SENT");
    WindowAction::sendSceneData();
    SendJob::waitForEnd();
    EXPECT_EQ(controller_->bank()[253], 'S');
    // The transaction has made the record, and what comes after it is written there.
    ASSERT_NE(Progress::recordIfAny(), nullptr);
    EXPECT_EQ(Progress::recordIfAny()->isSendFinish(), "Yes");
    Progress::forget();
    WindowAction::readSceneData();
    EXPECT_EQ(nameOf(1), std::string("SENT") + std::string(8, '\0'));
    EXPECT_EQ(Progress::recordIfAny()->Message(), "Read Scene Data Finish");
}

TEST_F(WindowActionTest, ScenesThatAreSetAreFilledUpToFourAndAllKept) {
    using Names = std::vector<std::string>;
    for (const auto& [given, stored] : std::vector<std::pair<Names, Names>>{
             {{"A", "B", "C"}, {"A", "B", "C", "SCENE4"}},
             {{"A", "B"}, {"A", "B", "SCENE3", "SCENE4"}},
             {{"A", "B", "C", "D", "E"}, {"A", "B", "C", "D", "E"}}}) {
        const SceneList scenes = scenesNamed(given);
        WindowAction::setScenes(scenes);
        EXPECT_EQ(storedNames(), stored);
        EXPECT_EQ(WindowAction::getSceneWithIndex(1), scenes[1]);
    }
}

TEST_F(WindowActionTest, SendFinishesAtOnceAndItsEndComesAsAMessage) {
    plugIn(BankImage{});
    const auto message = WindowAction::getMessageValue();
    const auto writes = watch(*message);
    WindowAction::sendSceneData();
    EXPECT_EQ(*writes,
              (std::vector<Write>{
                  {"isSendFinish", "No"}, {"Message", "sendSceneData"}, {"isSendFinish", "Yes"}}));
    EXPECT_TRUE(SendJob::isRunning());
    SendJob::waitForEnd();
    EXPECT_EQ(message->Message(), "Send Scene Data Finish:100%:Success");
    EXPECT_EQ(controller_->bank(), encodeBank(WindowAction::scenes()));
}

TEST_F(WindowActionTest, ReadDuringASendIsCarriedOutAfterIt) {
    plugIn(BankImage{});
    WindowAction::getSceneWithIndex(0)->commonValue()->setSceneName("EDITED");
    const auto message = WindowAction::getMessageValue();
    const BankImage sent = encodeBank(WindowAction::scenes());
    WindowAction::sendSceneData();
    const auto writes = watch(*message);
    std::vector<Outcome> reads;
    WindowAction::readSceneData([&](const Outcome& outcome) { reads.push_back(outcome); });
    EXPECT_TRUE(writes->empty() && reads.empty());
    EXPECT_EQ(nameOf(0), "EDITED");
    SendJob::waitForEnd();
    EXPECT_EQ(controller_->bank(), sent);
    EXPECT_TRUE(reads.size() == 1 && reads.front().isDone());
    writes->resize(std::max<std::size_t>(writes->size(), 4));
    writes->erase(writes->begin() + 3, writes->end() - 1);
    EXPECT_EQ(*writes, (std::vector<Write>{{"Message", "Send Scene Data Finish:100%:Success"},
                                           {"Message", "readSceneData"},
                                           {"isReadFinish", "No"},
                                           {"isReadFinish", "Yes"}}));
    EXPECT_EQ(nameOf(0), std::string("EDITED") + std::string(6, '\0'));
}

TEST_F(WindowActionTest, SendDuringASendIsCarriedOutAfterItWithWhatTheStoreHoldsThen) {
    plugIn(BankImage{});
    const auto message = WindowAction::getMessageValue();
    WindowAction::sendSceneData();
    const auto writes = watch(*message);
    WindowAction::sendSceneData();
    EXPECT_TRUE(writes->empty());
    WindowAction::getSceneWithIndex(0)->commonValue()->setSceneName("LATER");
    SendJob::waitForEnd();
    EXPECT_EQ(*writes, (std::vector<Write>{{"Message", "Send Scene Data Finish:100%:Success"},
                                           {"isSendFinish", "No"},
                                           {"Message", "sendSceneData"},
                                           {"isSendFinish", "Yes"},
                                           {"Message", "Send Scene Data Finish:100%:Success"}}));
    EXPECT_EQ(controller_->bank()[0], 'L');
}

TEST_F(WindowActionTest, EachCommandTellsItsOutcome) {
    std::vector<Outcome> told;
    const auto tell = [&](const Outcome& outcome) { told.push_back(outcome); };
    WindowAction::readSceneData(tell);
    ASSERT_EQ(told.size(), 1U);
    EXPECT_EQ(told[0].end, Outcome::End::NotConnected);
    plugIn(BankImage{});
    WindowAction::sendSceneData(tell);
    EXPECT_EQ(told.size(), 1U);
    SendJob::waitForEnd();
    ASSERT_EQ(told.size(), 2U);
    EXPECT_TRUE(told[1].isDone());
}

TEST_F(WindowActionTest, OptionListsAreReadAnewAtEachCall) {
    const testing::TempFolder folder;
    const auto write = [&folder](const std::string& title) {
        std::ofstream(folder.file("basic.plist"))
            << "<plist version=\"1.0\"><dict><key>control</key><array><string>" << title
            << "</string></array></dict></plist>";
        std::filesystem::last_write_time(folder.file("basic.plist"), {});
    };
    Resources::setFolder(folder.path());
    for (const char* title : {"one", "two"}) {
        write(title);
        EXPECT_EQ(WindowAction::InitializePopUp()->control_Array()->front(), title);
    }
    Resources::setFolder({});
}

} // namespace

} // namespace scenewright
