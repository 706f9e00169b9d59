// The form is that of the recent files' captions: the beginning, three points, and the folders at the end, which tell
// most.
#include "database/FolderText.h"

#include <algorithm>

namespace
{

constexpr int KeptInFront = 3;
constexpr const char* Omission = "...";

bool beginsCharacter(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U; }

int charactersIn(std::string_view text)
{
    return static_cast<int>(std::count_if(text.begin(), text.end(), beginsCharacter));
}

/// The place where the last `count` characters begin.
std::size_t endPiece(std::string_view text, int count)
{
    std::size_t place = text.size();
    while (place > 0 && count > 0)
        if (beginsCharacter(text[--place]))
            --count;
    return place;
}

std::size_t frontPiece(std::string_view text, int count)
{
    std::size_t place = 0;
    for (; place < text.size(); ++place)
        if (beginsCharacter(text[place]) && count-- == 0)
            break;
    return place;
}

} // namespace

std::string shortFolder(const std::string& path, int characters)
{
    if (charactersIn(path) <= characters)
        return path;
    const std::size_t front = frontPiece(path, KeptInFront);
    const int room = std::max(characters - KeptInFront - 3, 1); // behind the three points
    std::size_t behind = endPiece(path, room);
    const std::size_t slash = path.find('/', std::max(behind, front));
    if (slash != std::string::npos && slash + 1 < path.size())
        behind = slash;
    return path.substr(0, front) + Omission + path.substr(behind);
}
