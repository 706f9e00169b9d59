// Values, names and reasons as text.
#include "instrument/InstrumentWords.h"

#include "core/Strings.h"
#include "core/Words.h"

#include <array>
#include <cstddef>

namespace InstrumentWords
{

namespace
{

constexpr std::size_t HeadBytes = 12;

constexpr std::array<int, static_cast<std::size_t>(Fault::Count)> Reasons{
    0,
    Words::InstCutByStatus,
    Words::InstHighByteInside,
    Words::InstStrayEnd,
    Words::InstNoStatus,
    Words::InstTooLong,
    Words::InstWrongManufacturer,
    Words::InstWrongFormat,
    Words::InstWrongModel,
    Words::InstUnknownFunction,
    Words::InstWrongLength,
    Words::InstWrongContent,
};

} // namespace

std::string filledIn(int id, std::initializer_list<std::string> values)
{
    const std::string text = ResText(id);
    std::string filled;
    auto value = values.begin();
    for (const char character : text) {
        if (character == '_' && value != values.end())
            filled += *value++;
        else
            filled += character;
    }
    return filled;
}

std::string reason(Fault fault) { return ResText(Reasons[static_cast<std::size_t>(fault)]); }

std::string noteName(int note)
{
    static constexpr std::array<const char*, 12> Names{"C", "C#", "D", "D#", "E", "F", "F#", "G", "G#", "A", "A#", "B"};
    return Names[static_cast<std::size_t>(note % 12)] + std::to_string(note / 12 - 1);
}

std::string toUtf8(std::string_view latin1)
{
    std::string text;
    for (const char character : latin1) {
        const unsigned value = static_cast<unsigned char>(character);
        if (value < 0x20 || value == 0x7F) {
            text += '.';
        } else if (value < 0x80) {
            text += character;
        } else {
            text += static_cast<char>(0xC0U | value >> 6);
            text += static_cast<char>(0x80U | (value & 0x3FU));
        }
    }
    return text;
}

std::string hexHead(std::string_view bytes)
{
    static constexpr char Digits[] = "0123456789ABCDEF";
    std::string text;
    for (const char character : bytes.substr(0, HeadBytes)) {
        const unsigned value = static_cast<unsigned char>(character);
        if (!text.empty())
            text += ' ';
        text += Digits[value >> 4];
        text += Digits[value & 0xFU];
    }
    return bytes.size() > HeadBytes ? text + " ..." : text;
}

} // namespace InstrumentWords
