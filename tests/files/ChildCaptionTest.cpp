// The caption of every kind of child window, in both languages.
#include "files/FilesFixture.h"

using ChildCaption_ = FilesTest;

namespace
{

WindowBuffer window(int kind, int number, const std::string& path, std::size_t size = 31000)
{
    std::string bytes(20, '\0');
    bytes[0] = static_cast<char>(kind);
    bytes[14] = static_cast<char>(number);
    bytes += path;
    bytes.resize(270, ' ');
    bytes.resize(size, '\0');
    return WindowBuffer(bytes);
}

WindowBuffer readOnly(WindowBuffer buffer)
{
    buffer.set(1, 1);
    return buffer;
}

} // namespace

TEST_F(ChildCaption_, banksShowTheirNameAndTheReadOnlyMark)
{
    for (const int kind : {2, 3, 17, 18}) {
        EXPECT_EQ(ChildCaption(window(kind, 0, "Arr A")), "Arr A") << kind;
        EXPECT_EQ(ChildCaption(readOnly(window(kind, 0, "Arr A"))), "Arr ASola Lettura") << kind;
    }
    WindowBuffer styles = window(17, 0, "Style A");
    styles.set(1, 17); // these windows keep their kind there too: no mark
    EXPECT_EQ(ChildCaption(styles), "Style A");
}

TEST_F(ChildCaption_, programBanksShowFiveCharactersAndTheChannel)
{
    for (int kind = 4; kind <= 8; ++kind) {
        WindowBuffer bank = window(kind, 0, "Prg Cmore");
        bank.set(15, 9);
        EXPECT_EQ(ChildCaption(bank), "Prg C - MIDI Channel10") << kind;
    }
    EXPECT_EQ(ChildCaption(window(4, 0, "Prg A")), "Prg A - MIDI Channel1");
}

TEST_F(ChildCaption_, drumWindowsShowTheirNameAndTheChannel)
{
    WindowBuffer drum = window(9, 0, "Drum");
    drum.set(15, 15);
    EXPECT_EQ(ChildCaption(drum), "Drum - MIDI Channel16");
    EXPECT_EQ(ChildCaption(window(10, 0, "Percussion")), "Percussion - MIDI Channel1");
    EXPECT_EQ(ChildCaption(window(10, 0, "A name of more than twenty-four")),
              "A name of more than twen - MIDI Channel1");
}

TEST_F(ChildCaption_, filesShowFamilyNameNumberAndMark)
{
    EXPECT_EQ(ChildCaption(window(19, 1, "/music/song")), "File Arr - song.arr (1)");
    EXPECT_EQ(ChildCaption(readOnly(window(19, 8, "/music/my.song"))), "File Arr - my.song.arr (8)Sola Lettura");
    EXPECT_EQ(ChildCaption(window(23, 2, "/music/Perch\xC3\xA9")), "File Sty - Perch\xC3\xA9.sty (2)");
    EXPECT_EQ(ChildCaption(readOnly(window(25, 3, "studio"))), "File Gbl - studio.gbl (3)Sola Lettura");
    speakEnglish();
    EXPECT_EQ(ChildCaption(readOnly(window(19, 1, "/music/song"))), "File Arr - song.arr (1)Read Only");
    EXPECT_EQ(ChildCaption(readOnly(window(23, 1, "/music/song"))), "File Sty - song.sty (1)Read Only");
}

TEST_F(ChildCaption_, programFilesShowTheirTypeAndTheFilesChannel)
{
    WindowBuffer programs = window(21, 4, "/music/song");
    programs.set(285, 4);
    programs.set(15, 11); // not the window's, the file's
    EXPECT_EQ(ChildCaption(programs), "File Prg - song.prg (4) - MIDI Channel5");
    programs.set(18, 1);
    EXPECT_EQ(ChildCaption(programs), "File Prg - song.pgg (4) - MIDI Channel5");
    EXPECT_EQ(ChildCaption(readOnly(programs)), "File Prg - song.pgg (4) - MIDI Channel5Sola Lettura");
}

TEST_F(ChildCaption_, untitledWindowsAreNamedInTheLanguageOfTheRun)
{
    WindowBuffer programs = window(22, 1, " (SenzaNome 1)");
    programs.set(285, 2);
    EXPECT_EQ(ChildCaption(window(20, 2, "")), "Nuovo File Arr - SenzaNome.arr (2)");
    EXPECT_EQ(ChildCaption(programs), "Nuovo File Program - SenzaNome.prg (1) - MIDI Channel3");
    EXPECT_EQ(ChildCaption(window(24, 8, "")), "Nuovo Style - SenzaNome.sty (8)");
    speakEnglish();
    EXPECT_EQ(ChildCaption(window(20, 2, "")), "New File Arr - Untitled.arr (2)");
    EXPECT_EQ(ChildCaption(programs), "New File Program - Untitled.prg (1) - MIDI Channel3");
    EXPECT_EQ(ChildCaption(window(24, 8, "")), "New Style - Untitled.sty (8)");
    programs.set(18, 1);
    EXPECT_EQ(ChildCaption(programs), "New File Program - Untitled.pgg (1) - MIDI Channel3");
    for (const int kind : {20, 22, 24})
        EXPECT_EQ(ChildCaption(readOnly(window(kind, 1, ""))), ChildCaption(window(kind, 1, ""))) << kind;
}

TEST_F(ChildCaption_, otherKindsHaveNoneFromHere)
{
    for (const int kind : {0, 1, 11, 12, 13, 14, 15, 16, 26, 27, 28, 200})
        EXPECT_EQ(ChildCaption(window(kind, 1, "name")), "") << kind;
    EXPECT_EQ(ChildCaption(WindowBuffer()), "");
}

TEST_F(ChildCaption_, aBufferOfAnyLengthHasACaption)
{
    for (std::size_t size = 0; size < 300; ++size)
        for (const int kind : {2, 4, 9, 19, 20, 21, 22, 23, 24, 25}) {
            std::string bytes(size, 'x');
            if (size > 0)
                bytes[0] = static_cast<char>(kind);
            EXPECT_EQ(ChildCaption(WindowBuffer(bytes)).empty(), size == 0 || (kind == 2 && size <= 20))
                << size << " " << kind;
        }
}
