// The targets' surroundings.
#include "Fuzz.h"

#include "core/Dichiarazioni.h"
#include "core/NameTables.h"

#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

namespace Fuzz
{

void must(bool holds, const char* rule)
{
    if (holds)
        return;
    std::fprintf(stderr, "PROPERTY BROKEN: %s\n", rule);
    std::abort();
}

int Choices::byte()
{
    const int value = at(rest_, 0);
    rest_.remove_prefix(rest_.empty() ? 0 : 1);
    return value;
}

int Choices::word()
{
    const int high = byte();
    return high * 256 + byte();
}

std::string_view Choices::text(std::size_t length)
{
    const std::string_view taken = rest_.substr(0, length);
    rest_.remove_prefix(taken.size());
    return taken;
}

std::string patched(std::string image, std::string_view patches, std::size_t step)
{
    constexpr std::size_t PatchSize = 3;
    for (; patches.size() >= PatchSize; patches.remove_prefix(PatchSize)) {
        const auto offset = static_cast<std::size_t>(at(patches, 0) * 256 + at(patches, 1)) * step;
        if (offset < image.size())
            image[offset] = patches[2];
    }
    return image;
}

std::string lengthened(std::string image, int byte)
{
    constexpr int Same = 128;
    const int by = byte - Same;
    image.resize(by < 0 && image.size() < static_cast<std::size_t>(-by) ? 0
                                                                        : image.size() + static_cast<std::size_t>(by));
    return image;
}

std::string trimmed(std::string_view text)
{
    while (!text.empty() && text.back() == ' ')
        text.remove_suffix(1);
    return std::string(text);
}

std::string capitals(std::string name)
{
    for (std::size_t i = 0; i < name.size(); ++i) {
        const int byte = at(name, i);
        const bool accented = i > 0 && at(name, i - 1) == 0xC3 && byte >= 0xA0 && byte <= 0xBE && byte != 0xB7;
        if ((byte >= 'a' && byte <= 'z') || accented)
            name[i] = static_cast<char>(byte - 32);
    }
    return name;
}

BoxEnd CountingUser::warn(const std::string&, const std::string&)
{
    ++warnings;
    return BoxEnd::Dismissed;
}

int CountingUser::askYesNo(const std::string&, const std::string&)
{
    ++questions;
    return Answer::Yes;
}

int CountingUser::askYesNoCancel(const std::string&, const std::string&)
{
    ++questions;
    return Answer::Yes;
}

Desk::Desk()
{
    std::string pattern =
        (access("/dev/shm", W_OK) == 0 ? "/dev/shm" : std::filesystem::temp_directory_path().string()) +
        "/tarvolyne-fuzz-XXXXXX";
    must(mkdtemp(pattern.data()) != nullptr, "a folder can be made");
    folder = pattern;
    App = {};
    App.StateDir = folder;
    App.ui = &user;
    App.Language = 2;
    App.LanguageBase = 200;
    NameTablesBuild();
}

Desk::~Desk()
{
    App.ui = nullptr;
    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
}

Desk& desk()
{
    static Desk one;
    return one;
}

DeskFile::~DeskFile()
{
    if (descriptor_ >= 0)
        close(descriptor_);
}

void DeskFile::put(std::string_view bytes, std::size_t length)
{
    struct stat own {
    }, named{};
    // A save replaces the file (the old one may live on as a safety copy), and an empty one is deleted.
    if (descriptor_ >= 0 &&
        (fstat(descriptor_, &own) != 0 || stat(path_.c_str(), &named) != 0 || own.st_ino != named.st_ino)) {
        close(descriptor_);
        descriptor_ = -1;
    }
    if (descriptor_ < 0)
        descriptor_ = open(path_.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    must(descriptor_ >= 0 && pwrite(descriptor_, bytes.data(), bytes.size(), 0) == static_cast<ssize_t>(bytes.size()) &&
             ftruncate(descriptor_, static_cast<off_t>(bytes.size())) == 0,
         "the input can be written");
    if (length > bytes.size())
        must(ftruncate(descriptor_, static_cast<off_t>(length)) == 0, "a hole can be made");
}

bool DeskFile::exists() const { return access(path_.c_str(), F_OK) == 0; }

std::string DeskFile::get() const
{
    std::string bytes;
    const int descriptor = open(path_.c_str(), O_RDONLY | O_CLOEXEC);
    struct stat status {
    };
    if (descriptor < 0)
        return bytes;
    if (fstat(descriptor, &status) == 0) {
        bytes.resize(static_cast<std::size_t>(status.st_size));
        must(read(descriptor, bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size()), "a file reads whole");
    }
    close(descriptor);
    return bytes;
}

void DeskFile::remove() { unlink(path_.c_str()); }

bool unpacked(std::string_view wire, std::string& bytes)
{
    bytes.clear();
    for (std::size_t group = 0; group < wire.size(); group += 8) {
        if (group + 1 == wire.size())
            return false;
        for (std::size_t k = 0; k < 8 && group + k < wire.size(); ++k) {
            if (at(wire, group + k) > 127)
                return false;
            const bool top = k > 0 && at(wire, group) / (1 << (k - 1)) % 2 == 1;
            if (k > 0)
                bytes += static_cast<char>(at(wire, group + k) + (top ? 128 : 0));
        }
    }
    return true;
}

std::string_view bodyOf(std::string_view frame, int channel, int function)
{
    must(frame.size() >= 6, "a frame has head and end");
    must(at(frame, 0) == 0xF0 && at(frame, 1) == 0x42 && at(frame, 2) == 0x30 + channel && at(frame, 3) == 0x4D,
         "a frame begins F0 42 3g 4D");
    must(at(frame, 4) == function, "a frame has the function of its dump");
    must(at(frame, frame.size() - 1) == 0xF7, "a frame ends F7");
    const std::string_view body = frame.substr(5, frame.size() - 6);
    for (const char byte : body)
        must(valueOf(byte) < 0x80, "no byte of a body is over 7F");
    return body;
}

} // namespace Fuzz
