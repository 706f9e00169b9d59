// Reading a style file, which has no fixed length, and the template of empty styles beside the program.
#include "files/FileReaders.h"

#include "core/Dichiarazioni.h"
#include "core/PathNames.h"
#include "core/Strings.h"
#include "core/UserInterface.h"
#include "files/FileReading.h"
#include "files/StyLayout.h"

namespace
{

using namespace StyLayout;

constexpr std::string_view TemplateName = "TvlSty";
constexpr int WrongFormatRow = 14;

/// Longer files are no style files: the table of lengths cannot describe a fiftieth part of it, and a window keeps the
/// whole file in memory.
constexpr std::int64_t LargestFile = 64LL * 1024 * 1024;

void showRefused(const std::string& name)
{
    if (App.ui != nullptr)
        App.ui->showNotice(name + ".sty", withArgument(ResText(WrongFormatRow), name));
}

/// Four slots named "- empty -" in the copy in memory; the file beside the program is not touched.
ByteBuffer templateImage(const FileContent& content)
{
    ByteBuffer image = recordOf(content.bytes, TemplateSize, 1);
    for (int slot = 0; slot < TemplateSlots; ++slot)
        putBytes(image, HeadSize + slot * TemplateSlotSize, EmptyName);
    return image;
}

/// Required: what lies behind nine pieces of 32200 bytes is not read; the image keeps the file's length with zeros.
ByteBuffer styleImage(const FileContent& content)
{
    ByteBuffer image = content.bytes;
    image.resize(static_cast<std::size_t>(content.length), '\0');
    return image;
}

} // namespace

int StyFileRead(const std::string& path)
{
    constexpr int EmptyOrAbsent = 2;
    constexpr int RefusedOrAborted = 1;

    const std::string name = FileNameOf(path);
    openingTitle(name);
    const bool isTemplate = path.ends_with(TemplateName);

    FileContent content;
    switch (readPresent(path, isTemplate ? TemplateSize : ReadLimit, content)) {
    case Presence::Aborted:
        return RefusedOrAborted;
    case Presence::Absent:
        return EmptyOrAbsent;
    case Presence::Present:
        break;
    }
    if (!content.bytes.starts_with(Signature) || content.length > LargestFile) {
        showRefused(name);
        return RefusedOrAborted;
    }
    Files.StyBuffer = isTemplate ? templateImage(content) : styleImage(content);
    if (isTemplate)
        Files.StyEmptyBuffer = Files.StyBuffer;
    Files.StyFolder = FolderOf(path);
    Files.StyName = name;
    return ReadResult::Read;
}
