#include "platform/RememberedLists.h"

#include "tests/platform/TextFile.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

#include <chrono>
#include <sys/stat.h>
#include <thread>

namespace scenewright {
namespace {

namespace fs = std::filesystem;

class RememberedListsTest : public ::testing::Test {
protected:
    std::string textNow() { return std::string(lists_.read(file_)->root.text()); }

    testing::TempFolder folder_;
    fs::path file_ = folder_.path() / "one.plist";
    RememberedLists lists_;
};

TEST_F(RememberedListsTest, AFileThatStaysAsItIsIsReadOnce) {
    const fs::path shipped = fs::path(SCENEWRIGHT_BINARY_DIR) / "share/scenewright/basic.plist";
    const auto first = lists_.read(shipped);
    EXPECT_TRUE(first->root.isDictionary());
    EXPECT_EQ(lists_.read(shipped), first);
}

TEST_F(RememberedListsTest, AFileThatChangedIsReadAnew) {
    writeText(file_, listNaming("one"));
    EXPECT_EQ(textNow(), "one");
    writeText(file_, listNaming("two"));
    EXPECT_EQ(textNow(), "two");
}

TEST_F(RememberedListsTest, AFileThatWasRememberedAndThenChangedIsReadAnew) {
    writeText(file_, listNaming("one"));
    std::this_thread::sleep_for(std::chrono::milliseconds(1100)); // until its time is settled
    const auto first = lists_.read(file_);
    ASSERT_EQ(lists_.read(file_), first);
    writeText(file_, listNaming("two"));
    EXPECT_EQ(textNow(), "two");
    EXPECT_EQ(first->root.text(), "one");
}

TEST_F(RememberedListsTest, AFileThatWentIsNotRemembered) {
    writeText(file_, listNaming("one"));
    EXPECT_EQ(textNow(), "one");
    fs::remove(file_);
    EXPECT_TRUE(lists_.read(file_)->trouble);
    EXPECT_TRUE(lists_.read(file_)->root.isAbsent());
}

TEST_F(RememberedListsTest, APipeIsReadEachTime) {
    ASSERT_EQ(::mkfifo(file_.c_str(), S_IRUSR | S_IWUSR), 0);
    for (const char* text : {"one", "two"}) {
        std::jthread writer([&] { writeText(file_, listNaming(text)); });
        EXPECT_EQ(textNow(), text);
    }
}

TEST_F(RememberedListsTest, AListThatCannotBeReadSaysWhyEachTime) {
    writeText(file_, "no list at all");
    for (int i = 0; i < 2; ++i)
        EXPECT_EQ(lists_.read(file_)->trouble,
                  "Cannot read " + file_.string() + ": it is not a property list.");
}

} // namespace
} // namespace scenewright
