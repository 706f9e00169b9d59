// Folder, name, extension: where a path is cut.
#include "core/PathNames.h"

#include "core/Bytes.h"

#include <array>
#include <cstddef>

namespace
{

constexpr std::size_t ExtensionLength = 3;
constexpr std::array<const char*, 6> Extensions = {"", ".arr", ".sty", ".prg", ".pgg", ".gbl"};

std::string_view nameOf(std::string_view path)
{
    const std::size_t slash = path.rfind('/');
    return slash == std::string_view::npos ? path : path.substr(slash + 1);
}

/// The extension with its point when it has exactly three characters; else empty.
std::string_view pointAndExtension(std::string_view path)
{
    const std::string_view name = nameOf(path);
    const std::size_t point = name.rfind('.');
    return point != std::string_view::npos && name.size() - point == ExtensionLength + 1 ? name.substr(point)
                                                                                         : std::string_view();
}

// The Latin-1 letters in UTF-8: a lead byte, then the capital or, a fixed distance on, the small letter.
constexpr int LatinLead = 0xC3;
constexpr int FirstCapital = 0x80, LastCapital = 0x9E, TimesSign = 0x97;
constexpr int CaseDistance = 0x20;

bool followsLatinLead(std::string_view name, std::size_t place)
{
    return place > 0 && static_cast<unsigned char>(name[place - 1]) == LatinLead;
}

bool isLatinCapital(int byte) { return byte >= FirstCapital && byte <= LastCapital && byte != TimesSign; }

/// The byte at `place` in lower case: an ASCII letter, or the second byte of a Latin-1 letter in UTF-8.
int foldedByte(std::string_view name, std::size_t place)
{
    const int byte = static_cast<unsigned char>(name[place]);
    const bool asciiCapital = byte >= 'A' && byte <= 'Z';
    const bool latinCapital = followsLatinLead(name, place) && isLatinCapital(byte);
    return asciiCapital || latinCapital ? byte + CaseDistance : byte;
}

/// The byte at `place` as a capital.
int upperByte(std::string_view name, std::size_t place)
{
    const int byte = static_cast<unsigned char>(name[place]);
    const bool asciiSmall = byte >= 'a' && byte <= 'z';
    const bool latinSmall = followsLatinLead(name, place) && isLatinCapital(byte - CaseDistance);
    return asciiSmall || latinSmall ? byte - CaseDistance : byte;
}

} // namespace

std::string FolderOf(std::string_view path)
{
    const std::size_t slash = path.rfind('/');
    return slash == std::string_view::npos ? std::string() : std::string(path.substr(0, slash));
}

std::string FileNameOf(std::string_view path) { return std::string(nameOf(withoutExtension(path))); }

std::string FileStemOf(std::string_view pathWithoutExtension) { return std::string(nameOf(pathWithoutExtension)); }

bool sameFileName(std::string_view one, std::string_view other)
{
    if (one.size() != other.size())
        return false;
    for (std::size_t i = 0; i < one.size(); ++i)
        if (foldedByte(one, i) != foldedByte(other, i))
            return false;
    return true;
}

std::string upperFileName(std::string_view name)
{
    std::string upper(name);
    for (std::size_t i = 0; i < name.size(); ++i)
        upper[i] = static_cast<char>(upperByte(name, i));
    return upper;
}

int FileKindOf(std::string_view path)
{
    const std::string_view extension = pointAndExtension(path);
    for (std::size_t kind = FileKind::Arr; kind < Extensions.size(); ++kind)
        if (sameFileName(extension, Extensions[kind]))
            return static_cast<int>(kind);
    return FileKind::None;
}

const char* extensionOf(int fileKind)
{
    const bool known = fileKind > FileKind::None && fileKind <= FileKind::Gbl;
    return Extensions[static_cast<std::size_t>(known ? fileKind : FileKind::None)];
}

std::string withoutExtension(std::string_view path)
{
    return std::string(path.substr(0, path.size() - pointAndExtension(path).size()));
}

bool pathFitsField(std::string_view path)
{
    return path.size() <= static_cast<std::size_t>(PathFieldWidth) && (path.empty() || path.back() != ' ');
}

std::string infoStem(std::string_view stem)
{
    constexpr std::size_t InfoNameWidth = 24;
    return std::string(trimRight(stem.substr(0, InfoNameWidth)));
}
