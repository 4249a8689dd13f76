// A sequencer in memory: ports and connections as a test makes them, and what it tells of them.
#pragma once

#include "platform/Process.h"
#include "sequencer/Sequencer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <sys/eventfd.h>
#include <utility>
#include <vector>

namespace scenewright::testing {

// What the sequencers of a test share, as programs share the system's.
struct ScriptedPorts {
    std::vector<SequencerPort> ports;
    std::vector<PortConnection> connections;
    std::vector<std::string> asked; // connections that were asked for, "20:0 -> 128:0"
    std::vector<MidiMessage> sent;  // from the own port
    // With these sentences, unless they are empty.
    std::string connectingFails{};
    std::string sendingFails{};
    SequencerInput input;               // for the next take()
    std::function<void()> duringWait{}; // called once, by the next wait()
    int waits = 0;
    FileDescriptor bell{}; // what an event loop waits on; none unless a test makes it

    void makeBell() { bell = FileDescriptor(::eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC)); }
    void ring() const { EXPECT_EQ(::eventfd_write(bell.get(), 1), 0); }
    void add(PortAddress address, std::string client, std::string port, int card = -1) {
        ports.push_back({.address = address,
                         .clientName = std::move(client),
                         .portName = std::move(port),
                         .card = card,
                         .sends = true});
        input.hasChanged = true;
    }
    void remove(PortAddress address) {
        std::erase_if(ports, [&](const auto& port) { return port.address == address; });
        std::erase_if(connections,
                      [&](const auto& each) { return each.from == address || each.to == address; });
        input.ended.push_back(address);
        input.hasChanged = true;
    }
    void link(const PortConnection& connection) {
        connections.push_back(connection);
        input.hasChanged = true;
    }
    void send(PortAddress from, MidiMessage message) { input.messages.push_back({from, message}); }
};

class ScriptedSequencer : public Sequencer {
public:
    static constexpr PortAddress kOwnPort{200, 0};

    explicit ScriptedSequencer(std::shared_ptr<ScriptedPorts> state) : state_(std::move(state)) {}

    [[nodiscard]] int descriptor() const override { return state_->bell.get(); }
    void wait(std::chrono::milliseconds /*limit*/) override {
        ++state_->waits;
        if (const auto step = std::exchange(state_->duringWait, nullptr))
            step();
    }
    [[nodiscard]] SequencerInput take() override {
        eventfd_t rung = 0;
        ::eventfd_read(state_->bell.get(), &rung);
        return std::exchange(state_->input, {});
    }
    [[nodiscard]] std::vector<SequencerPort> ports() override {
        auto all = state_->ports;
        all.push_back({.address = kOwnPort, .clientName = "own", .portName = "own", .isOwn = true});
        return all;
    }
    [[nodiscard]] std::vector<PortConnection> connectionsOf(PortAddress port) override {
        std::vector<PortConnection> found;
        for (const PortConnection& each : state_->connections)
            if (each.from == port || each.to == port)
                found.push_back(each);
        return found;
    }
    Result<void> connect(const PortConnection& connection) override {
        state_->asked.push_back(std::to_string(connection.from.client) + ":" +
                                std::to_string(connection.from.port) + " -> " +
                                std::to_string(connection.to.client) + ":" +
                                std::to_string(connection.to.port));
        if (!state_->connectingFails.empty())
            return failure(state_->connectingFails);
        if (std::ranges::find(state_->connections, connection) == state_->connections.end())
            state_->connections.push_back(connection);
        return {};
    }
    Result<void> listenTo(PortAddress port) override {
        return connect({.from = port, .to = kOwnPort});
    }
    Result<void> send(const MidiMessage& message) override {
        if (!state_->sendingFails.empty())
            return failure(state_->sendingFails);
        state_->sent.push_back(message);
        return {};
    }

private:
    std::shared_ptr<ScriptedPorts> state_;
};

} // namespace scenewright::testing
