// The wire's rules a second time, written from the instrument's tables: only so can a test see the program's mistakes.
#include "e2e/Wire.h"

#include <cstdio>
#include <fstream>
#include <iterator>

namespace
{

unsigned at(const std::string& bytes, std::size_t place) { return static_cast<unsigned char>(bytes.at(place)); }

char byte(unsigned value) { return static_cast<char>(value & 0xFFU); }

/// Length of slot 0 to 15: low byte at 24 + 4 i, high byte behind it.
unsigned slotLength(const std::string& sty, unsigned slot)
{
    return at(sty, 24 + 4 * slot) + 256 * at(sty, 25 + 4 * slot);
}

std::size_t slotStart(const std::string& sty, unsigned slot)
{
    std::size_t start = 224;
    for (unsigned before = 0; before < slot; ++before)
        start += slotLength(sty, before);
    return start;
}

/// A Latin-1 text as UTF-8.
std::string utf8(const std::string& latin1)
{
    std::string text;
    for (const char character : latin1) {
        const unsigned code = static_cast<unsigned char>(character);
        if (code < 0x80) {
            text += character;
        } else {
            text += byte(0xC0 | (code >> 6));
            text += byte(0x80 | (code & 0x3F));
        }
    }
    return text;
}

constexpr std::size_t ArrHead = 32;
constexpr std::size_t ArrRecord = 164;

int rowWith(const std::string& arr, int from, unsigned styleFlag)
{
    for (int row = from; row < 64; ++row) {
        const std::size_t record = ArrHead + ArrRecord * static_cast<std::size_t>(row);
        if (at(arr, record) != 0 && at(arr, record + 18) == styleFlag)
            return row;
    }
    return -1;
}

} // namespace

std::string Wire::fileBytes(const std::string& path)
{
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

std::string Wire::packed(const std::string& bytes)
{
    std::string result;
    for (std::size_t start = 0; start < bytes.size(); start += 7) {
        const std::string run = bytes.substr(start, 7);
        unsigned tops = 0;
        std::string lows;
        for (std::size_t i = 0; i < run.size(); ++i) {
            if (at(run, i) > 127)
                tops += 1U << i;
            lows += byte(at(run, i) % 128);
        }
        result += byte(tops) + lows;
    }
    return result;
}

std::string Wire::frame(int function, const std::string& body)
{
    return std::string("\xF0\x42\x30\x4D") + byte(static_cast<unsigned>(function)) + body + "\xF7";
}

std::string Wire::arrPlay() { return std::string("\xF0\x42\x30\x4D\x4E\x0A\xF7"); }

std::string Wire::songPlay() { return std::string("\xF0\x42\x30\x4D\x4E\x06\xF7"); }

std::string Wire::selection(int row)
{
    return std::string("\xB0\x00\x00", 3) + "\xB0\x20\x01" + "\xC0" + byte(static_cast<unsigned>(row));
}

std::string Wire::arrangementDump(const std::string& arrFile) { return frame(0x64, packed(arrFile.substr(32, 10496))); }

std::string Wire::styleGroup(const std::string& styFile, int group)
{
    const auto first = static_cast<unsigned>(4 * group);
    std::string descriptors;
    std::string blocks;
    for (unsigned slot = first; slot < first + 4; ++slot) {
        const auto place = static_cast<unsigned>(24 + blocks.size());
        const unsigned length = slotLength(styFile, slot);
        descriptors +=
            {byte(place),       0, byte(place / 256), byte(0x80U + static_cast<unsigned>(group)), byte(length),
             byte(length / 256)};
        blocks += styFile.substr(slotStart(styFile, slot), length);
    }
    return frame(0x65, packed(descriptors + blocks));
}

std::string Wire::programDump(const std::string& prgFile)
{
    std::string records = prgFile.substr(48, 64 * 172);
    if (prgFile.substr(0, 4) == "KPGG")
        for (std::size_t record = 0; record < records.size(); record += 172)
            if (at(records, record) == 1)
                records.replace(record, 20, 20, '\0');
    return frame(0x4C, packed(records + prgFile.substr(23096, 2104)));
}

int Wire::groupsInUse(const std::string& styFile)
{
    for (unsigned slot = 16; slot-- > 0;)
        if (styFile.substr(slotStart(styFile, slot), 16) != "- empty -       ")
            return static_cast<int>(slot / 4) + 1;
    return 0;
}

std::vector<std::string> Wire::messages(const std::string& stream)
{
    std::vector<std::string> found;
    for (std::size_t start = 0; start < stream.size();) {
        std::size_t length = 3;
        if (at(stream, start) == 0xF0)
            length = stream.find('\xF7', start) - start + 1;
        else if (at(stream, start) / 16 == 0xC || at(stream, start) / 16 == 0xD)
            length = 2;
        found.push_back(stream.substr(start, length));
        start += found.back().size();
    }
    return found;
}

std::string Wire::inShort(const std::vector<std::string>& messages)
{
    std::string text;
    for (const std::string& message : messages) {
        for (std::size_t i = 0; i < message.size() && i < 8; ++i) {
            char digits[4];
            std::snprintf(digits, sizeof digits, "%02X ", at(message, i));
            text += digits;
        }
        text += "(" + std::to_string(message.size()) + " bytes)\n";
    }
    return text;
}

std::vector<std::string> Wire::rowTexts(const std::string& arrFile)
{
    std::vector<std::string> rows;
    for (std::size_t row = 0; row < 64; ++row) {
        // The instrument's panel counts its rows 11 to 18, 21 to 28 and so on to 88.
        const std::string code{byte(static_cast<unsigned>('1' + row / 8)), byte(static_cast<unsigned>('1' + row % 8))};
        const std::string record = arrFile.substr(ArrHead + ArrRecord * row, ArrRecord);
        if (at(record, 0) == 0)
            rows.push_back(code);
        else
            rows.push_back(code + (at(record, 18) == 1 ? " +" : "  ") + utf8(record.substr(0, 16)));
    }
    return rows;
}

int Wire::rowWithUserStyle(const std::string& arrFile, int from) { return rowWith(arrFile, from, 1); }

int Wire::rowWithFactoryStyle(const std::string& arrFile, int from) { return rowWith(arrFile, from, 0); }
