#include "usb/LibusbInterface.h"

#include <cstdint>
#include <span>
#include <utility>

namespace scenewright {

namespace {
// Fields of the USB endpoint descriptor.
constexpr std::uint8_t kDirectionBit = 0x80; // in bEndpointAddress: set for IN
constexpr std::uint8_t kNumberMask = 0x0F;   // in bEndpointAddress
constexpr std::uint8_t kTypeMask = 0x03;     // in bmAttributes
constexpr std::uint16_t kSizeMask = 0x07FF;  // in wMaxPacketSize, in bytes
constexpr std::uint8_t kIn = kDirectionBit;
constexpr std::uint8_t kOut = 0;
} // namespace

LibusbInterface::LibusbInterface(std::shared_ptr<LibusbDevice> device,
                                 std::vector<LibusbInterfaceDescriptor> interfaces,
                                 std::size_t index)
    : device_(std::move(device)), interfaces_(std::move(interfaces)), index_(index) {}

ResultCode LibusbInterface::open() {
    if (claim_)
        return kResultSuccess;
    const ResultCode result = claim();
    if (result != kResultSuccess)
        release();
    return result;
}

ResultCode LibusbInterface::claim() {
    if (!handle_)
        if (const ResultCode opened = device_->open(handle_); opened != kResultSuccess)
            return opened;
    if (!drivers_)
        drivers_ = std::make_unique<DetachedDrivers>(*handle_, descriptor().number, interfaces_);
    if (const ResultCode detached = drivers_->detach(); detached != kResultSuccess)
        return detached;
    const ResultCode claimed = ClaimedInterface::claim(*handle_, descriptor().number, claim_);
    if (claimed == kResultSuccess)
        drivers_->adoptOrphans();
    return claimed;
}

ResultCode LibusbInterface::close() {
    if (!claim_)
        return kResultNotOpen;
    claim_.reset();
    return kResultSuccess;
}

ResultCode LibusbInterface::release() {
    claim_.reset();
    drivers_.reset();
    handle_.reset();
    return kResultSuccess;
}

ResultCode LibusbInterface::endpointCount(std::uint8_t& count) {
    count = static_cast<std::uint8_t>(descriptor().endpoints.size());
    return kResultSuccess;
}

ResultCode LibusbInterface::pipeProperties(std::uint8_t pipe, PipeProperties& properties) {
    if (pipe == 0 || pipe > descriptor().endpoints.size())
        return kResultNotFound;
    const LibusbEndpoint& endpoint = descriptor().endpoints[pipe - 1U];
    properties.direction = (endpoint.address & kDirectionBit) != 0 ? 1 : 0;
    properties.number = endpoint.address & kNumberMask;
    properties.transferType = endpoint.attributes & kTypeMask;
    properties.maxPacketSize = endpoint.maxPacketSize & kSizeMask;
    properties.interval = endpoint.interval;
    return kResultSuccess;
}

ResultCode LibusbInterface::endpointOf(std::uint8_t pipe, std::uint8_t direction,
                                       std::uint8_t& address) const {
    if (!claim_)
        return kResultNotOpen;
    if (pipe == 0 || pipe > descriptor().endpoints.size())
        return kResultNotFound;
    address = descriptor().endpoints[pipe - 1U].address;
    return (address & kDirectionBit) == direction ? kResultSuccess : kResultInvalid;
}

ResultCode LibusbInterface::noted(std::uint8_t address, ResultCode result) const {
    if (result == kResultStall)
        claim_->noteHalt(address);
    return result;
}

ResultCode LibusbInterface::writePipe(std::uint8_t pipe, std::span<const std::uint8_t> bytes) {
    std::uint8_t address = 0;
    if (const ResultCode found = endpointOf(pipe, kOut, address); found != kResultSuccess)
        return found;
    std::size_t moved = 0;
    const ResultCode result = noted(address, handle_->write(address, bytes, moved));
    return result == kResultSuccess && moved != bytes.size() ? kResultShort : result;
}

ResultCode LibusbInterface::readPipe(std::uint8_t pipe, std::span<std::uint8_t> room,
                                     std::size_t& delivered) {
    delivered = 0;
    std::uint8_t address = 0;
    if (const ResultCode found = endpointOf(pipe, kIn, address); found != kResultSuccess)
        return found;
    return noted(address, handle_->read(address, room, delivered));
}

} // namespace scenewright
