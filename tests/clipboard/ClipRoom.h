// What the tests of the clipboard share: windows in memory with their lists, and images built by hand from the formats'
// figures.
#pragma once

#include "clipboard/Clipboard.h"
#include "core/Dichiarazioni.h"
#include "files/FileReaders.h"
#include "files/WindowBuffer.h"
#include "support/CoreRun.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

inline std::string sixteen(std::string name)
{
    name.resize(16, ' ');
    return name;
}

/// A style: its name, the length of its block, and a seed of the bytes behind the name.
struct Style {
    std::string name;
    int length;
    int seed = 0;
    std::string block() const
    {
        std::string bytes = sixteen(name);
        for (int k = 16; k < length; ++k)
            bytes += static_cast<char>((k * 7 + seed * 31 + name.front()) % 256);
        bytes.resize(static_cast<std::size_t>(length));
        return bytes;
    }
};

inline const Style Empty{"- empty -", 1176};

/// A head of 224 bytes with two bytes of its own in every table entry, then the blocks.
inline std::string styFile(const std::vector<Style>& styles)
{
    std::string file("KORG\x4D\x00\x04", 7);
    for (int k = 7; k < 224; ++k)
        file += static_cast<char>(k);
    for (std::size_t i = 0; i < 16; ++i) {
        const int length = i < styles.size() ? styles[i].length : 0;
        file[24 + 4 * i] = static_cast<char>(length % 256);
        file[25 + 4 * i] = static_cast<char>(length / 256);
    }
    for (const Style& style : styles)
        file += style.block();
    return file;
}

/// An arrangement: its name (empty = the record is free), style number and bank flag.
struct Arrangement {
    std::string name;
    int style = 0;
    int flag = 0;
    std::string record() const
    {
        if (name.empty())
            return std::string(164, '\0');
        std::string bytes = sixteen(name);
        for (int k = 16; k < 164; ++k)
            bytes += static_cast<char>((k * 5 + name.back()) % 256);
        bytes[17] = static_cast<char>(style);
        bytes[18] = static_cast<char>(flag);
        return bytes;
    }
};
using Arrangements = std::vector<std::pair<int, Arrangement>>;

inline std::string arrFile(const Arrangements& arrangements)
{
    std::string file("KORG\x4D\x00\x03", 7);
    file.resize(10528, '\0');
    for (const auto& [row, arrangement] : arrangements)
        file.replace(static_cast<std::size_t>(32 + 164 * row), 164, arrangement.record());
    return file;
}

inline std::string headOf(int kind, int number, std::string path)
{
    std::string head(20, '\0');
    head[0] = static_cast<char>(kind);
    head[14] = static_cast<char>(number);
    path.resize(250, ' ');
    return head + path;
}

/// The buffer of an arrangement window; without styles it holds four empty slots, as a file without companion does.
inline std::string arrTag(int kind, int number, const std::string& path, const Arrangements& arrangements,
                          const std::vector<Style>& styles = {})
{
    std::string tag = headOf(kind, number, path) + arrFile(arrangements);
    tag.resize(42622, ' ');
    tag += styFile(styles.empty() ? std::vector<Style>(4, Empty) : styles);
    tag[8] = styles.empty() ? 1 : 2;
    return tag;
}

inline std::string arrBankTag(int kind, const Arrangements& arrangements)
{
    return headOf(kind, 0, kind == 2 ? "Arr A" : "Arr B") + arrFile(arrangements) + std::string(1344, ' ');
}

inline std::string styTag(int kind, int number, const std::string& path, const std::vector<Style>& styles)
{
    return headOf(kind, number, path) + std::string(399, '\0') + styFile(styles);
}

/// A program: its first byte (0 = free, 1 = a reference), two bytes behind it, its name.
struct Program {
    int state = 0;
    int bank = 0;
    int number = 0;
    std::string name = {};
    std::string record() const
    {
        if (state == 0)
            return std::string(172, '\0');
        std::string bytes;
        for (int k = 0; k < 172; ++k)
            bytes += state == 1 ? '\0' : static_cast<char>((k * 3 + name.back()) % 256);
        bytes[0] = static_cast<char>(state);
        bytes[1] = static_cast<char>(bank);
        bytes[2] = static_cast<char>(number);
        return bytes.replace(3, 16, sixteen(name));
    }
};
using Programs = std::vector<std::pair<int, Program>>;

inline std::string prgFile(const Programs& programs)
{
    static const std::string blank = [] {
        std::string bytes("KORG\x4D\x00\x00", 7);
        for (int k = 7; k < 30480; ++k)
            bytes += static_cast<char>(k % 251);
        return bytes.replace(48, 172 * 64, std::string(172 * 64, '\0'));
    }();
    std::string file = blank;
    for (const auto& [row, program] : programs) {
        file.replace(static_cast<std::size_t>(48 + 172 * row), 172, program.record());
        if (program.state == 1)
            file.replace(0, 4, "KPGG");
    }
    return file;
}

inline std::string prgTag(int kind, int number, const std::string& path, const Programs& programs)
{
    std::string tag = headOf(kind, number, path) + prgFile(programs) + std::string(1344, ' ');
    tag[5] = 2;
    tag[18] = tag[270 + 1] == 'P' ? 1 : 0;
    return tag;
}

