// The two user's guides beside the program, as its guide window shows them: plain text in a fixed font.
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

namespace
{

constexpr const char* Italian = "Tarvolyne_GuidaUtente.txt";
constexpr const char* English = "Tarvolyne_UserGuide.txt";
constexpr int MostCharacters = 78; ///< of a line

std::string guide(const std::string& name)
{
    std::ifstream stream(std::string(TARVOLYNE_BIN_DIR) + "/" + name, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

std::vector<std::string> linesOf(const std::string& text)
{
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line);
    return lines;
}

/// How many bytes follow a first byte of UTF-8; -1 for a byte that begins no character.
int bytesBehind(unsigned char first)
{
    if (first < 0x80)
        return 0;
    if (first >= 0xC2 && first < 0xE0)
        return 1;
    if (first >= 0xE0 && first < 0xF0)
        return 2;
    return first >= 0xF0 && first < 0xF5 ? 3 : -1;
}

/// Characters of a line; -1 when it is not UTF-8, or holds a control character (a tab has no width of its own).
int charactersOf(const std::string& line)
{
    int characters = 0;
    for (std::size_t place = 0; place < line.size(); ++characters) {
        const auto first = static_cast<unsigned char>(line[place++]);
        int behind = bytesBehind(first);
        if (behind < 0 || first < 0x20 || first == 0x7F)
            return -1;
        for (; behind > 0; --behind, ++place)
            if (place >= line.size() || (static_cast<unsigned char>(line[place]) & 0xC0U) != 0x80U)
                return -1;
    }
    return characters;
}

/// "14.2" of the heading "14.2  Safety copies"; empty for any other line.
std::string headingNumber(const std::string& line)
{
    const std::size_t end = line.find_first_not_of("0123456789.");
    const bool heading = end != std::string::npos && end > 0 && line.compare(end, 2, "  ") == 0 && line[end - 1] != '.';
    return heading ? line.substr(0, end) : std::string();
}

std::vector<std::string> headings(const std::string& text)
{
    std::vector<std::string> numbers;
    for (const std::string& line : linesOf(text))
        if (const std::string number = headingNumber(line); !number.empty())
            numbers.push_back(number);
    return numbers;
}

/// The headings of chapters, without those within a chapter, as they stand in the text.
std::vector<std::string> chapters(const std::string& text)
{
    std::vector<std::string> titles;
    for (const std::string& line : linesOf(text))
        if (const std::string number = headingNumber(line); !number.empty() && number.find('.') == std::string::npos)
            titles.push_back(line);
    return titles;
}

/// The lines of the table of contents: those behind its heading, up to the first empty line.
std::vector<std::string> contents(const std::string& text, const std::string& heading)
{
    std::vector<std::string> titles;
    bool inside = false;
    for (const std::string& line : linesOf(text)) {
        if (inside && line.empty())
            break;
        if (inside)
            titles.push_back(line.substr(line.find_first_not_of(' ')));
        inside = inside || line == heading;
    }
    return titles;
}

} // namespace

TEST(Guides, standBesideTheProgramInUtf8AndInLinesThatTheWindowShowsWhole)
{
    for (const char* name : {Italian, English}) {
        const std::string text = guide(name);
        const std::vector<std::string> lines = linesOf(text);
        ASSERT_GT(lines.size(), 500u) << name;
        EXPECT_EQ(text.back(), '\n') << name;
        EXPECT_EQ(text.substr(0, 3).find("\xEF\xBB\xBF"), std::string::npos)
            << name << ": the window would show a mark";
        for (std::size_t line = 0; line < lines.size(); ++line) {
            const int characters = charactersOf(lines[line]);
            EXPECT_GE(characters, 0) << name << ", line " << line + 1;
            EXPECT_LE(characters, MostCharacters) << name << ", line " << line + 1;
        }
    }
}

TEST(Guides, haveTheSameChapterNumbersInBothLanguages)
{
    const std::vector<std::string> numbers = headings(guide(English));
    EXPECT_EQ(headings(guide(Italian)), numbers);
    // They run on without a gap: 1, 2, 2.1, 2.2, 2.3, 3, 3.1 and so on.
    int chapter = 0;
    int section = 0;
    for (const std::string& number : numbers) {
        section = number.find('.') == std::string::npos ? 0 : section + 1;
        chapter += section == 0 ? 1 : 0;
        EXPECT_EQ(number, std::to_string(chapter) + (section == 0 ? "" : "." + std::to_string(section)));
    }
    EXPECT_EQ(chapter, 24);
}

TEST(Guides, listTheirChaptersInTheTableOfContents)
{
    EXPECT_EQ(contents(guide(English), "CONTENTS"), chapters(guide(English)));
    EXPECT_EQ(contents(guide(Italian), "INDICE"), chapters(guide(Italian)));
}
