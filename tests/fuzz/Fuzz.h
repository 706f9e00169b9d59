// What the fuzz targets share: the input as choices and patches, the check of a property, a user who only counts, and a
// file in memory for what is read by its path.
//
// A target is one function, fuzzOne, over the bytes of one input. It keeps nothing from one input to the next that
// could change an answer, so that a kept input fails again by itself.
#pragma once

#include "core/UserInterface.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

/// One input. Written once for each target; must() tells what does not hold.
void fuzzOne(std::string_view input);

namespace Fuzz
{

/// Tells the rule that is broken and aborts: the fuzzer then keeps the input.
void must(bool holds, const char* rule);

inline int valueOf(char byte) { return static_cast<unsigned char>(byte); }

/// The byte at a place, 0 behind the end: the targets' own reading, apart from the program's.
inline int at(std::string_view bytes, std::size_t place) { return place < bytes.size() ? valueOf(bytes[place]) : 0; }

/// A part of bytes as far as it is there.
inline std::string_view part(std::string_view bytes, std::size_t from, std::size_t count)
{
    return from < bytes.size() ? bytes.substr(from, count) : std::string_view();
}

/// The input taken from its front.
class Choices
{
public:
    explicit Choices(std::string_view input) : rest_(input) {}
    bool empty() const { return rest_.empty(); }
    std::string_view rest() const { return rest_; }
    int byte();
    /// 16 bits, high byte first.
    int word();
    std::string_view text(std::size_t length);

private:
    std::string_view rest_;
};

/// A valid image with the patches of the rest of an input: each is a 16-bit offset (times `step`), high byte first, and
/// the byte that stands there.
std::string patched(std::string image, std::string_view patches, std::size_t step = 1);

/// An image that is some bytes shorter or longer (by zeros) than it should be: -128 to 127 by a byte of the input.
std::string lengthened(std::string image, int byte);

/// Text without the blanks at its end.
std::string trimmed(std::string_view text);

/// As an alphabet tells them: a to z, and the accented letters of western Europe, C3 A0 to C3 BE but for C3 B7.
std::string capitals(std::string name);

/// The words that the user is told are only counted; every question is answered Yes.
struct CountingUser final : UserInterface {
    int warnings = 0;
    int notices = 0;
    int questions = 0;
    int all() const { return warnings + notices + questions; }

    BoxEnd warn(const std::string&, const std::string&) override;
    int askYesNo(const std::string&, const std::string&) override;
    int askYesNoCancel(const std::string&, const std::string&) override;
    void showNotice(const std::string&, const std::string&) override { ++notices; }
    int chooseLanguage() override { return 1; }
    OpenDialogAnswer openFile(const OpenDialogRequest&) override { return {}; }
    SaveDialogAnswer saveFile(const SaveDialogRequest&) override { return {}; }
    bool confirmOverwrite(const std::string&) override { return true; }
    void showProgressLine(const std::string&) override {}
    void showDeviceMode(const std::string&) override {}
    void showStatusLabel(StatusLabel, const std::string&) override {}
    void showSendProgress(int, int) override {}
    void screenTwips(int&, int&) override {}
};

/// The run that all inputs of a process share: a state folder in memory, the counting user.
struct Desk {
    CountingUser user;
    std::string folder; ///< removed at the end of the process

    Desk();
    ~Desk();
    Desk(const Desk&) = delete;
    Desk& operator=(const Desk&) = delete;
};

/// The one desk, laid at its first use.
Desk& desk();

/// A file of the desk that is given new bytes for each input. It stays open, since opening costs more than writing.
class DeskFile
{
public:
    explicit DeskFile(const std::string& name) : path_(desk().folder + "/" + name) {}
    ~DeskFile();
    DeskFile(const DeskFile&) = delete;
    DeskFile& operator=(const DeskFile&) = delete;

    const std::string& path() const { return path_; }
    /// The whole content. With a `length` above it the file goes on with zeros, as a file with a hole does.
    void put(std::string_view bytes, std::size_t length = 0);
    bool exists() const;
    std::string get() const;
    void remove();

private:
    std::string path_;
    int descriptor_ = -1;
};

/// Every seven bytes behind one of their top bits, undone by this project's tests alone: what the dumps are held
/// against. False when a byte has its top bit set or a group has no data.
bool unpacked(std::string_view wire, std::string& bytes);

/// The body of a frame F0 42 3g 4D ff ... F7, packed as it is; must() that the frame is one, of this function.
std::string_view bodyOf(std::string_view frame, int channel, int function);

} // namespace Fuzz
