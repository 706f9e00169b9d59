// The two factory banks of styles by the kind of their window.
#pragma once

#include "core/Dichiarazioni.h"

inline constexpr int StyleBankRows = 64;

constexpr bool isStyleBank(int windowKind)
{
    return windowKind == WindowKind::StyBankA || windowKind == WindowKind::StyBankB;
}

/// The number of a bank's first style in the table of 128 names.
constexpr int firstStyleOf(int windowKind) { return windowKind == WindowKind::StyBankB ? StyleBankRows : 0; }

/// The bank's name: the title of its window.
constexpr const char* styleBankName(int windowKind)
{
    return windowKind == WindowKind::StyBankB ? "Style B" : "Style A";
}
