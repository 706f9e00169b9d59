// Small things by which rooms that do not know each other share state: the flag of a scope, the highlighted field.
#include "core/FieldTarget.h"
#include "core/ScopedFlag.h"

#include <gtest/gtest.h>

TEST(ScopedFlag, isSetInItsScopeAndRestoredBehindIt)
{
    bool flag = false;
    {
        const ScopedFlag outer(flag);
        EXPECT_TRUE(flag);
        {
            const ScopedFlag inner(flag);
            EXPECT_TRUE(flag);
        }
        EXPECT_TRUE(flag) << "the outer scope still holds it";
    }
    EXPECT_FALSE(flag);
}

TEST(FieldTarget, isTheOneSetLast)
{
    struct Editor : FieldTarget {
        bool PrgFieldSelected() const override { return true; }
        bool StyFieldSelected() const override { return false; }
        int highlightedTrack() const override { return 3; }
        void assignProgram(int, int, const std::string&, const std::string&) override {}
        void assignStyle(int, int, const std::string&, const std::string&) override {}
    } editor;
    EXPECT_EQ(fieldTarget(), nullptr);
    setFieldTarget(&editor);
    EXPECT_EQ(fieldTarget(), &editor);
    setFieldTarget(nullptr);
    EXPECT_EQ(fieldTarget(), nullptr);
}
