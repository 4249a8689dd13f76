// One USB/IP connection, with no socket in it: bytes in, bytes out.
//
// A connection asks for devices or imports one; then it carries transfers. Its end, for whatever
// reason, unplugs the device from that host. One thread.
#pragma once

#include "virtual/usbip/BusDevice.h"
#include "virtual/usbip/Exported.h"

#include <memory>
#include <string>

namespace scenewright::usbip {

class Session {
public:
    // How a connection begins: with questions, or (handed to a kernel) attached already.
    enum class Start : std::uint8_t { Asking, Attached };
    // What is to become of the connection. When it ends, what was put out is still sent.
    enum class State : std::uint8_t { Open, Done, Malformed, Unplugged };

    // `exported` must outlive the session. Attaching plugs the controller in anew.
    Session(Exported& exported, Start start);
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;
    Session(Session&&) = delete;
    Session& operator=(Session&&) = delete;

    // Takes bytes in pieces of any size. Nothing once the session is not open any more.
    void receive(ByteView bytes);
    // What is to be sent, in order; the caller removes what it has sent.
    [[nodiscard]] Bytes& output() noexcept { return output_; }

    [[nodiscard]] State state() const noexcept { return state_; }
    [[nodiscard]] bool isAttached() const noexcept { return device_ != nullptr; }
    // Why it is malformed.
    [[nodiscard]] const std::string& trouble() const noexcept { return trouble_; }

private:
    // Takes one message from the input; false when more bytes are needed.
    bool takeMessage();
    bool takeOperation();
    bool takeImport();
    bool takeCommand();
    bool takeSubmit(const SubmitCommand& command);
    void takeUnlink(const UnlinkCommand& command);
    void import(const std::string& busId);
    void attach();
    void answerCompletions();
    void send(const Bytes& message);
    void drop(std::string trouble);
    [[nodiscard]] ByteView inputStart(std::size_t size) const {
        return ByteView(input_).first(size);
    }

    Exported& exported_;
    const DeviceRecord record_;
    std::unique_ptr<BusDevice> device_; // null while the connection asks
    State state_ = State::Open;
    std::string trouble_;
    Bytes input_; // at most one message and what came with it
    Bytes output_;
};

} // namespace scenewright::usbip
