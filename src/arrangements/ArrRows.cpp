// Rows are read from the image at each call: the image is the only lasting copy.
#include "arrangements/ArrRows.h"

#include "arrangements/ArrBlock.h"
#include "arrangements/ArrTexts.h"
#include "core/Dichiarazioni.h"
#include "files/RowLabels.h"
#include "files/StyImage.h"
#include "files/WindowLayout.h"

#include <array>

namespace
{

constexpr int CodeWidth = 2;
constexpr int FactoryStyles = 128;

int styleNumber(std::string_view record) { return byteAt(record, ArrBlock::StyleNumber.offset); }

/// A factory bank has no styles of its own beside it: its arrangements name the factory's, whatever their flag says.
int styleBank(std::string_view image, std::string_view record)
{
    const int kind = byteAt(image, WindowLayout::KindOffset);
    const bool factoryBank = kind == WindowKind::ArrBankA || kind == WindowKind::ArrBankB;
    return factoryBank ? ArrBlock::FactoryBank : byteAt(record, ArrBlock::StyleBank.offset);
}

bool isUsed(std::string_view record) { return byteAt(record, ArrBlock::Name.offset) != 0; }

} // namespace

std::string_view arrRecord(std::string_view image, int row)
{
    return slice(slice(image, WindowLayout::ArrFile), ArrLayout::row(row));
}

std::string arrRowText(std::string_view image, int row)
{
    const std::string_view record = arrRecord(image, row);
    if (!isUsed(record))
        return rowCode(row);
    return rowCode(row) + (styleBank(image, record) == ArrBlock::UserBank ? " +" : "  ") +
           rowName(slice(record, ArrBlock::Name));
}

std::vector<std::string> arrRowTexts(std::string_view image)
{
    std::vector<std::string> rows;
    rows.reserve(ArrLayout::RowCount);
    for (int row = 0; row < ArrLayout::RowCount; ++row)
        rows.push_back(arrRowText(image, row));
    return rows;
}

bool isEmptyRowText(std::string_view text) { return trimRight(text).size() <= CodeWidth; }

bool anyArrUsed(std::string_view image)
{
    for (int row = 0; row < ArrLayout::RowCount; ++row)
        if (isUsed(arrRecord(image, row)))
            return true;
    return false;
}

std::vector<std::string> arrStyleEntries(std::string_view image)
{
    std::vector<std::string> entries;
    std::array<bool, FactoryStyles> listed{};
    for (int row = 0; row < ArrLayout::RowCount; ++row) {
        const std::string_view record = arrRecord(image, row);
        const int number = styleNumber(record);
        if (!isUsed(record) || styleBank(image, record) != ArrBlock::FactoryBank || number >= FactoryStyles ||
            listed[static_cast<std::size_t>(number)])
            continue;
        listed[static_cast<std::size_t>(number)] = true;
        entries.push_back(styleEntry(image, number, ArrBlock::FactoryBank));
    }
    if (byteAt(image, WindowLayout::StyStateOffset) != WindowLayout::StyState::Real)
        return entries;
    for (int slot = 0; slot < StyLayout::SlotCount; ++slot) {
        if (StySlotLenArr(slot, image) == 0)
            break; // this slot and all behind it are absent
        if (StySlotName(slot, image) != StyLayout::EmptyName)
            entries.push_back(styleEntry(image, slot, ArrBlock::UserBank));
    }
    return entries;
}

std::string arrStyleEntry(std::string_view image, int row)
{
    const std::string_view record = arrRecord(image, row);
    return styleEntry(image, styleNumber(record), styleBank(image, record));
}

std::string arrIdText(int databaseId, int row)
{
    return databaseId <= 0 ? std::string() : std::to_string(databaseId) + rowCode(row);
}

bool arrUsesUserStyle(std::string_view image, int row)
{
    return styleBank(image, arrRecord(image, row)) == ArrBlock::UserBank;
}

bool arrUsesBankD(std::string_view image, int row)
{
    const std::string_view record = arrRecord(image, row);
    for (int k = 0; k < ArrLayout::TrackCount; ++k) {
        const int track = ArrBlock::track(k).offset;
        if (byteAt(record, track + ArrBlock::Track::ProgramBank) == ArrBlock::TrackBank::CD &&
            byteAt(record, track + ArrBlock::Track::ProgramNumber) >= ArrBlock::HalfBank)
            return true;
    }
    return false;
}
