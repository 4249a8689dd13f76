#include "platform/Process.h"
#include "platform/Text.h"
#include "sequencer/Sequencer.h"

#include <fmt/format.h>

#include <algorithm>
#include <alsa/asoundlib.h>
#include <array>
#include <cerrno>
#include <cstdarg>
#include <poll.h>
#include <string_view>
#include <type_traits>
#include <utility>

namespace scenewright {

namespace {

// Events that the kernel keeps for a client until it takes them: the most that it allows.
constexpr std::size_t kKeptEvents = 2000;
constexpr std::size_t kLongestMessage = 3; // bytes; longer ones are told by their first

using Handle = std::unique_ptr<snd_seq_t, int (*)(snd_seq_t*)>;
using Coder = std::unique_ptr<snd_midi_event_t, void (*)(snd_midi_event_t*)>;

// One of libasound's records, which only it knows the size of.
template <typename Record>
using Owned = std::unique_ptr<Record, void (*)(Record*)>;

template <typename Record>
Owned<Record> made(int (*allocate)(Record**), void (*free)(Record*)) {
    Record* record = nullptr;
    if (allocate(&record) < 0)
        throw std::bad_alloc();
    return {record, free};
}

std::string textOf(const char* text) {
    return text == nullptr ? std::string() : std::string(text);
}

std::string causeOf(int error) {
    return systemText(-error);
}

std::string openError(int error) {
    constexpr std::string_view kSequencer = "/dev/snd/seq";
    if (error == -ENOENT || error == -ENODEV || error == -ENXIO)
        return translated(sourceText("scenewright::Sequencer",
                                     "there is no sequencer of ALSA's on this system ({}); as "
                                     "root, modprobe snd-seq loads it"),
                          kSequencer);
    if (error == -EACCES || error == -EPERM)
        return translated(sourceText("scenewright::Sequencer",
                                     "you have no permission to use {}; sit at the machine, or "
                                     "be a member of the group audio"),
                          kSequencer);
    return translated(sourceText("scenewright::Sequencer", "cannot use ALSA's sequencer ({}): {}"),
                      kSequencer, causeOf(error));
}

PortAddress addressOf(const snd_seq_addr_t& address) {
    return {address.client, address.port};
}

snd_seq_addr_t alsaAddress(PortAddress address) {
    return {static_cast<unsigned char>(address.client), static_cast<unsigned char>(address.port)};
}

class AlsaSequencer : public Sequencer {
public:
    AlsaSequencer(Handle handle, Coder coder, int port)
        : handle_(std::move(handle)),
          coder_(std::move(coder)), own_{snd_seq_client_id(handle_.get()), port} {
        pollfd place{};
        snd_seq_poll_descriptors(handle_.get(), &place, 1, POLLIN);
        descriptor_ = place.fd;
    }

    [[nodiscard]] int descriptor() const override { return descriptor_; }
    void wait(std::chrono::milliseconds limit) override;
    [[nodiscard]] SequencerInput take() override;
    [[nodiscard]] std::vector<SequencerPort> ports() override;
    [[nodiscard]] std::vector<PortConnection> connectionsOf(PortAddress port) override;
    Result<void> connect(const PortConnection& connection) override;
    Result<void> listenTo(PortAddress port) override;
    Result<void> send(const MidiMessage& message) override;

private:
    void takeEvent(const snd_seq_event_t& event, SequencerInput& input);
    void addPorts(snd_seq_client_info_t& client, std::vector<SequencerPort>& found);
    void addConnections(PortAddress port, snd_seq_query_subs_type_t type,
                        std::vector<PortConnection>& found);

