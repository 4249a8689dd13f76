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

std::string errorOfFault(std::string_view text) {
    return parseFault(text).error();
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

std::string text(const Bytes& bytes) {
    return {bytes.begin(), bytes.end()};
}

TEST(VirtualProgram, HostReadsTheBankFile) {
    const TempFolder folder;
    scenewright::testing::writeBytes(folder.file("bank"), bank(3));
    const ServerProcess server({"--bank", folder.file("bank")});
    Client host(server.port());
    host.import();
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
    const ServerProcess server({"--bank", folder.file("bank")});
    Client host(server.port());
    host.import();
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
    const ServerProcess server({});
    Client host(server.port());
    host.import();
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
    ServerProcess server({});
    Client host(server.port());
    host.import();
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
    Client again(server.port());
    again.import();
    EXPECT_EQ(handshake(again), kHandshakeReply);
}

TEST(VirtualProgram, SecondHostFindsTheDeviceBusyUntilTheFirstLeaves) {
    ServerProcess server({});
    {
        Client first(server.port());
        first.import();
        const Client second(server.port());
        second.send(importRequest("1-1"));
        EXPECT_EQ(second.receive(8), (Bytes{0x01, 0x11, 0, 3, 0, 0, 0, 2}));
        EXPECT_TRUE(second.hasEnded());
    }
    EXPECT_EQ(server.nextLine(), "scenewright-virtual: detached by its host");
    const Client third(server.port());
    EXPECT_NO_THROW(third.import());
}

TEST(VirtualProgram, IdleConnectionsDoNotKeepAHostOut) {
    ServerProcess server({});
    std::vector<Client> idle;
    for (int client = 0; client < 40; ++client)
        idle.emplace_back(server.port());
    Client host(server.port());
    host.import();
    EXPECT_EQ(handshake(host), kHandshakeReply);
    EXPECT_EQ(server.nextLine(), "scenewright-virtual: dropped a connection: there are too many");
}

TEST(VirtualProgram, UnplugEndsTheConnectionAndAttachingPlugsInAgain) {
    ServerProcess server({"--fault", "unplug:1"});
    Client host(server.port());
    host.import();
    startReading(host);
    EXPECT_EQ(host.ask({0x09, 0x9C, 0x01, 0x06}).size(), 4U);
    EXPECT_EQ(host.write({0x09, 0x9C, 0x01, 0x06}), 0);
    EXPECT_TRUE(host.hasEnded());
    EXPECT_EQ(server.nextLine(), "scenewright-virtual: unplugged");
    Client again(server.port());
    again.import();
    startReading(again);
    EXPECT_EQ(again.ask({0x09, 0x9C, 0x01, 0x06}).size(), 4U);
    EXPECT_EQ(again.ask({0x09, 0x9C, 0x01, 0x06}).size(), 4U) << "the fault is spent";
}

TEST(VirtualProgram, FaultsMayBeGivenMoreThanOnce) {
    const ServerProcess server({"--fault", "handshake:1", "--fault", "write:4"});
    Client host(server.port());
    host.import();
    EXPECT_NE(handshake(host), kHandshakeReply);
    EXPECT_EQ(handshake(host), kHandshakeReply);
    EXPECT_EQ(host.write({0x09, 0x9C, 0x01, 0x04}), -EPROTO);
}

TEST(VirtualProgram, OrderedFaultsReplaceTheFormerOnesAndCountAnew) {
    ServerProcess server({"--orders", "--fault", "short:0"});
    Client host(server.port());
    host.import();
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
    const Client host(server.port());
    host.import();
    EXPECT_EQ(server.order("unplug\n"), "scenewright-virtual: unplugged");
    EXPECT_TRUE(host.hasEnded());
    EXPECT_EQ(server.order("plug\n"),
              "scenewright-virtual: nothing to plug in: a host attaches the controller itself");
    Client again(server.port());
    again.import();
    EXPECT_EQ(handshake(again), kHandshakeReply);
}

TEST(VirtualProgram, PlaysToTheHostThatListens) {
    ServerProcess server({"--orders"});
    Client host(server.port());
    host.import();
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
    EXPECT_EQ(server.order("faults stall\n"), "scenewright-virtual: " + errorOfFault("stall"));
    server.endOrders();
    Client host(server.port());
    host.import();
    EXPECT_EQ(handshake(host), kHandshakeReply);
}

TEST(VirtualProgram, TraceDoesNotOverwriteTheMemory) {
    const TempFolder folder;
    const std::string file = folder.file("bank");
    scenewright::testing::writeBytes(file, bank(3));
    const ProgramRun result = run({"--bank", file, "--trace", file});
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_EQ(result.errors, "scenewright-virtual: --trace " + file +
                                 ": it would overwrite the controller's memory\n");
    EXPECT_EQ(readBytes(file), bank(3));
}

TEST(VirtualProgram, TraceHasALineATransfer) {
    const TempFolder folder;
    ServerProcess server({"--trace", folder.file("trace")});
    Client host(server.port());
    host.import();
    handshake(host);
    server.signal(SIGTERM);
    EXPECT_EQ(server.waitForEnd(), 0);
    EXPECT_EQ(text(readBytes(folder.file("trace"))),
              "1 ep2 out ok 4: 09 9c 01 02\n"
              "2 ep2 out ok 4: 09 9c 7e 7d\n"
              "3 ep1 in ok 12: 09 9c 01 02 09 9c 01 38 09 9c 00 01\n");
}

TEST(VirtualProgram, InterruptTerminateAndHangUpEndItCleanly) {
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        ServerProcess server({});
        Client host(server.port());
        host.import();
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
    Client host(server.port());
    EXPECT_NO_THROW(host.import());
}

TEST(VirtualProgram, AddressInUseIsToldInOneSentence) {
    const ServerProcess server({});
    const std::string address = "127.0.0.1:" + std::to_string(server.port());
    const ProgramRun second = run({"--listen", address});
    EXPECT_EQ(second.exitCode, 1);
    EXPECT_EQ(second.errors,
              "scenewright-virtual: cannot listen at " + address + ": Address already in use\n");
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

TEST(VirtualProgram, BankThatIsNoneIsRefusedAndLeftAlone) {
    const TempFolder folder;
    const std::string file = folder.file("bank");
    scenewright::testing::writeBytes(file, Bytes(1013));
    const ProgramRun refused = run({"--bank", file});
    EXPECT_EQ(refused.exitCode, 2);
    EXPECT_EQ(refused.errors,
              "scenewright-virtual: " + file + ": a bank has 1012 bytes, and this file has 1013\n");
    EXPECT_EQ(readBytes(file).size(), 1013U);
    EXPECT_EQ(run({"--bank", folder.path().string()}).exitCode, 2) << "a folder";
    EXPECT_EQ(run({"--bank", folder.file("no/bank")}).exitCode, 2);
    EXPECT_EQ(run({"--trace", folder.file("no/trace")}).exitCode, 2);
    EXPECT_EQ(run({"--trace", "no\nsuch/trace"}).errors,
              "scenewright-virtual: no\uFFFDsuch/trace: cannot be written: No such file or "
              "directory\n");
}

} // namespace
} // namespace scenewright::usbip
