// The cascade's fixed order, and the tables that keep the windows' places.
#include "shell/Cascade.h"

#include "core/Dichiarazioni.h"

#include <algorithm>
#include <array>

namespace
{

using namespace WindowKind;

/// Kinds in the order of the cascade. Kinds of one line share their slots, and go by their numbers.
struct FamilyRow {
    int firstKind;
    int lastKind;
};
constexpr std::array Families = {
    FamilyRow{ArrFile, ArrFile},
    FamilyRow{ArrNew, ArrNew},
    FamilyRow{PrgFile, PrgNew},
    FamilyRow{StyFile, StyNew},
    FamilyRow{ArrBankA, ArrBankA},
    FamilyRow{ArrBankB, ArrBankB},
    FamilyRow{StyBankA, StyBankA},
    FamilyRow{StyBankB, StyBankB},
    FamilyRow{PrgBankA, PrgBankE},
    FamilyRow{DrumKits, Percussion},
    FamilyRow{GlobalInstrument, GlobalInstrument},
    FamilyRow{GlobalFile, GlobalFile},
};

template <std::size_t Count>
SessionEntry* entryAt(std::array<SessionEntry, Count>& entries, int index)
{
    return index >= 0 && index < static_cast<int>(Count) ? &entries[static_cast<std::size_t>(index)] : nullptr;
}

SessionEntry* sessionEntry(const WindowBuffer& window)
{
    switch (window.kind()) {
    case ArrFile:
        return entryAt(App.Arrangements, window.number() - 1);
    case ArrNew:
        return entryAt(App.NewArrangements, window.number() - 1);
    case PrgFile:
    case PrgNew:
        return entryAt(App.Programs, window.number() - 1);
    case StyFile:
    case StyNew:
        return entryAt(App.Styles, window.number() - 1);
    case GlobalFile:
        return entryAt(App.Globals, window.number());
    default:
        return nullptr;
    }
}

} // namespace

std::vector<CascadePlace> cascadePlaces()
{
    std::vector<CascadePlace> places;
    int offset = 0;
    for (const FamilyRow& family : Families) {
        std::vector<WindowBuffer*> windows;
        for (WindowBuffer* window : OpenWindows::all())
            if (window->kind() >= family.firstKind && window->kind() <= family.lastKind)
                windows.push_back(window);
        std::sort(windows.begin(), windows.end(), [](const WindowBuffer* one, const WindowBuffer* other) {
            return one->number() != other->number() ? one->number() < other->number() : one->kind() < other->kind();
        });
        for (WindowBuffer* window : windows) {
            places.push_back({window, offset});
            offset += CascadeStep;
        }
    }
    return places;
}

void keepCascadePlace(const CascadePlace& place)
{
    if (SessionEntry* entry = sessionEntry(*place.window)) {
        entry->left = place.offset;
        entry->top = place.offset;
        return;
    }
    WindowPosition& position = App.WinPos[static_cast<std::size_t>(place.window->kind())];
    position.left = place.offset;
    position.top = place.offset;
}
