#include "usb/LibusbApi.h"

#include <gtest/gtest.h>

#include <map>
#include <set>

namespace scenewright {
namespace {

// The library's published numbers.
const std::map<int, ResultCode> kErrors{
    {0, 0x00000000},   {-1, 0x5C570002},  {-2, 0x5C570003},  {-3, 0x5C570004},  {-4, 0x5C570005},
    {-5, 0x5C570006},  {-6, 0x5C570007},  {-7, 0x5C570008},  {-8, 0x5C570009},  {-9, 0x5C57000A},
    {-10, 0x5C57000B}, {-11, 0x5C57000C}, {-12, 0x5C57000D}, {-99, 0x5C570001},
};

TEST(LibusbResult, EveryErrorHasItsCode) {
    for (const auto& [error, code] : kErrors)
        EXPECT_EQ(resultOfLibusb(error), code) << error;
}

TEST(LibusbResult, NoTwoErrorsShareACode) {
    std::set<ResultCode> codes;
    for (const auto& [error, code] : kErrors)
        codes.insert(resultOfLibusb(error));
    EXPECT_EQ(codes.size(), kErrors.size());
}

TEST(LibusbResult, AnUnknownErrorIsOther) {
    EXPECT_EQ(resultOfLibusb(-13), 0x5C570001U);
    EXPECT_EQ(resultOfLibusb(-98), 0x5C570001U);
    EXPECT_EQ(resultOfLibusb(1), 0x5C570001U);
}

TEST(LibusbResult, EveryTransferStatusHasItsCode) {
    const std::map<int, ResultCode> statuses{
        {0, kResultSuccess}, {1, kResultInputOutput}, {2, kResultTimeout},  {3, kResultCancelled},
        {4, kResultStall},   {5, kResultNoDevice},    {6, kResultOverflow}, {7, kResultOther}};
    for (const auto& [status, code] : statuses)
        EXPECT_EQ(resultOfLibusbTransfer(status), code) << status;
}

} // namespace
} // namespace scenewright
