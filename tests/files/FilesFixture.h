// What the tests of the readers share: a folder, a scripted user, and files built by hand from the formats' figures.
#pragma once

#include "core/Dichiarazioni.h"
#include "files/FileReaders.h"
#include "files/WindowBuffer.h"
#include "support/Hex.h"
#include "support/ScriptedUser.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <string>

/// A file of `size` bytes of many values behind a head written out.
inline std::string handMade(const std::string& head, std::size_t size)
{
    std::string file(size, '\0');
    for (std::size_t i = 0; i < size; ++i)
        file[i] = static_cast<char>((i * 37 + i / 256) % 256);
    return file.replace(0, head.size(), head);
}

inline std::string arrHead() { return std::string("KORG\x4D\x00\x03", 7); }
inline std::string styHead() { return std::string("KORG\x4D\x00\x04", 7); }
inline std::string prgHead() { return std::string("KORG\x4D\x00\x00", 7); }
inline std::string pggHead() { return std::string("KPGG\x4D\x00\x00", 7); }
inline std::string gblHead() { return std::string("KORG\x4D\x00\x06\x01", 8); }

/// A style file: the head, a table of lengths, and blocks that begin with their names.
struct StyleBlock {
    std::string name; ///< padded to 16 here
    int length;
};

inline std::string styleFile(const std::vector<StyleBlock>& blocks)
{
    std::string file = handMade(styHead(), 224);
    for (std::size_t i = 0; i < 16; ++i)
        file[24 + 4 * i] = file[25 + 4 * i] = '\0';
    for (std::size_t i = 0; i < blocks.size(); ++i) {
        file[24 + 4 * i] = static_cast<char>(blocks[i].length % 256);
        file[25 + 4 * i] = static_cast<char>(blocks[i].length / 256);
        std::string name = blocks[i].name;
        name.resize(16, ' ');
        std::string block = name;
        for (int k = 16; k < blocks[i].length; ++k)
            block += static_cast<char>((k * 11 + static_cast<int>(i) * 53) % 256);
        block.resize(static_cast<std::size_t>(blocks[i].length));
        file += block;
    }
    return file;
}

/// A window buffer of a kind with a style file in its place: 669 bytes ahead of it in the style windows, 42622 else.
inline std::string windowWith(int kind, const std::string& style)
{
    std::string buffer(kind == 23 || kind == 24 ? 669 : 42622, ' ');
    buffer[0] = static_cast<char>(kind);
    return buffer + style;
}

class FilesTest : public ::testing::Test
{
protected:
    FilesTest()
    {
        App = {};
        App.ui = &user;
        Files = {};
        OpenWindows::clear();
    }
    ~FilesTest() override
    {
        OpenWindows::clear();
        App = {};
        Files = {};
    }

    static void speakEnglish() { App.LanguageBase = 200; }

    /// Exactly one box was shown, and nothing else asked.
    void expectBox(const std::string& title, const std::string& text)
    {
        ASSERT_EQ(user.warnings.size(), 1u);
        EXPECT_EQ(user.warnings[0].title, title);
        EXPECT_EQ(user.warnings[0].text, text);
    }
    void expectSilence()
    {
        EXPECT_TRUE(user.warnings.empty());
        EXPECT_TRUE(user.notices.empty());
        EXPECT_TRUE(user.questions.empty());
    }

    ScriptedUser user;
    TemporaryFolder folder;
};
