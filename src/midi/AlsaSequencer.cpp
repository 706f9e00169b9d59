// alsa-lib's handles, questions and events behind the interface of the sequencer.
#include "midi/AlsaSequencer.h"

#include "midi/AlsaAccount.h"
#include "midi/ImpatientCall.h"

#include <alsa/asoundlib.h>
#include <cerrno>
#include <new>
#include <sys/stat.h>

namespace
{

constexpr const char* ClientName = "Tarvolyne";
constexpr const char* OutputName = "MIDI out";
constexpr int NotMade = -1;
/// The mark of our thru wires: the number of a queue, which means nothing in a wire without time stamps.
constexpr int MarkQueue = 84;
constexpr std::size_t LongestShort = 12;

/// alsa-lib tells standard error why it cannot open; the program says it to the user in its own words.
void keepQuiet(const char*, int, const char*, int, const char*, ...) {} // NOLINT(cert-dcl50-cpp): alsa-lib's own form

template <typename T, int (*Allocate)(T**), void (*Free)(T*)>
class Info
{
public:
    Info()
    {
        if (Allocate(&info_) < 0)
            throw std::bad_alloc();
    }
    ~Info() { Free(info_); }
    Info(const Info&) = delete;
    Info& operator=(const Info&) = delete;
    T* get() const { return info_; }

private:
    T* info_ = nullptr;
};
using ClientInfo = Info<snd_seq_client_info_t, snd_seq_client_info_malloc, snd_seq_client_info_free>;
using PortInfo = Info<snd_seq_port_info_t, snd_seq_port_info_malloc, snd_seq_port_info_free>;
using WireInfo = Info<snd_seq_port_subscribe_t, snd_seq_port_subscribe_malloc, snd_seq_port_subscribe_free>;
using WireQuery = Info<snd_seq_query_subscribe_t, snd_seq_query_subscribe_malloc, snd_seq_query_subscribe_free>;

snd_seq_addr_t alsaAddress(SeqAddress address)
{
    return {static_cast<unsigned char>(address.client), static_cast<unsigned char>(address.port)};
}

void describe(const WireInfo& wire, SeqAddress sender, SeqAddress receiver)
{
    const snd_seq_addr_t from = alsaAddress(sender);
    const snd_seq_addr_t to = alsaAddress(receiver);
    snd_seq_port_subscribe_set_sender(wire.get(), &from);
    snd_seq_port_subscribe_set_dest(wire.get(), &to);
}

/// A card's folder is made anew at each plugging in, and its number is not given twice; a program has its process.
std::int64_t birthOf(int card, const snd_seq_client_info_t* client)
{
    if (card < 0)
        return snd_seq_client_info_get_pid(client);
    struct stat folder {
    };
    const std::string path = "/sys/class/sound/card" + std::to_string(card);
    return stat(path.c_str(), &folder) == 0 ? static_cast<std::int64_t>(folder.st_ino) : 0;
}

SeqPort described(const snd_seq_client_info_t* client, const snd_seq_port_info_t* info)
{
    const unsigned capability = snd_seq_port_info_get_capability(info);
    const auto may = [capability](unsigned wanted) {
        return (capability & wanted) == wanted && (capability & SND_SEQ_PORT_CAP_NO_EXPORT) == 0;
    };
    SeqPort port;
    port.address = {snd_seq_port_info_get_client(info), snd_seq_port_info_get_port(info)};
    port.kernel = snd_seq_client_info_get_type(client) == SND_SEQ_KERNEL_CLIENT;
    port.card = port.kernel ? snd_seq_client_info_get_card(client) : -1;
    port.hardware = (snd_seq_port_info_get_type(info) & SND_SEQ_PORT_TYPE_HARDWARE) != 0;
    port.readable = may(SND_SEQ_PORT_CAP_READ | SND_SEQ_PORT_CAP_SUBS_READ);
    port.writable = may(SND_SEQ_PORT_CAP_WRITE | SND_SEQ_PORT_CAP_SUBS_WRITE);
    port.clientName = snd_seq_client_info_get_name(const_cast<snd_seq_client_info_t*>(client));
    port.portName = snd_seq_port_info_get_name(info);
    port.birth = birthOf(port.card, client);
    return port;
}

} // namespace

struct AlsaSequencer::Handle {
    snd_seq_t* sequencer = nullptr;
    snd_midi_event_t* encoder = nullptr;
    int client = 0;
    int port = NotMade;

    Handle() = default;
    ~Handle()
    {
        if (encoder != nullptr)
            snd_midi_event_free(encoder);
        if (sequencer != nullptr) {
            const ImpatientCall impatient;
            snd_seq_close(sequencer);
        }
    }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;

    /// Sends within the call: a direct event waits in no queue, so the order on the cable is the order of the calls.
    int send(snd_seq_event_t& event, SeqAddress receiver) const
    {
        snd_seq_ev_set_source(&event, static_cast<unsigned char>(port));
        // Addressed, so that a port that has gone is an error; what goes to whoever is wired vanishes without a word.
        snd_seq_ev_set_dest(&event, static_cast<unsigned char>(receiver.client),
                            static_cast<unsigned char>(receiver.port));
        snd_seq_ev_set_direct(&event);
        const int result = snd_seq_event_output_direct(sequencer, &event);
        return result < 0 ? result : 0;
    }
};

AlsaSequencer::AlsaSequencer() = default;

