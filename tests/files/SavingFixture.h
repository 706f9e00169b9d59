// What the tests of saving share: windows built by hand from the figures of the window buffer, a state folder, and the
// answers of the save dialog.
#pragma once

#include "files/FilesFixture.h"
#include "files/Saving.h"

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

namespace SavingWindows
{

/// 20 bytes of head and 250 of path.
inline std::string headOf(int kind, const std::string& path, int number = 1)
{
    std::string head(20, '\0');
    head[0] = static_cast<char>(kind);
    head[14] = static_cast<char>(number);
    std::string field = path;
    field.resize(250, ' ');
    return head + field;
}

/// Kinds 19 and 20, modified: offset 3; the style state stands at offset 8.
inline WindowBuffer arrangements(int kind, const std::string& path, int styleState, const std::string& styles)
{
    std::string bytes =
        headOf(kind, path) + handMade(arrHead(), 10528) + std::string(1344, 'r') + std::string(30480, ' ') + styles;
    bytes[3] = 1;
    bytes[8] = static_cast<char>(styleState);
    return WindowBuffer(bytes);
}

/// Kinds 2 and 3, modified.
inline WindowBuffer bank(int kind)
{
    std::string bytes = headOf(kind, "Arr A") + handMade(arrHead(), 10528) + std::string(1344, 'r');
    bytes[3] = 1;
    return WindowBuffer(bytes);
}

/// Kinds 21 and 22, modified at offset 6; type 0 = .prg, 1 = .pgg at offset 18.
inline WindowBuffer programs(int kind, const std::string& path, int type)
{
    std::string bytes =
        headOf(kind, path) + handMade(type == 0 ? prgHead() : pggHead(), 30480) + std::string(1344, 'r');
    bytes[5] = 2;
    bytes[6] = 1;
    bytes[18] = static_cast<char>(type);
    return WindowBuffer(bytes);
}

/// Kinds 23 and 24, modified at offset 9.
inline WindowBuffer styles(int kind, const std::string& path, const std::string& file)
{
    std::string bytes = headOf(kind, path) + std::string(399, 'r') + file;
    bytes[9] = 1;
    return WindowBuffer(bytes);
}

/// Kinds 14 and 25, modified at offset 3.
inline WindowBuffer globals(int kind, const std::string& path)
{
    std::string bytes = headOf(kind, path) + handMade(gblHead(), 448);
    bytes[3] = 1;
    return WindowBuffer(bytes);
}

/// A style file of 1748 bytes with one group.
inline std::string fourStyles() { return styleFile({{"One", 300}, {"Two", 500}, {"Three", 400}, {"Four", 324}}); }

} // namespace SavingWindows

class SavingTest : public FilesTest
{
protected:
    SavingTest()
    {
        App.StateDir = state.path();
        speakEnglish();
    }

    std::string song() const { return folder.file("song"); }

    /// Compared here, since a failing comparison of thousands of bytes would print them all.
    static bool holds(const TemporaryFolder& place, const std::string& name, const std::string& content)
    {
        return place.get(name) == content;
    }

    /// The names in the user's folder, in order.
    std::vector<std::string> files() const { return namesBelow(folder.path()); }
    static std::vector<std::string> namesBelow(const std::string& path)
    {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(path))
            names.push_back(entry.path().filename());
        std::sort(names.begin(), names.end());
        return names;
    }

    /// The bytes of the safety copies of a file in the user's folder, oldest first.
    std::vector<std::string> copiesOf(const std::string& name) const { return copiesOfPath(folder.file(name)); }
    std::vector<std::string> copiesOfPath(const std::string& path) const
    {
        std::vector<std::string> copies;
        const std::string place = state.path() + "/Safety" + path;
        if (!std::filesystem::is_directory(place))
            return copies;
        for (const std::string& copy : namesBelow(place))
            copies.push_back(readAll(place + "/" + copy));
        return copies;
    }
    static std::string readAll(const std::string& path)
    {
        std::ifstream stream(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
    }

    /// The next answer of the save dialog.
    void choose(const std::string& path, int filterIndex) { user.saveFiles.push_back({true, path, filterIndex}); }

    TemporaryFolder state;
};

class SaveAs : public SavingTest
{
protected:
    SaveAs()
    {
        App.LastDirFiles = "/gigs/files";
        App.LastDirPrg = "/gigs/programs";
        App.LastDirGbl = "/gigs/globals";
    }

    /// Filter index, folder, name and extension that the dialog of a window begins with.
    std::string dialogOf(WindowBuffer tag)
    {
        user.saveDialogs.clear();
        EXPECT_EQ(FileSaveAs(tag), 1);
        if (user.saveDialogs.size() != 1)
            return "no dialog";
        const SaveDialogRequest& request = user.saveDialogs[0];
        return std::to_string(request.filterIndex) + "|" + request.folder + "|" + request.fileName + "|" +
               request.defaultExtension;
    }

    /// Everything as a save would leave it, that changed nothing.
    void expectNothingDone(const WindowBuffer& tag, const ByteBuffer& before)
    {
        EXPECT_EQ(tag.bytes(), before);
        EXPECT_EQ(App.LastDirFiles, "/gigs/files");
        EXPECT_EQ(App.LastDirPrg, "/gigs/programs");
        EXPECT_EQ(App.LastDirGbl, "/gigs/globals");
    }
};
