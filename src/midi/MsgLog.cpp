// The log line of the message monitor. While no monitor is open nothing is done, so a dump costs nothing to log.
#include "midi/MsgLog.h"

#include "midi/MIDI.h"

#include <cstddef>

namespace
{

constexpr std::size_t LineLimit = 65000; ///< characters of one line
constexpr std::size_t CharactersPerByte = 3;
constexpr std::size_t ByteLimit = LineLimit / CharactersPerByte;

MessageMonitor* openMonitor = nullptr;

} // namespace

void MsgLogAttach(MessageMonitor* monitor) { openMonitor = monitor; }

void MsgLogAdd(std::string_view message)
{
    if (!Midi.MsgLogActive || openMonitor == nullptr)
        return;
    if (message.empty()) {
        openMonitor->clear();
        return;
    }
    static constexpr char Digits[] = "0123456789ABCDEF";
    const std::string_view shown = message.substr(0, ByteLimit);
    std::string line;
    line.reserve(shown.size() * CharactersPerByte + 2);
    for (const char character : shown) {
        const unsigned byte = static_cast<unsigned char>(character);
        line += Digits[byte >> 4];
        line += Digits[byte & 0xFU];
        line += ' ';
    }
    openMonitor->append(line + "\n\n");
}