/// A bank of factory programs: a head of 20 bytes, a title of 9, the rows.
inline std::string prgBankTag(int kind)
{
    std::string tag(20, '\0');
    tag[0] = static_cast<char>(kind);
    tag[16] = 1;
    return tag + "Prg " + std::string(1, "ABCDE"[kind - 4]) + "    " + std::string(1344, ' ');
}

/// "11" to "18", "21" to "28" and so on.
inline std::string codeOf(int row) { return {static_cast<char>('1' + row / 8), static_cast<char>('1' + row % 8)}; }

/// A window in memory: its buffer, registered as an open window's is, and its list as the window would have filled it.
struct DeskWindow {
    WindowBuffer Tag;
    ListRows rows;
    ClipOutcome outcome; ///< of the last cut or paste

    explicit DeskWindow(std::string tag) : Tag(std::move(tag))
    {
        OpenWindows::add(&Tag);
        list();
    }
    ~DeskWindow() { OpenWindows::remove(&Tag); }
    DeskWindow(const DeskWindow&) = delete;
    DeskWindow& operator=(const DeskWindow&) = delete;

    const std::string& bytes() const { return Tag.bytes(); }
    int at(int offset) const { return Tag.at(offset); }
    std::string part(int offset, int length) const
    {
        return bytes().substr(static_cast<std::size_t>(offset), static_cast<std::size_t>(length));
    }
    std::string arrRecord(int row) const { return part(302 + 164 * row, 164); }
    std::string prgRecord(int row) const { return part(318 + 172 * row, 172); }
    std::string styles() const { return bytes().substr(Tag.kind() >= 23 ? 669 : 42622); }
    std::string text(int row) const { return rows[static_cast<std::size_t>(row)].text; }

    void list()
    {
        rows.clear();
        const int kind = Tag.kind();
        for (int row = 0; row < (kind >= 23 ? 19 : 64); ++row)
            rows.push_back({kind >= 23                 ? styleText(row)
                            : kind >= 4 && kind <= 8   ? codeOf(row) + "  " + bankName(kind, row)
                            : kind == 21 || kind == 22 ? programText(row)
                                                       : arrangementText(row),
                            false});
    }
    static std::string bankName(int kind, int row)
    {
        return sixteen("Bank" + std::to_string(kind) + " " + codeOf(row));
    }

    DeskWindow& select(std::initializer_list<int> selected)
    {
        for (ListRow& row : rows)
            row.selected = false;
        for (const int row : selected)
            rows[static_cast<std::size_t>(row)].selected = true;
        return *this;
    }
    DeskWindow& selectRange(int first, int last)
    {
        for (int row = 0; row < static_cast<int>(rows.size()); ++row)
            rows[static_cast<std::size_t>(row)].selected = row >= first && row <= last;
        return *this;
    }
    void copy() { ClipCopy(Tag, rows); }
    void cut() { outcome = ClipCut(Tag, rows); }
    void paste() { outcome = ClipPaste(Tag, rows); }
    /// The last word on a button: "on", "off", or "" when it was left alone.
    std::string button(const std::string& name) const
    {
        std::string state;
        for (const ClipOutcome::Button& one : outcome.buttons)
            if (one.name == name)
                state = one.enabled ? "on" : "off";
        return state;
    }
    std::string shown(const std::string& name) const
    {
        std::string text;
        for (const ClipOutcome::Text& one : outcome.texts)
            if (one.name == name)
                text = one.text;
        return text;
    }

private:
    std::string_view view(int offset) const
    {
        return std::string_view(bytes()).substr(static_cast<std::size_t>(offset));
    }
    std::string arrangementText(int row) const
    {
        const std::string_view record = view(302 + 164 * row);
        if (record[0] == '\0')
            return codeOf(row);
        const bool user = Tag.kind() > 3 && record[18] == 1;
        return (codeOf(row) + (user ? " +" : "  ")).append(record.substr(0, 16));
    }
    std::string programText(int row) const
    {
        const std::string_view record = view(318 + 172 * row);
        if (record[0] == '\0')
            return codeOf(row);
        return (codeOf(row) + (record[0] == 1 ? " *" : "  ")).append(record.substr(3, 16));
    }
    std::string styleText(int row) const
    {
        if (row == 4 || row == 9 || row == 14)
            return " ";
        const int slot = row - row / 5;
        const std::string file = styles();
        std::size_t offset = 224;
        const auto byte = [&](int place) { return static_cast<unsigned char>(file[static_cast<std::size_t>(place)]); };
        for (int before = 0; before < slot; ++before)
            offset += byte(24 + 4 * before) + byte(25 + 4 * before) * 256U;
        std::string name = offset < file.size() ? file.substr(offset, 16) : "";
        while (!name.empty() && name.back() == ' ')
            name.pop_back();
        return codeOf(slot) + "  " + name;
    }
};

class ClipRoom : public testing::Test
{
protected:
    ClipRoom()
    {
        forgetState();
        Files.StyEmptyBuffer = styFile(std::vector<Style>(4, Empty));
        run.speak(2);
    }
    ~ClipRoom() override { forgetState(); }
    static void forgetState()
    {
        Clipboard = {};
        Files = {};
        OpenWindows::clear();
    }
    /// Boxes shown since the last call, as "title|text".
    std::vector<std::string> boxes()
    {
        std::vector<std::string> lines;
        for (const ScriptedUser::Said& said : run.user.warnings)
            lines.push_back(said.title + "|" + said.text);
        run.user.warnings.clear();
        return lines;
    }

    CoreRun run;
};

using Boxes = std::vector<std::string>;
