// The virtual controller behind the USB seam, in the same process: a bus with one device of two
// interfaces, the second of which has bulk IN first and bulk OUT second.
#pragma once

#include "platform/Text.h"
#include "usb/UsbHost.h"
#include "virtual/VirtualController.h"

#include <condition_variable>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <span>
#include <string>
#include <utility>

namespace scenewright {

// Keeps what was sent to a virtual controller in a file.
class BankFileStore {
public:
    // Writes a bank to a file, whole or not at all. Called on the thread that made the transfer.
    using Store =
        std::function<Result<void>(const std::filesystem::path& file, const BankImage& bank)>;
    [[nodiscard]] static Result<void> storeImage(const std::filesystem::path& file,
                                                 const BankImage& bank);

    // An empty path keeps nothing.
    explicit BankFileStore(std::filesystem::path file, Store store = &storeImage)
        : file_(std::move(file)), store_(std::move(store)) {}

    // Stores the bank when a send has ended since the last call. To be called after every transfer
    // that the controller received.
    void afterTransfer(const VirtualController& controller);

    // What became of the last one.
    [[nodiscard]] const Result<void>& result() const noexcept { return result_; }

private:
    std::filesystem::path file_;
    Store store_;
    std::uint32_t sendsKept_ = 0;
    Result<void> result_;
};

// Which device the host pretends to have on its bus.
struct VirtualIdentity {
    std::uint16_t vendor = 0x1209;
    std::uint16_t product = 0x0001;
    std::uint8_t interfaces = 2; // 1 leaves the data interface out
};

// The controller must not be touched while a host has it. Every operation may be called from any
// thread.
class VirtualHost : public UsbHost, public std::enable_shared_from_this<VirtualHost> {
public:
    // Stands where the kernel's driver of MIDI ports does on a real bus.
    using Listener = std::function<void(const Packet& packet)>;

    // As makeVirtualHost(), which owns it as its devices need.
    VirtualHost(std::shared_ptr<VirtualController> device, BankFileStore keeper,
                VirtualIdentity identity);

    // The controller, unless it is unplugged or has other ids.
    UsbResult<Devices> devices(const DeviceMatch& match) override;
    // Whether the last send could be kept in the bank file.
    Result<void> storageResult() override;

    // What the controller holds.
    [[nodiscard]] BankImage bank() const;
    // Null ends it.
    void setListener(Listener listener);
    // Puts a packet on the bulk IN pipe, for the listener, which is called before it returns. It is
    // dropped while a transaction has the interface, and where nobody listens.
    void play(const Packet& packet);

private:
    class Device;
    class Interface;

    [[nodiscard]] bool isPresent() const;
    // Exclusive use by `owner`, which is only compared; busy while another owner has it.
    ResultCode claim(const Interface* owner);
    // Ends a read of the owner, and returns when it has ended.
    void unclaim(const Interface* owner);
    // Both need the owner's claim.
    ResultCode write(const Interface* owner, std::span<const std::uint8_t> bytes);
    // Ends with kResultCancelled when the owner gives its claim up meanwhile.
    UsbRead read(const Interface* owner, std::span<std::uint8_t> room);
    // Nothing as long as there is a reason to wait.
    [[nodiscard]] std::optional<UsbRead> tryRead(const Interface* owner,
                                                 std::span<std::uint8_t> room);

    mutable std::mutex mutex_; // guards all below but identity_
    std::condition_variable changed_;
    std::shared_ptr<VirtualController> device_;
    BankFileStore keeper_;
    const VirtualIdentity identity_;
    const Interface* owner_ = nullptr;
    int reads_ = 0; // going on now
    Listener listener_;
};

// A read waits until the controller has a reply, or for ever; a close ends it. Every send that has
// reached its end goes to the keeper.
[[nodiscard]] std::shared_ptr<VirtualHost>
makeVirtualHost(std::shared_ptr<VirtualController> device, BankFileStore keeper = BankFileStore({}),
                VirtualIdentity identity = {});

} // namespace scenewright