    Handle handle_;
    Coder coder_; // of events into bytes, and back
    PortAddress own_;
    int descriptor_ = -1;
};

void AlsaSequencer::wait(std::chrono::milliseconds limit) {
    pollfd place{descriptor_, POLLIN, 0};
    ::poll(&place, 1, static_cast<int>(limit.count()));
}

SequencerInput AlsaSequencer::take() {
    SequencerInput input;
    for (;;) {
        snd_seq_event_t* event = nullptr;
        const int result = snd_seq_event_input(handle_.get(), &event);
        if (result == -ENOSPC)
            input.isIncomplete = true;
        else if (result < 0)
            return input; // nothing more
        else if (event != nullptr)
            takeEvent(*event, input);
    }
}

void AlsaSequencer::takeEvent(const snd_seq_event_t& event, SequencerInput& input) {
    if (event.type == SND_SEQ_EVENT_PORT_EXIT)
        input.ended.push_back(addressOf(event.data.addr));
    // The announcements' types stand together.
    if (event.type >= SND_SEQ_EVENT_CLIENT_START && event.type <= SND_SEQ_EVENT_PORT_UNSUBSCRIBED) {
        input.hasChanged = true;
        return;
    }
    if (event.type == SND_SEQ_EVENT_SYSEX) {
        input.messages.push_back({addressOf(event.source), {kSystemExclusive, 0, 0}});
        return;
    }
    std::array<unsigned char, kLongestMessage> bytes{};
    const long count = snd_midi_event_decode(coder_.get(), bytes.data(), bytes.size(), &event);
    if (count > 0)
        input.messages.push_back({addressOf(event.source), {bytes[0], bytes[1], bytes[2]}});
}

std::vector<SequencerPort> AlsaSequencer::ports() {
    std::vector<SequencerPort> found;
    const auto client = made(&snd_seq_client_info_malloc, &snd_seq_client_info_free);
    snd_seq_client_info_set_client(client.get(), -1);
    while (snd_seq_query_next_client(handle_.get(), client.get()) >= 0)
        addPorts(*client, found);
    return found;
}

void AlsaSequencer::addPorts(snd_seq_client_info_t& client, std::vector<SequencerPort>& found) {
    const int number = snd_seq_client_info_get_client(&client);
    const auto port = made(&snd_seq_port_info_malloc, &snd_seq_port_info_free);
    snd_seq_port_info_set_client(port.get(), number);
    snd_seq_port_info_set_port(port.get(), -1);
    while (snd_seq_query_next_port(handle_.get(), port.get()) >= 0)
        found.push_back({.address = {number, snd_seq_port_info_get_port(port.get())},
                         .clientName = textOf(snd_seq_client_info_get_name(&client)),
                         .portName = textOf(snd_seq_port_info_get_name(port.get())),
                         .card = snd_seq_client_info_get_card(&client),
                         .isOwn = number == own_.client,
                         .sends = (snd_seq_port_info_get_capability(port.get()) &
                                   SND_SEQ_PORT_CAP_SUBS_READ) != 0});
}

std::vector<PortConnection> AlsaSequencer::connectionsOf(PortAddress port) {
    std::vector<PortConnection> found;
    addConnections(port, SND_SEQ_QUERY_SUBS_READ, found);
    addConnections(port, SND_SEQ_QUERY_SUBS_WRITE, found);
    return found;
}

void AlsaSequencer::addConnections(PortAddress port, snd_seq_query_subs_type_t type,
                                   std::vector<PortConnection>& found) {
    const auto query = made(&snd_seq_query_subscribe_malloc, &snd_seq_query_subscribe_free);
    const snd_seq_addr_t root = alsaAddress(port);
    snd_seq_query_subscribe_set_root(query.get(), &root);
    snd_seq_query_subscribe_set_type(query.get(), type);
    for (int index = 0;; ++index) {
        snd_seq_query_subscribe_set_index(query.get(), index);
        if (snd_seq_query_port_subscribers(handle_.get(), query.get()) < 0)
            return;
        const PortAddress other = addressOf(*snd_seq_query_subscribe_get_addr(query.get()));
        const bool isFrom = type == SND_SEQ_QUERY_SUBS_READ;
        const bool isTimed = snd_seq_query_subscribe_get_time_update(query.get()) != 0;
        found.push_back(
            {.from = isFrom ? port : other,
             .to = isFrom ? other : port,
             .isExclusive = snd_seq_query_subscribe_get_exclusive(query.get()) != 0,
             .timeQueue = isTimed ? snd_seq_query_subscribe_get_queue(query.get()) : -1,
             .hasRealTime = isTimed && snd_seq_query_subscribe_get_time_real(query.get()) != 0});
    }
}

Result<void> AlsaSequencer::connect(const PortConnection& connection) {
    const auto wanted = made(&snd_seq_port_subscribe_malloc, &snd_seq_port_subscribe_free);
    const snd_seq_addr_t from = alsaAddress(connection.from);
    const snd_seq_addr_t to = alsaAddress(connection.to);
    snd_seq_port_subscribe_set_sender(wanted.get(), &from);
    snd_seq_port_subscribe_set_dest(wanted.get(), &to);
    snd_seq_port_subscribe_set_exclusive(wanted.get(), connection.isExclusive ? 1 : 0);
    snd_seq_port_subscribe_set_time_update(wanted.get(), connection.timeQueue >= 0 ? 1 : 0);
    snd_seq_port_subscribe_set_time_real(wanted.get(), connection.hasRealTime ? 1 : 0);
    if (connection.timeQueue >= 0)
        snd_seq_port_subscribe_set_queue(wanted.get(), connection.timeQueue);
    const int result = snd_seq_subscribe_port(handle_.get(), wanted.get());
    if (result >= 0)
        return {};
    const auto others = connectionsOf(connection.from);
    if (std::ranges::any_of(
            others, [&connection](const PortConnection& each) { return each.to == connection.to; }))
        return {}; // it is there
    // Its device is open by itself, or one end lets no other in.
    if (result == -EBUSY || result == -EAGAIN)
        return failure(translated(sourceText("scenewright::Sequencer",
                                             "another program has the MIDI port {}:{} for itself; "
                                             "end that program first"),
                                  connection.from.client, connection.from.port));
    return failure(
        translated(sourceText("scenewright::Sequencer", "cannot connect {}:{} to {}:{}: {}"),
                   connection.from.client, connection.from.port, connection.to.client,
                   connection.to.port, causeOf(result)));
}

Result<void> AlsaSequencer::listenTo(PortAddress port) {
    return connect({.from = port, .to = own_});
}

Result<void> AlsaSequencer::send(const MidiMessage& message) {
    const std::array<unsigned char, kLongestMessage> bytes{message.status, message.first,
                                                           message.second};
    snd_seq_event_t event{};
    snd_midi_event_reset_encode(coder_.get());
    // Leaves over what the message has no use for.
    snd_midi_event_encode(coder_.get(), bytes.data(), bytes.size(), &event);
    snd_seq_ev_set_source(&event, static_cast<unsigned char>(own_.port));
    snd_seq_ev_set_subs(&event);
    snd_seq_ev_set_direct(&event);
    if (const int result = snd_seq_event_output_direct(handle_.get(), &event); result < 0)
        return failure(
            translated(sourceText("scenewright::Sequencer",
                                  "what is played does not reach a program that is connected: {}"),
                       causeOf(result)));
    return {};
}

// The kernel's sequencer and no other, without the files of the system's configuration, which a
// system may lack.
int openKernelSequencer(snd_seq_t** sequencer) {
    constexpr std::string_view kText = "seq.hw { type hw }";
    snd_config_t* top = nullptr;
    snd_input_t* input = nullptr;
    int error = snd_config_top(&top);
    if (error >= 0)
        error = snd_input_buffer_open(&input, kText.data(), static_cast<ssize_t>(kText.size()));
    if (error >= 0)
        error = snd_config_load(top, input);
    if (error >= 0)
        error = snd_seq_open_lconf(sequencer, "hw", SND_SEQ_OPEN_DUPLEX, SND_SEQ_NONBLOCK, top);
    if (input != nullptr)
        snd_input_close(input);
    if (top != nullptr)
        snd_config_delete(top);
    return error;
}

// Prints nothing: what went wrong is told by results.
void ignoreMessage(const char* /*file*/, int /*line*/, const char* /*function*/, int /*error*/,
                   const char* /*format*/, ...) {}

} // namespace

Result<std::unique_ptr<Sequencer>> openSequencer(const std::string& name, SequencerUse use) {
    snd_lib_error_set_handler(&ignoreMessage);
    snd_seq_t* opened = nullptr;
    if (const int error = openKernelSequencer(&opened); error < 0)
        return failure(openError(error));
    Handle handle(opened, &snd_seq_close);
    snd_seq_set_client_name(opened, name.c_str());
    snd_seq_set_client_pool_input(opened, kKeptEvents);
    // It is written to by the announcements in either case.
    const unsigned others = use == SequencerUse::Sending
                                ? SND_SEQ_PORT_CAP_READ | SND_SEQ_PORT_CAP_SUBS_READ
                                : SND_SEQ_PORT_CAP_NO_EXPORT;
    const int port =
        snd_seq_create_simple_port(opened, name.c_str(), SND_SEQ_PORT_CAP_WRITE | others,
                                   SND_SEQ_PORT_TYPE_MIDI_GENERIC | SND_SEQ_PORT_TYPE_APPLICATION);
    if (port < 0)
        return failure(openError(port));
    snd_midi_event_t* coder = nullptr;
    if (const int error = snd_midi_event_new(kLongestMessage, &coder); error < 0)
        return failure(openError(error));
    snd_midi_event_no_status(coder, 1);
    auto sequencer = std::make_unique<AlsaSequencer>(std::move(handle),
                                                     Coder(coder, &snd_midi_event_free), port);
    const PortAddress announcements{SND_SEQ_CLIENT_SYSTEM, SND_SEQ_PORT_SYSTEM_ANNOUNCE};
    if (const auto listening = sequencer->listenTo(announcements); !listening)
        return failure(listening.error());
    return sequencer;
}

} // namespace scenewright
