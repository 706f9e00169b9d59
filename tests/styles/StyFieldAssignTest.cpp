// A click in a style list as a choice for the editor: every style of every list, and what is no choice.
#include "styles/StyFieldAssign.h"

#include "core/FieldTarget.h"
#include "core/NameTables.h"
#include "support/StyleFiles.h"

#include <gtest/gtest.h>

namespace
{

struct EditorField : FieldTarget {
    bool selected = true;
    struct Style {
        int number;
        int bank;
        std::string name, label;
        bool operator==(const Style&) const = default;
    };
    std::vector<Style> taken;

    bool PrgFieldSelected() const override { return !selected; }
    bool StyFieldSelected() const override { return selected; }
    int highlightedTrack() const override { return -1; }
    void assignProgram(int, int, const std::string&, const std::string&) override
    {
        ADD_FAILURE() << "no program here";
    }
    void assignStyle(int number, int bank, const std::string& name, const std::string& label) override
    {
        taken.push_back({number, bank, name, label});
    }
};

std::string head(int kind)
{
    std::string bytes(270, ' ');
    bytes.front() = static_cast<char>(kind);
    return bytes;
}

std::string userTag(int kind, const std::string& file) { return head(kind) + std::string(399, '\0') + file; }

class StyFieldAssignment : public testing::Test
{
protected:
    StyFieldAssignment()
    {
        NameTablesBuild();
        for (std::size_t i = 0; i < 128; ++i) {
            Names.StyNames[i] = "Style " + std::to_string(i);
            Names.StyNames[i].resize(16, ' ');
        }
        setFieldTarget(&field);
    }
    ~StyFieldAssignment() override
    {
        setFieldTarget(nullptr);
        NameTablesBuild();
    }
    EditorField field;
};

} // namespace

TEST_F(StyFieldAssignment, takesAll128FactoryStyles)
{
    for (int index = 0; index < 128; ++index) {
        field.taken.clear();
        const bool upper = index >= 64;
        StyFieldAssign(upper ? index - 64 : index, head(upper ? 18 : 17));
        const int place = index % 64;
        const std::string code{static_cast<char>('1' + place / 8), static_cast<char>('1' + place % 8)};
        ASSERT_EQ(field.taken.size(), 1U);
        EXPECT_EQ(field.taken[0], (EditorField::Style{index, 0, "Style " + std::to_string(index),
                                                      std::string("Style (") + (upper ? "B" : "A") + code + ")"}));
    }
}

TEST_F(StyFieldAssignment, takesTheSixteenStylesOfAFileByTheirPanelNumbers)
{
    const std::vector<std::string> codes = {"11", "12", "13", "14", "15", "16", "17", "18",
                                            "21", "22", "23", "24", "25", "26", "27", "28"};
    const std::vector<int> rows = {0, 1, 2, 3, 5, 6, 7, 8, 10, 11, 12, 13, 15, 16, 17, 18};
    Slots slots;
    for (int slot = 0; slot < 16; ++slot)
        slots.emplace_back("Own " + std::to_string(slot), 30 + slot);
    for (const int kind : {23, 24})
        for (int slot = 0; slot < 16; ++slot) {
            field.taken.clear();
            const auto index = static_cast<std::size_t>(slot);
            StyFieldAssign(rows[index], userTag(kind, styFile(slots)));
            ASSERT_EQ(field.taken.size(), 1U);
            EXPECT_EQ(field.taken[0],
                      (EditorField::Style{slot, 1, "Own " + std::to_string(slot), "Style (U" + codes[index] + ")"}));
        }
}

TEST_F(StyFieldAssignment, anEmptyAndAnAbsentSlotAreChoicesToo)
{
    StyFieldAssign(3, userTag(23, emptyStyles()));
    StyFieldAssign(18, userTag(23, emptyStyles()));
    EXPECT_EQ(field.taken,
              (std::vector<EditorField::Style>{{3, 1, "- empty -", "Style (U14)"}, {15, 1, "", "Style (U28)"}}));
}

TEST_F(StyFieldAssignment, rowsWithoutAStyleAreNoChoice)
{
    for (const int row : {-1, 4, 9, 14, 19})
        StyFieldAssign(row, userTag(23, emptyStyles()));
    for (const int row : {-1, 64})
        StyFieldAssign(row, head(18));
    for (const int kind : {0, 2, 4, 19, 21})
        StyFieldAssign(0, head(kind));
    StyFieldAssign(0, "");
    EXPECT_TRUE(field.taken.empty());
}

TEST_F(StyFieldAssignment, nothingIsAssignedWithoutAHighlightedStyleField)
{
    field.selected = false;
    StyFieldAssign(0, head(17));
    StyFieldAssign(0, userTag(23, emptyStyles()));
    setFieldTarget(nullptr);
    StyFieldAssign(0, head(17));
    EXPECT_TRUE(field.taken.empty());
}
