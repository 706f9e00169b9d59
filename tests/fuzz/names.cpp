// Texts that come from files, folders and keyboards: paths and what is cut from them, numbers to find, folders as they
// are shown.
//
// Input: a byte of choices, then the text.
#include "Fuzz.h"

#include "core/PathNames.h"
#include "database/FindID.h"
#include "database/FolderText.h"
#include "database/TvlDBArr.h"
#include "files/RowLabels.h"
#include "files/WindowBuffer.h"

#include <algorithm>

using namespace Fuzz;

namespace
{

void checkPath(const std::string& path)
{
    const std::size_t slash = path.rfind('/');
    const std::string name = slash == std::string::npos ? path : path.substr(slash + 1);
    const std::size_t point = name.rfind('.');
    const bool extended = point != std::string::npos && name.size() - point == 4;
    must(FolderOf(path) == (slash == std::string::npos ? "" : path.substr(0, slash)),
         "a folder ends before the last /");
    must(FileStemOf(path) == name, "a stem is what stands behind the last /");
    must(FileNameOf(path) == (extended ? name.substr(0, point) : name), "a name goes without three letters and point");
    must(withoutExtension(path) == (extended ? path.substr(0, path.size() - 4) : path), "so does a path");
    const int kind = FileKindOf(path);
    must(kind >= 0 && kind <= 5, "a kind is one of five, or none");
    must(kind == 0 || sameFileName(path.substr(path.size() - 4), extensionOf(kind)), "and is that of the extension");
    must(infoStem(path).size() <= 24 && dbArrName(path).size() <= 24, "kept names have 24 bytes at most");

    WindowBuffer tag = WindowBuffer::fresh(19, 1);
    tag.setPath(path);
    must(tag.bytes().size() == 270, "a path keeps to its field");
    must((tag.path() == path) == pathFitsField(path), "a path comes back whole when it fits, and then only");
}

void checkCase(const std::string& one, const std::string& other)
{
    must(sameFileName(one, one), "a name is itself");
    must(sameFileName(one, upperFileName(one)), "and itself in capitals");
    must(upperFileName(upperFileName(one)) == upperFileName(one), "capitals stay");
    must(upperFileName(one).size() == one.size(), "capitals are as long");
    must(sameFileName(one, other) == (upperFileName(one) == upperFileName(other)), "both say the same of two names");
}

void checkNumber(const std::string& text)
{
    FindNumber number;
    const bool digits = std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
    const bool good =
        text.size() >= 3 && digits && text[text.size() - 2] != '0' && text.back() != '0' && text.back() != '9';
    must(findNumberOf(text, number) == good, "a number is three digits or more, its code 11 to 98");
    if (good)
        must(number.FindFileNumber >= 0 && number.FindIdRow >= 0 && number.FindIdRow <= 98, "both parts are numbers");
    if (good && text.size() <= 7)
        must(number.FindFileNumber == std::stoi(text.substr(0, text.size() - 2)), "the file's number stands before it");
}

} // namespace

void fuzzOne(std::string_view input)
{
    Choices choices(input);
    const int how = choices.byte();
    const std::string text(choices.rest());
    checkPath(text);
    checkCase(text.substr(0, text.size() / 2), text.substr(text.size() / 2));
    checkNumber(text);
    must(rowName(text).size() == text.size(), "a shown name is as long");
    const int characters = how % 100;
    const std::string shown = shortFolder(text, characters);
    const auto begun = std::count_if(shown.begin(), shown.end(), [](char c) { return (valueOf(c) & 0xC0) != 0x80; });
    must(shown == text || begun <= std::max(characters, 7), "a short folder has as many characters as wanted");
}