AlsaSequencer::~AlsaSequencer() = default;

int AlsaSequencer::open()
{
    auto handle = std::make_unique<Handle>();
    snd_lib_error_set_handler(keepQuiet);
    int result = snd_seq_open(&handle->sequencer, "default", SND_SEQ_OPEN_DUPLEX, SND_SEQ_NONBLOCK);
    snd_lib_error_set_handler(nullptr);
    if (result >= 0)
        result = snd_seq_set_client_name(handle->sequencer, ClientName);
    if (result >= 0)
        result = snd_midi_event_new(LongestShort, &handle->encoder);
    if (result < 0)
        return result;
    handle->client = snd_seq_client_id(handle->sequencer);
    handle_ = std::move(handle);
    return 0;
}

void AlsaSequencer::close() { handle_.reset(); }

bool AlsaSequencer::isOpen() const { return handle_ != nullptr; }

int AlsaSequencer::client() const { return handle_ ? handle_->client : 0; }

int AlsaSequencer::makeOutput()
{
    if (!handle_)
        return -ENODEV;
    if (handle_->port != NotMade)
        return 0;
    const int port =
        snd_seq_create_simple_port(handle_->sequencer, OutputName, SND_SEQ_PORT_CAP_READ | SND_SEQ_PORT_CAP_SUBS_READ,
                                   SND_SEQ_PORT_TYPE_MIDI_GENERIC | SND_SEQ_PORT_TYPE_APPLICATION);
    if (port < 0)
        return port;
    handle_->port = port;
    return 0;
}

SeqAddress AlsaSequencer::output() const { return handle_ ? SeqAddress{handle_->client, handle_->port} : SeqAddress{}; }

std::vector<SeqPort> AlsaSequencer::ports()
{
    std::vector<SeqPort> list;
    if (!handle_)
        return list;
    const ClientInfo client;
    const PortInfo port;
    snd_seq_client_info_set_client(client.get(), -1);
    while (snd_seq_query_next_client(handle_->sequencer, client.get()) >= 0) {
        const int number = snd_seq_client_info_get_client(client.get());
        if (number == handle_->client)
            continue;
        snd_seq_port_info_set_client(port.get(), number);
        snd_seq_port_info_set_port(port.get(), -1);
        while (snd_seq_query_next_port(handle_->sequencer, port.get()) >= 0)
            list.push_back(described(client.get(), port.get()));
    }
    return list;
}

std::vector<SeqWire> AlsaSequencer::wiresFrom(SeqAddress sender)
{
    std::vector<SeqWire> list;
    if (!handle_)
        return list;
    const WireQuery query;
    const snd_seq_addr_t root = alsaAddress(sender);
    snd_seq_query_subscribe_set_root(query.get(), &root);
    snd_seq_query_subscribe_set_type(query.get(), SND_SEQ_QUERY_SUBS_READ);
    for (int index = 0;; ++index) {
        snd_seq_query_subscribe_set_index(query.get(), index);
        if (snd_seq_query_port_subscribers(handle_->sequencer, query.get()) < 0)
            return list;
        const snd_seq_addr_t* receiver = snd_seq_query_subscribe_get_addr(query.get());
        const bool marked = snd_seq_query_subscribe_get_queue(query.get()) == MarkQueue &&
                            snd_seq_query_subscribe_get_time_update(query.get()) == 0;
        list.push_back({{receiver->client, receiver->port}, marked ? WireMark::Ours : WireMark::None});
    }
}

int AlsaSequencer::wire(SeqAddress sender, SeqAddress receiver, WireMark mark)
{
    if (!handle_)
        return -ENODEV;
    const WireInfo info;
    describe(info, sender, receiver);
    if (mark == WireMark::Ours)
        snd_seq_port_subscribe_set_queue(info.get(), MarkQueue);
    return snd_seq_subscribe_port(handle_->sequencer, info.get());
}

int AlsaSequencer::unwire(SeqAddress sender, SeqAddress receiver)
{
    if (!handle_)
        return -ENODEV;
    const WireInfo info;
    describe(info, sender, receiver);
    const ImpatientCall impatient;
    return snd_seq_unsubscribe_port(handle_->sequencer, info.get());
}

int AlsaSequencer::sendPiece(SeqAddress receiver, std::string_view bytes)
{
    if (!handle_)
        return -ENODEV;
    snd_seq_event_t event;
    snd_seq_ev_clear(&event);
    snd_seq_ev_set_sysex(&event, static_cast<unsigned>(bytes.size()), const_cast<char*>(bytes.data()));
    return handle_->send(event, receiver);
}

int AlsaSequencer::sendShort(SeqAddress receiver, std::string_view bytes)
{
    if (!handle_)
        return -ENODEV;
    snd_seq_event_t event;
    snd_seq_ev_clear(&event);
    snd_midi_event_reset_encode(handle_->encoder);
    const long length = static_cast<long>(bytes.size());
    const long used =
        snd_midi_event_encode(handle_->encoder, reinterpret_cast<const unsigned char*>(bytes.data()), length, &event);
    // What is no message of MIDI goes out as it is; what to make of it is the instrument's business.
    if (used != length || event.type == SND_SEQ_EVENT_NONE)
        return sendPiece(receiver, bytes);
    return handle_->send(event, receiver);
}

std::optional<PortAccount> AlsaSequencer::account(const SeqPort& port) { return readAlsaAccount(port); }
