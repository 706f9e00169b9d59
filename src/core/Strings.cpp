// Looking words up by id and language.
#include "core/Strings.h"
#include "core/Words.h"

#include "core/Dichiarazioni.h"
#include "core/StringTable.h"

#include <algorithm>

namespace
{

constexpr int English = 2;

const StringRow* rowOf(int id)
{
    const auto table = id < Words::First ? stringTable() : supplementTable();
    const auto found = std::lower_bound(table.begin(), table.end(), id,
                                        [](const StringRow& row, int wanted) { return row.id < wanted; });
    return found != table.end() && found->id == id ? &*found : nullptr;
}

} // namespace

std::string ResTextIn(int language, int id)
{
    const StringRow* row = rowOf(id);
    if (!row)
        return {};
    return language == English ? row->english : row->italian;
}

// The table's English rows are LanguageBase above the Italian ones; before a language is chosen the base is Italian.
std::string ResText(int id) { return ResTextIn(App.LanguageBase == 0 ? 1 : English, id); }

std::string withArgument(std::string text, std::string_view argument)
{
    const std::size_t place = text.find('_');
    if (place != std::string::npos)
        text.replace(place, 1, argument);
    return text;
}
