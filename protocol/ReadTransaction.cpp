#include "model/SceneValue.h"
#include "model/ValueAction.h"
#include "platform/Diagnostics.h"
#include "protocol/Connection.h"
#include "protocol/SceneImage.h"
#include "protocol/Transactions.h"
#include "usb/InterfaceAction.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <utility>

namespace scenewright {

namespace {

constexpr std::int32_t kByteCount = kSceneImageSize; // image bytes a pass, one exchange each

std::string replyText(std::uint8_t byte) {
    return ValueAction::GetStrWirhChar(static_cast<std::int8_t>(byte));
}

void startReading(MessageValue& message) {
    writePacket(packets::kReadStart);
    const auto reply = InterfaceAction::ReadDataFromDevice();
    Diagnostics::log("%s %s %s %s", replyText(reply[0]), replyText(reply[1]), replyText(reply[2]),
                     replyText(reply[3]));
    Diagnostics::log("读取次数---->%d", kSceneCount);
    message.setMessage(printfText("read Time:%d", kSceneCount));
    Diagnostics::log("开始读取数据");
}

// One image byte out of its two nibbles. The device is trusted with their range: a sum above 255
// wraps.
std::uint8_t joinNibbles(std::uint8_t high, std::uint8_t low) {
    const std::int32_t sum = ValueAction::GetFrom255WirhChar(static_cast<std::int8_t>(high)) * 16 +
                             ValueAction::GetFrom255WirhChar(static_cast<std::int8_t>(low));
    return static_cast<std::uint8_t>(ValueAction::GetFrom255WithIndex(sum % 256));
}

std::uint8_t readByte(std::int32_t pass, std::int32_t index, MessageValue& message) {
    writePacket(packets::kReadNext);
    message.setMessage(printfText("Time:%d  Data:%d/%d", pass, index, kByteCount));
    const auto reply = InterfaceAction::ReadDataFromDevice();
    return joinNibbles(reply[2], reply[3]);
}

SceneImage readImage(std::int32_t pass, MessageValue& message) {
    Diagnostics::log("第%d次读接口---->开始", pass);
    SceneImage image{};
    for (std::int32_t index = 0; index < kByteCount; ++index)
        image[static_cast<std::size_t>(index)] = readByte(pass, index, message);
    Diagnostics::log("tmp------>%s", hexDump(image));
    Diagnostics::log("第%d次读接口---->结束", pass);
    return image;
}

BankImage readBank(MessageValue& message) {
    BankImage bank{};
    auto* end = bank.begin();
    for (std::int32_t pass = 1; pass <= kSceneCount; ++pass)
        end = std::ranges::copy(readImage(pass, message), end).out;
    return bank;
}

std::uint32_t countReplaced(const BankImage& bank) {
    constexpr std::uint8_t kMaxSetting = 127;
    std::uint32_t count = 0;
    for (std::size_t position = 0; position < bank.size(); ++position)
        if (position % kSceneImageSize >= kNameSize && bank[position] > kMaxSetting)
            ++count;
    return count;
}

} // namespace

ScenesRead readScenes(MessageValue& progress) {
    if (!connectToDevice(progress))
        return {.scenes = {}, .outcome = connectionOutcome()};
    startReading(progress);
    const BankImage bank = readBank(progress);
    writePacket(packets::kReadEnd);
    Diagnostics::log("读取数据结束");
    Diagnostics::log("解析数据----%s", hexDump(bank));
    SceneList scenes = parseScenes(bank);
    progress.setMessage("Read Scene Data Finish");
    ScenesRead read{.scenes = std::move(scenes), .outcome = transferOutcome()};
    read.outcome.replacedBytes = countReplaced(bank);
    return read;
}

} // namespace scenewright
