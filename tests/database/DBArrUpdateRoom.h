// What the tests of the changes share: a shell that notes which items work, and the safety copies of the database.
#pragma once

#include "DBArrRoom.h"

#include "core/Shell.h"
#include "database/DBArrUpdate.h"
#include "support/WindowDiary.h"

#include <functional>

class Update : public DBArrRoom
{
protected:
    Update()
    {
        App.LanguageBase = 200;
        App.shell = &shell;
    }
    void put(const std::vector<Row>& rows) { state.put("TvlDBArr", database(rows, songs.path())); }
    void expectDisk(const std::vector<Row>& rows) { EXPECT_EQ(onDisk(), database(rows, songs.path())); }
    int add(const std::string& name) { return DBArrAddFile(songs.file(name)); }
    /// The safety copies of the database, oldest first.
    std::vector<std::string> copies() const
    {
        std::vector<std::string> paths;
        const std::string folder = state.path() + "/Safety" + state.file("TvlDBArr");
        if (std::filesystem::exists(folder))
            for (const auto& entry : std::filesystem::directory_iterator(folder))
                paths.push_back(entry.path());
        std::sort(paths.begin(), paths.end());
        return paths;
    }
    static std::string bytesOf(const std::string& path)
    {
        std::ifstream stream(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
    }

    FakeShell shell;
};

using Texts = std::vector<std::string>;
