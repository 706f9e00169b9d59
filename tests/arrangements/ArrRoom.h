// What the tests of arrangements share: fresh state, a recorder at the port, and images built by hand from the formats'
// figures.
#pragma once

#include "arrangements/ArrEdit.h"
#include "core/Dichiarazioni.h"
#include "core/NameTables.h"
#include "files/FileReaders.h"
#include "files/WindowBuffer.h"
#include "midi/MIDI.h"
#include "midi/MsgLog.h"
#include "styles/StyleSends.h"
#include "support/CoreRun.h"
#include "support/Hex.h"
#include "support/RecordingMidiService.h"
#include "support/StyleFiles.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

/// One arrangement of 164 bytes.
struct Block {
    std::string bytes = std::string(164, '\0');

    Block& set(std::size_t offset, int value)
    {
        bytes[offset] = static_cast<char>(value);
        return *this;
    }
    Block& name(std::string text)
    {
        text.resize(16, ' ');
        bytes.replace(0, 16, text);
        return *this;
    }
    Block& style(int number, int bank) { return set(17, number).set(18, bank); }
    Block& track(std::size_t k, int program, int bank) { return set(39 + 8 * k, program).set(40 + 8 * k, bank); }
};

/// A file of 10528 bytes: head, then the records.
inline std::string arrFile(const std::vector<std::pair<std::size_t, Block>>& records)
{
    std::string file("KORG\x4D\x00\x03", 7);
    file.resize(10528, '\0');
    for (const auto& [row, block] : records)
        file.replace(32 + 164 * row, 164, block.bytes);
    return file;
}

/// A program file; records by number, 172 bytes each, the first byte and the name.
struct Program {
    std::size_t number;
    int state;
    std::string name;
};

inline std::string prgFile(const std::string& signature, const std::vector<Program>& programs)
{
    std::string file = signature + std::string("\x4D\x00\x00", 3);
    for (std::size_t i = file.size(); i < 30480; ++i)
        file += static_cast<char>((i * 13) % 251);
    for (std::size_t k = 0; k < 64; ++k)
        file[48 + 172 * k] = '\x02';
    for (const Program& program : programs) {
        std::string name = program.name;
        name.resize(16, ' ');
        file[48 + 172 * program.number] = static_cast<char>(program.state);
        file.replace(48 + 172 * program.number + 3, 16, name);
    }
    return file;
}

/// The image of an arrangement window: head, path, file, rows, programs, styles.
inline std::string arrImage(const std::string& path, const std::string& file, const std::string& programs = {},
                            const std::string& styles = {})
{
    std::string image(20, '\0');
    image[0] = 19;
    image[14] = 1;
    std::string pathArea = path;
    pathArea.resize(250, ' ');
    image += pathArea + file;
    image.resize(12142, ' ');
    image += programs;
    image[5] = programs.empty() ? 0 : 1;
    image.resize(42622, ' ');
    image += styles.empty() ? emptyStyles() : styles;
    image[8] = styles.empty() ? 1 : 2;
    return image;
}

class ArrRoom : public testing::Test
{
protected:
    ArrRoom()
    {
        forgetState();
        Midi.service = &service;
        Files.StyEmptyBuffer = emptyStyles();
        App.GlobalChannel = 2;
        NameTablesBuild();
        Names.StyNames[0] = "Alpha Beat      ";
        Names.StyNames[5] = "Testa Rock      ";
        Names.StyNames[127] = "Omega           ";
        for (std::size_t bank = 0; bank < 5; ++bank)
            for (std::size_t i = 0; i < 64; ++i) {
                std::string name = std::string(1, "ABCDE"[bank]) + "-" + std::to_string(i);
                name.resize(16, ' ');
                Names.PrgNames[bank].replace(16 * i, 16, name);
            }
        folder().put("TvlCMInfo", infoFile({}, {}, {}));
    }
    ~ArrRoom() override
    {
        MsgLogAttach(nullptr);
        forgetState();
    }

    static void forgetState()
    {
        Arr = {};
        Midi = {};
        Files = {};
        StyLoad = {};
        OpenWindows::clear();
    }
    static std::string infoFile(std::string arr, std::string sty, std::string prg)
    {
        std::string file(1000, ' ');
        file.replace(0, 9, "TvlCMInfo");
        for (std::string* name : {&arr, &sty, &prg})
            name->resize(50, ' ');
        return file.replace(50, 150, arr + sty + prg);
    }
    std::vector<std::string> wire() const
    {
        std::vector<std::string> sent;
        for (const std::string& message : service.messages())
            sent.push_back(hex(message));
        return sent;
    }
    const TemporaryFolder& folder() const { return run.folder; }
    ScriptedUser& user() { return run.user; }

    CoreRun run;
    RecordingMidiService service;
};
