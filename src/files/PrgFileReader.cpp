// Reading a program file: by its full name, or by a stem that a .prg or a .pgg may stand for.
#include "files/FileReaders.h"

#include "core/PathNames.h"
#include "core/Reports.h"
#include "files/FileReading.h"
#include "files/PrgLayout.h"

namespace
{

constexpr int DataFormatCode = 32;
constexpr int ReferenceFile = 4; ///< PrgFileFind's answer for a .pgg

bool headIs(const ByteBuffer& bytes, std::string_view signature) { return bytes.starts_with(signature); }

int refuse(const std::string& title)
{
    Files.PrgName.clear();
    ReportError(DataFormatCode, title, {});
    return ReadResult::Refused;
}

void keep(const std::string& path, const std::string& name, const std::string& extension, FileContent& content)
{
    Files.PrgBuffer = std::move(content.bytes);
    Files.PrgFolder = FolderOf(path);
    Files.PrgName = name;
    Files.PrgExtension = extension;
}

std::string extensionName(std::string_view path) { return FileKindOf(path) == FileKind::Pgg ? "pgg" : "prg"; }

/// One file that a search met: its head must be the one that its extension promises.
int findFile(const std::string& path, const std::string& name, const std::string& extension)
{
    FileContent content;
    switch (readPresent(path, PrgLayout::FileSize, content)) {
    case Presence::Aborted:
        return ReadResult::Aborted;
    case Presence::Absent:
        return ReadResult::Absent;
    case Presence::Present:
        break;
    }
    const bool ordinary = extension == "prg";
    if (!hasExactly(content, PrgLayout::FileSize) ||
        !headIs(content.bytes, ordinary ? PrgLayout::PrgSignature : PrgLayout::PggSignature))
        return refuse(openingTitle(name));
    keep(path, name, extension, content);
    return ordinary ? ReadResult::Read : ReferenceFile;
}

/// The program file that a stem stands for: the .prg, else the .pgg.
int findCompanion(const std::string& stemPath)
{
    const std::string stem = FileStemOf(stemPath);
    openingTitle(stem);
    const int ordinary = findFile(stemPath + ".prg", stem, "prg");
    return ordinary != ReadResult::Absent ? ordinary : findFile(stemPath + ".pgg", stem, "pgg");
}

/// True when three characters stand behind the last point of the file's name.
bool hasThreeLetterExtension(const std::string& path) { return withoutExtension(path) != path; }

} // namespace

int PrgFileRead(const std::string& path)
{
    const std::string name = FileNameOf(path);
    const std::string title = openingTitle(name);
    FileContent content;
    switch (readPresent(path, PrgLayout::FileSize, content)) {
    case Presence::Aborted:
        return ReadResult::Aborted;
    case Presence::Absent:
        Files.PrgName.clear();
        return ReadResult::Absent;
    case Presence::Present:
        break;
    }
    if (!hasExactly(content, PrgLayout::FileSize) ||
        (!headIs(content.bytes, PrgLayout::PrgSignature) && !headIs(content.bytes, PrgLayout::PggSignature)))
        return refuse(title);
    keep(path, name, extensionName(path), content);
    return ReadResult::Read;
}

int PrgFileFind(const std::string& path)
{
    const int kind = FileKindOf(path);
    const bool looksNamed = hasThreeLetterExtension(path);
    // A stem such as "song.two" only looks like a file's name: its companions come first, and a file that happens to be
    // called so is nobody's program file.
    if (!looksNamed || kind == FileKind::None) {
        const int companion = findCompanion(path);
        if (companion != ReadResult::Absent || !looksNamed)
            return companion;
    }
    const std::string name = FileNameOf(path);
    openingTitle(name);
    return findFile(path, name, kind == FileKind::Prg ? "prg" : "pgg");
}
