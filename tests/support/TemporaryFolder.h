// A folder of its own for each test, removed with everything in it at the end.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

class TemporaryFolder
{
public:
    TemporaryFolder()
    {
        std::string pattern = (std::filesystem::temp_directory_path() / "tarvolyne-test-XXXXXX").string();
        path_ = mkdtemp(pattern.data()) ? pattern : std::string();
    }
    ~TemporaryFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::string& path() const { return path_; }
    std::string file(const std::string& name) const { return path_ + "/" + name; }

    /// Writes a file and returns its path.
    std::string put(const std::string& name, const std::string& bytes) const
    {
        std::ofstream(file(name), std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        return file(name);
    }
    std::string get(const std::string& name) const
    {
        std::ifstream stream(file(name), std::ios::binary | std::ios::ate);
        std::string bytes(stream ? static_cast<std::size_t>(stream.tellg()) : 0, '\0');
        stream.seekg(0).read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        return bytes;
    }
    bool has(const std::string& name) const { return std::filesystem::exists(file(name)); }
    std::size_t fileCount() const
    {
        return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(path_), {}));
    }

private:
    std::string path_;
};
