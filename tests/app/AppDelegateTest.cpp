#include "app/WindowAction.h"
#include "model/MessageValue.h"
#include "usb/Transport.h"

#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace scenewright {

namespace {

using Write = std::pair<std::string, std::string>;

// No controller on the bus; what the progress record is told.
class AppDelegateTest : public ::testing::Test {
protected:
    void SetUp() override {
        Progress::forget();
        Transport::instance().use(nullptr, [](std::chrono::nanoseconds) {});
        WindowAction::getSceneValue();
        for (const char* key : {"Message", "isReadFinish", "isSendFinish"})
            observed_.push_back(WindowAction::getMessageValue()->addObserver(
                key, [this](std::string_view name, const MessageValue::Text& value) {
                    writes.emplace_back(name, value.value_or("(absent)"));
                }));
    }
    void TearDown() override { Progress::forget(); }

    AppDelegate delegate;
    std::vector<Write> writes;

private:
    std::vector<MessageValue::Subscription> observed_;
};

} // namespace

TEST_F(AppDelegateTest, ReadActionReadsTheScenes) {
    delegate.readSceneDataAction();
    EXPECT_EQ(writes, (std::vector<Write>{{"Message", "readSceneData"},
                                          {"isReadFinish", "No"},
                                          {"Message", "Could not connect to midi device"},
                                          {"isReadFinish", "Yes"}}));
}

TEST_F(AppDelegateTest, SendActionSendsTheScenes) {
    delegate.sendSceneDataAction();
    EXPECT_EQ(writes, (std::vector<Write>{{"isSendFinish", "No"},
                                          {"Message", "sendSceneData"},
                                          {"Message", "Could not connect to midi device"},
                                          {"isSendFinish", "Yes"}}));
}

TEST_F(AppDelegateTest, LaunchAndTerminationChangeNothing) {
    const auto scene = WindowAction::getSceneWithIndex(0);
    delegate.applicationDidFinishLaunching();
    delegate.applicationWillTerminate();
    EXPECT_EQ(writes, std::vector<Write>{});
    EXPECT_EQ(WindowAction::getSceneWithIndex(0), scene);
}

} // namespace scenewright
