// The text has a line "Output 0" for each output and under it, indented, lines of a name, a colon and a number.
#include "midi/AlsaAccount.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <fcntl.h>
#include <unistd.h>

namespace
{

constexpr int OutputsPerDevice = 32; ///< the sequencer numbers a card's ports so
constexpr std::size_t MostText = 16384;

std::string_view trimmed(std::string_view text)
{
    while (!text.empty() && text.front() == ' ')
        text.remove_prefix(1);
    while (!text.empty() && text.back() == ' ')
        text.remove_suffix(1);
    return text;
}

bool numberIn(std::string_view text, std::int64_t& number)
{
    text = trimmed(text);
    const auto end = text.data() + text.size();
    return std::from_chars(text.data(), end, number).ec == std::errc();
}

/// Takes the first line off the text.
std::string_view takeLine(std::string_view& text)
{
    const std::size_t length = std::min(text.find('\n'), text.size());
    const std::string_view line = text.substr(0, length);
    text.remove_prefix(std::min(length + 1, text.size()));
    return line;
}

} // namespace

std::optional<PortAccount> parseAlsaAccount(std::string_view text, int output)
{
    constexpr std::string_view outputHead = "Output ";
    PortAccount account{-1, -1, -1};
    bool inside = false;
    while (!text.empty()) {
        const std::string_view line = takeLine(text);
        if (line.substr(0, 1) != " ") {
            std::int64_t number = -1;
            inside = line.substr(0, outputHead.size()) == outputHead &&
                     numberIn(line.substr(outputHead.size()), number) && number == output;
            continue;
        }
        const std::size_t colon = line.find(':');
        if (!inside || colon == std::string_view::npos)
            continue;
        const std::string_view name = trimmed(line.substr(0, colon));
        std::int64_t number = -1;
        if (!numberIn(line.substr(colon + 1), number))
            continue;
        if (name == "Tx bytes")
            account.passedOn = number;
        else if (name == "Buffer size")
            account.size = number;
        else if (name == "Avail")
            account.room = number;
    }
    if (account.passedOn < 0 || account.size <= 0 || account.room < 0 || account.room > account.size)
        return std::nullopt;
    return account;
}

std::optional<PortAccount> readAlsaAccount(const SeqPort& port)
{
    const std::string path = "/proc/asound/card" + std::to_string(port.card) + "/midi" +
                             std::to_string(port.address.port / OutputsPerDevice);
    const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (file < 0)
        return std::nullopt;
    std::array<char, MostText> text;
    std::size_t length = 0;
    while (length < text.size()) {
        const ssize_t count = read(file, text.data() + length, text.size() - length);
        if (count <= 0)
            break;
        length += static_cast<std::size_t>(count);
    }
    close(file);
    return parseAlsaAccount({text.data(), length}, port.address.port % OutputsPerDevice);
}
