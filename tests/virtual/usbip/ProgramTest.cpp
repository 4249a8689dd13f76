#include "tests/support/RunProgram.h"
#include "tests/support/TempFolder.h"
#include "tests/virtual/usbip/Messages.h"
#include "tests/virtual/usbip/ServerProcess.h"
#include "virtual/VirtualController.h"

#include <gtest/gtest.h>

#include <csignal>

namespace scenewright::usbip {
namespace {

using scenewright::testing::ProgramRun;
using scenewright::testing::readBytes;
using scenewright::testing::TempFolder;
using Bytes = std::vector<std::uint8_t>;

const Bytes kHandshakeReply{0x09, 0x9C, 0x01, 0x02, 0x09, 0x9C, 0x01, 0x38, 0x09, 0x9C, 0x00, 0x01};

ProgramRun run(const std::vector<std::string>& arguments) {
    std::vector<std::string> command{SCENEWRIGHT_BINARY_DIR "/bin/scenewright-virtual"};
    command.insert(command.end(), arguments.begin(), arguments.end());
    return scenewright::testing::runProgram(command);
}

Bytes handshake(Client& client) {
    client.write({0x09, 0x9C, 0x01, 0x02});
    return client.ask({0x09, 0x9C, 0x7E, 0x7D});
}

void startReading(Client& client) {
    handshake(client);
    client.ask({0x09, 0x9C, 0x01, 0x04});
}

Bytes bank(std::uint8_t first) {
    Bytes bytes(1012);
    for (std::size_t index = 0; index < bytes.size(); ++index)
        bytes[index] = static_cast<std::uint8_t>((index + first) % 128);
    return bytes;
}

TEST(VirtualProgram, HostReadsTheBankFile) {
    const TempFolder folder;
    scenewright::testing::writeBytes(folder.file("bank"), bank(3));
    auto [server, host] = Attached({"--bank", folder.file("bank")});
    EXPECT_EQ(handshake(host), kHandshakeReply);
    EXPECT_EQ(host.ask({0x09, 0x9C, 0x01, 0x04}).size(), 4U);
    Bytes read;
    for (int byte = 0; byte < 1012; ++byte) {
        const Bytes packet = host.ask({0x09, 0x9C, 0x01, 0x06});
        ASSERT_EQ(packet.size(), 4U) << byte;
        read.push_back(static_cast<std::uint8_t>(packet[2] * 16 + packet[3]));
    }
    EXPECT_EQ(read, bank(3));
}

TEST(VirtualProgram, SentBankIsKeptInTheFile) {
    const TempFolder folder;
    auto [server, host] = Attached({"--bank", folder.file("bank")});
    handshake(host);
    host.write({0x09, 0x9C, 0x01, 0x03});
    host.ask({0x09, 0x9C, 0x00, 0x02});
    EXPECT_FALSE(std::filesystem::exists(folder.file("bank")));
    for (std::size_t byte = 0; byte < 1024; ++byte) {
        const unsigned value = byte < 1012 ? bank(9)[byte] : 0xFFU;
        host.write({0x09, 0x90, static_cast<std::uint8_t>(value / 16),
                    static_cast<std::uint8_t>(value % 16)});
        if (byte % 512 == 511) {
            EXPECT_EQ(host.read().size(), 4U);
        }
    }
    EXPECT_EQ(readBytes(folder.file("bank")), bank(9));
}

TEST(VirtualProgram, WithoutABankItHoldsTheDefaultScenes) {
    auto [server, host] = Attached({});
    startReading(host);
    std::string name;
    for (int byte = 0; byte < 6; ++byte) {
        const Bytes packet = host.ask({0x09, 0x9C, 0x01, 0x06});
        ASSERT_EQ(packet.size(), 4U);
        name += static_cast<char>(packet[2] * 16 + packet[3]);
    }
    EXPECT_EQ(name, "SCENE1");
}

TEST(VirtualProgram, DevicesAreListedUnderTheirIdentity) {
    const ServerProcess server({"--identity", "abcd:1234", "--interfaces", "1"});
    const Client host(server.port());
    host.send(kDevicesRequest);
    const Bytes reply = host.receive(8 + 4 + 312 + 4);
    ASSERT_EQ(reply.size(), 328U);
    EXPECT_EQ(Bytes(reply.begin() + 312, reply.begin() + 316), (Bytes{0xAB, 0xCD, 0x12, 0x34}));
    EXPECT_EQ(reply[323], 1) << "interfaces";
    EXPECT_TRUE(host.hasEnded());
}

TEST(VirtualProgram, MalformedConnectionsAreLoggedAndDroppedAndTheOthersGoOn) {
    auto [server, host] = Attached({});
    const Client stranger(server.port());
    stranger.send({'G', 'E', 'T', ' ', '/', ' ', 'H', 'T', 'T', 'P'});
    EXPECT_TRUE(stranger.hasEnded());
    EXPECT_EQ(server.nextLine(),
              "scenewright-virtual: dropped a connection: version 4745 of the protocol");
    EXPECT_EQ(handshake(host), kHandshakeReply);

    host.send(Bytes(48, 0x55));
    EXPECT_TRUE(host.hasEnded());
    EXPECT_EQ(server.nextLine(),
              "scenewright-virtual: dropped a connection: an unknown command 1431655765");
    Client again = attach(server);
    EXPECT_EQ(handshake(again), kHandshakeReply);
}

TEST(VirtualProgram, SecondHostFindsTheDeviceBusyUntilTheFirstLeaves) {
    ServerProcess server({});
    {
        Client first = attach(server);
        const Client second(server.port());
        second.send(importRequest("1-1"));
        EXPECT_EQ(second.receive(8), (Bytes{0x01, 0x11, 0, 3, 0, 0, 0, 2}));
        EXPECT_TRUE(second.hasEnded());
    }
    EXPECT_EQ(server.nextLine(), "scenewright-virtual: detached by its host");
    EXPECT_NO_THROW(attach(server));
}

TEST(VirtualProgram, IdleConnectionsDoNotKeepAHostOut) {
    ServerProcess server({});
    std::vector<Client> idle;
    for (int client = 0; client < 40; ++client)
        idle.emplace_back(server.port());
    Client host = attach(server);
    EXPECT_EQ(handshake(host), kHandshakeReply);
    EXPECT_EQ(server.nextLine(), "scenewright-virtual: dropped a connection: there are too many");
}

TEST(VirtualProgram, UnplugEndsTheConnectionAndAttachingPlugsInAgain) {
    auto [server, host] = Attached({"--fault", "unplug:1"});
    startReading(host);
    EXPECT_EQ(host.ask({0x09, 0x9C, 0x01, 0x06}).size(), 4U);
    EXPECT_EQ(host.write({0x09, 0x9C, 0x01, 0x06}), 0);
    EXPECT_TRUE(host.hasEnded());
    EXPECT_EQ(server.nextLine(), "scenewright-virtual: unplugged");
    Client again = attach(server);
    startReading(again);
    EXPECT_EQ(again.ask({0x09, 0x9C, 0x01, 0x06}).size(), 4U);
    EXPECT_EQ(again.ask({0x09, 0x9C, 0x01, 0x06}).size(), 4U) << "the fault is spent";
}

TEST(VirtualProgram, FaultsMayBeGivenMoreThanOnce) {
    auto [server, host] = Attached({"--fault", "handshake:1", "--fault", "write:4"});
    EXPECT_NE(handshake(host), kHandshakeReply);
    EXPECT_EQ(handshake(host), kHandshakeReply);
    EXPECT_EQ(host.write({0x09, 0x9C, 0x01, 0x04}), -EPROTO);
}

TEST(VirtualProgram, OrderedFaultsReplaceTheFormerOnesAndCountAnew) {
    auto [server, host] = Attached({"--orders", "--fault", "short:0"});
    startReading(host);
    EXPECT_EQ(host.ask({0x09, 0x9C, 0x01, 0x06}).size(), 2U);
    EXPECT_EQ(server.order("faults short:1 write:2\n"), "scenewright-virtual: 2 faults ordered");
    EXPECT_EQ(host.ask({0x09, 0x9C, 0x01, 0x06}).size(), 4U) << "the read goes on";
    EXPECT_EQ(host.ask({0x09, 0x9C, 0x01, 0x06}).size(), 2U);
    EXPECT_EQ(host.write({0x09, 0x9C, 0x01, 0x06}), -EPROTO);
    EXPECT_EQ(server.order("faults\n"), "scenewright-virtual: 0 faults ordered");
    EXPECT_EQ(host.ask({0x09, 0x9C, 0x01, 0x06}).size(), 4U);
}

TEST(VirtualProgram, UnplugMayBeOrderedAtAnyTime) {
    ServerProcess server({"--orders"});
    EXPECT_EQ(server.order("unplug\n"),
              "scenewright-virtual: nothing to unplug: the controller is not plugged in");
    const Client host = attach(server);
    EXPECT_EQ(server.order("unplug\n"), "scenewright-virtual: unplugged");
    EXPECT_TRUE(host.hasEnded());
    EXPECT_EQ(server.order("plug\n"),
              "scenewright-virtual: nothing to plug in: a host attaches the controller itself");
    Client again = attach(server);
    EXPECT_EQ(handshake(again), kHandshakeReply);
}

TEST(VirtualProgram, PlaysToTheHostThatListens) {
    auto [server, host] = Attached({"--orders"});
    EXPECT_EQ(server.order("press pad3 100\n"),
              "scenewright-virtual: played Note on 38, ch 10, velocity 100, and nobody listens");
    host.listen();
    EXPECT_EQ(server.order("release pad3\n"), "scenewright-virtual: played Note off 38, ch 10");
    EXPECT_EQ(host.heard(), (Bytes{0x08, 0x89, 0x26, 0x00}));
    host.listen();
    EXPECT_EQ(server.order("slide knob1 0 0 0ms\n"), "scenewright-virtual: slides");
    EXPECT_EQ(host.heard().size(), 4U);
    EXPECT_EQ(server.order("scene 2\n"), "scenewright-virtual: plays scene 2");
    EXPECT_EQ(
        server.order("press pad9 1\n"),
        "scenewright-virtual: 'press pad9 1' is no order: it must be press, a pad or key and a "
        "velocity from 1 to 127, as in press pad3 100");
}

TEST(VirtualProgram, OrdersThatAreNoneAreToldAndTheirEndEndsNothing) {
    ServerProcess server({"--orders"});
    EXPECT_EQ(server.order("dance\n"),
              "scenewright-virtual: 'dance' is no order: those are "
              "faults, unplug, plug, scene, press, release, turn and slide");
    EXPECT_EQ(server.order("faults stall\n"),
              "scenewright-virtual: " + parseFault("stall").error());
    server.endOrders();
    Client host = attach(server);
    EXPECT_EQ(handshake(host), kHandshakeReply);
}

TEST(VirtualProgram, TraceHasALineATransfer) {
    const TempFolder folder;
    auto [server, host] = Attached({"--trace", folder.file("trace")});
    handshake(host);
    server.signal(SIGTERM);
    EXPECT_EQ(server.waitForEnd(), 0);
    const Bytes trace = readBytes(folder.file("trace"));
    EXPECT_EQ(std::string(trace.begin(), trace.end()),
              "1 ep2 out ok 4: 09 9c 01 02\n"
              "2 ep2 out ok 4: 09 9c 7e 7d\n"
              "3 ep1 in ok 12: 09 9c 01 02 09 9c 01 38 09 9c 00 01\n");
}

TEST(VirtualProgram, InterruptTerminateAndHangUpEndItCleanly) {
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        auto [server, host] = Attached({});
        host.send(inMessage(1, 64)); // waits for a reply that never comes
        server.signal(signal);
        EXPECT_EQ(server.waitForEnd(), 0);
        EXPECT_TRUE(host.hasEnded());
    }
}

TEST(VirtualProgram, PlugInSignalMeansNothingOverTheNetwork) {
    ServerProcess server({});
    server.signal(SIGUSR1);
    EXPECT_EQ(server.nextLine(),
              "scenewright-virtual: nothing to plug in: a host attaches the controller itself");
    EXPECT_NO_THROW(attach(server));
}

TEST(VirtualProgram, BadUsageIsRefusedWithOneSentence) {
    const std::vector<std::pair<std::vector<std::string>, std::string>> cases{
        {{"--listen", "127.0.0.1:99999"},
         "--listen: '127.0.0.1:99999' must be an address and a port, as in 127.0.0.1:3240"},
        {{"--listen", "127.0.0.1"},
         "--listen: '127.0.0.1' must be an address and a port, as in 127.0.0.1:3240"},
        {{"--listen", "::1:3240"},
         "--listen: '::1:3240' must be an address and a port, as in 127.0.0.1:3240"},
        {{"--identity", "1209"},
         "--identity: '1209' must be two hexadecimal numbers, as in 1209:0001"},
        {{"--identity", "1209:00012"},
         "--identity: '1209:00012' must be two hexadecimal numbers, as in 1209:0001"},
        {{"--interfaces", "3"}, "--interfaces: Value 3 not in range 1 to 2"},
        {{"--fault", "stall:"},
         "--fault: 'stall:' is no fault: a number from 0 to 4294967295 must follow 'stall:'"},
        {{"two\nlines\x1B[31m"},
         "The following argument was not expected: two\uFFFDlines\uFFFD[31m"},
    };
    for (const auto& [arguments, sentence] : cases) {
        const ProgramRun refused = run(arguments);
        EXPECT_EQ(refused.exitCode, 2) << sentence;
        EXPECT_EQ(refused.errors, "scenewright-virtual: " + sentence + " (--help tells more)\n");
        EXPECT_EQ(refused.output, "");
    }
}

// What is said behind the options: an address in use, files that are no bank or cannot be.
TEST(VirtualProgram, WhatItCannotUseIsToldInOneSentenceAndLeftAlone) {
    const TempFolder folder;
    const ServerProcess server({});
    const std::string address = "127.0.0.1:" + std::to_string(server.port());
    const std::string file = folder.file("bank");
    const std::string odd = folder.file("odd");
    scenewright::testing::writeBytes(file, bank(3));
    scenewright::testing::writeBytes(odd, Bytes(1013));
    const struct {
        std::vector<std::string> arguments;
        int exitCode;
        std::string sentence;
    } cases[] = {
        {{"--listen", address}, 1, "cannot listen at " + address + ": Address already in use"},
        {{"--bank", file, "--trace", file},
         2,
         "--trace " + file + ": it would overwrite the controller's memory"},
        {{"--bank", odd}, 2, odd + ": a bank has 1012 bytes, and this file has 1013"},
        {{"--bank", folder.path().string()}, 2, ""},
        {{"--bank", folder.file("no/bank")}, 2, ""},
        {{"--trace", "no\nsuch/trace"},
         2,
         "no\uFFFDsuch/trace: cannot be written: No such file or directory"},
    };
    for (const auto& [arguments, exitCode, sentence] : cases) {
        const ProgramRun refused = run(arguments);
        EXPECT_EQ(refused.exitCode, exitCode) << arguments[1];
        if (!sentence.empty()) {
            EXPECT_EQ(refused.errors, "scenewright-virtual: " + sentence + "\n");
        }
    }
    EXPECT_EQ(readBytes(file), bank(3));
    EXPECT_EQ(readBytes(odd), Bytes(1013));
}

} // namespace
} // namespace scenewright::usbip
