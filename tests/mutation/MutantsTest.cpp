// The bugs that are planted: each is one small change, and none stands where it could not matter.
#include "Mutants.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <set>

namespace
{

using Texts = std::set<std::string>;

Texts texts(std::string_view line, std::string_view before = "{")
{
    Texts found;
    for (const Mutant& mutant : mutantsOf(line, before))
        found.insert(mutant.kind + ":" + mutant.text);
    return found;
}

} // namespace

TEST(Mutants, moveABoundaryAndTurnARelation)
{
    EXPECT_EQ(texts("    while (i < n)"), Texts{"boundary:    while (i <= n)"});
    EXPECT_EQ(texts("    ok = a != b"), Texts{"relation:    ok = a == b"});
}

TEST(Mutants, moveEachNumberByOne)
{
    EXPECT_EQ(texts("constexpr int A = 10, B = 0x0F;"),
              (Texts{"constant:constexpr int A = 11, B = 0x0F;", "constant:constexpr int A = 9, B = 0x0F;",
                     "constant:constexpr int A = 10, B = 16;", "constant:constexpr int A = 10, B = 14;"}));
    EXPECT_EQ(texts("    x[0]"), Texts{"constant:    x[1]"});
    EXPECT_EQ(texts("    Text1 = 1'000 + 2.5"), Texts{"arithmetic:    Text1 = 1'000 - 2.5"});
}

TEST(Mutants, negateAWholeConditionOnly)
{
    EXPECT_EQ(texts("    if (a.empty())"), Texts{"condition:    if (!(a.empty()))"});
    EXPECT_EQ(texts("    if (const auto a = b())"), Texts{});
}

TEST(Mutants, forgetCallsAndAssignmentsButNoDeclarationNorTheRestOfAStatement)
{
    EXPECT_EQ(texts("    room->clear(all);"), Texts{"statement:    {}"});
    EXPECT_EQ(texts("    used = other;"), Texts{"statement:    {}"});
    EXPECT_EQ(texts("    const int used = other;"), Texts{});
    EXPECT_EQ(texts("    std::string used(other);"), Texts{});
    EXPECT_EQ(texts("            second(all);", "    first ="), Texts{});
}

TEST(Mutants, changeWhatIsReturned)
{
    EXPECT_EQ(texts("    return true;"), Texts{"return:    return false;"});
    EXPECT_EQ(texts("    return MidiResult::Done;"), Texts{"return:    return 1;"});
    EXPECT_EQ(texts("    return result;"), Texts{"return:    return {};"});
    EXPECT_EQ(texts("    return nullptr;"), Texts{});
}

TEST(Mutants, leaveTextsCommentsAndDirectivesAlone)
{
    EXPECT_EQ(texts("#include <a1>"), Texts{});
    EXPECT_EQ(texts("    // 1 < 2"), Texts{});
    EXPECT_EQ(texts("static_assert(a == 1);"), Texts{});
    EXPECT_EQ(texts("    say(\"1 < 2 \\\" 3\", '4');"), Texts{"statement:    {}"});
}

TEST(Mutants, areSpreadOverAllLinesAndTheSameForTheSameSeed)
{
    std::mt19937 one(3), same(3), other(4);
    const std::vector<std::size_t> places = spread(1000, 100, one);
    EXPECT_EQ(places, spread(1000, 100, same));
    EXPECT_NE(places, spread(1000, 100, other));
    ASSERT_EQ(places.size(), 100u);
    for (std::size_t i = 0; i < places.size(); ++i)
        EXPECT_EQ(places[i] / 10, i);
    EXPECT_EQ(spread(3, 9, one), (std::vector<std::size_t>{0, 1, 2}));
}

TEST(Mutants, oneForEachLineThatHasAny)
{
    std::mt19937 random(1);
    const std::vector<Mutant> mutants = mutantsOfFile({"// Head", "", "    return true;", "}", "    a += b;"}, random);
    ASSERT_EQ(mutants.size(), 2u);
    EXPECT_EQ(mutants[0].line, 3u);
    EXPECT_EQ(mutants[0].text, "    return false;");
    EXPECT_EQ(mutants[1].line, 5u);
}
