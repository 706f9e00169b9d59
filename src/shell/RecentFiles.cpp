// The recent files. Paths are bytes of the file system; captions count characters, so a path with accented letters is
// never cut inside one.
#include "shell/RecentFiles.h"

#include "core/Dichiarazioni.h"
#include "core/PathNames.h"
#include "core/RandomFile.h"

#include <algorithm>
#include <vector>

namespace
{

constexpr int LongestPath = 35; ///< characters
constexpr int LongestTail = 28;
constexpr int Drive = 3; ///< characters that stay at the front

RecentEntry& entryAt(int index) { return App.Recent[static_cast<std::size_t>(index)]; }

/// A text as its characters: a UTF-8 sequence each; a byte that begins none counts for itself.
std::vector<std::string> charactersOf(const std::string& text)
{
    std::vector<std::string> characters;
    for (const char byte : text) {
        const bool continues = (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
        if (continues && !characters.empty())
            characters.back() += byte;
        else
            characters.emplace_back(1, byte);
    }
    return characters;
}

std::string joined(const std::vector<std::string>& characters, int first, int count)
{
    std::string text;
    const int last = std::min(static_cast<int>(characters.size()), first + count);
    for (int index = first; index < last; ++index)
        text += characters[static_cast<std::size_t>(index)];
    return text;
}

std::string shortened(const std::string& path)
{
    const std::vector<std::string> characters = charactersOf(path);
    const int length = static_cast<int>(characters.size());
    if (length <= LongestPath)
        return path;
    int lastSlash = -1;
    for (int index = Drive; index < length; ++index) {
        if (characters[static_cast<std::size_t>(index)] != "/")
            continue;
        lastSlash = index;
        const int behind = length - index - 1;
        if (behind <= LongestTail)
            return joined(characters, 0, Drive) + ".../" + joined(characters, index + 1, behind);
    }
    if (lastSlash < 0)
        return joined(characters, 0, LongestPath) + "...";
    return joined(characters, 0, Drive) + ".../" + joined(characters, lastSlash + 1, LongestTail) + "...";
}

bool isOnTheList(const std::string& path, int kind)
{
    return std::any_of(App.Recent.begin(), App.Recent.end(),
                       [&](const RecentEntry& entry) { return entry.kind == kind && sameFileName(entry.path, path); });
}

/// The first free place, or the first one after all have moved down by one.
RecentEntry& placeForNew()
{
    for (RecentEntry& entry : App.Recent)
        if (entry.path.empty())
            return entry;
    std::rotate(App.Recent.rbegin(), App.Recent.rbegin() + 1, App.Recent.rend());
    return App.Recent.front();
}

} // namespace

void RecentAdd(const std::string& path, bool readOnly)
{
    const int kind = FileKindOf(path);
    const std::string stem = withoutExtension(path);
    // A path that its field would cut names another file at the next start.
    if (kind == FileKind::None || !pathFitsField(stem) || isOnTheList(stem, kind))
        return;
    RecentEntry entry;
    entry.path = stem;
    entry.kind = kind;
    entry.readOnly = readOnly;
    placeForNew() = entry;
}

std::string recentPath(int index)
{
    const RecentEntry& entry = entryAt(index);
    return entry.path.empty() ? std::string() : entry.path + extensionOf(entry.kind);
}

std::string RecentCaption(int index) { return "&" + std::to_string(index + 1) + "  " + shortened(recentPath(index)); }
