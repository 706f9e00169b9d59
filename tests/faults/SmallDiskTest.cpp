// A real disk of the system's own that is full, or nearly: a tmpfs in a namespace of the test's own.
#include "faults/FaultRun.h"
#include "support/Figures.h"

#include <gtest/gtest.h>

class SmallDisk : public testing::TestWithParam<std::string>
{
};

TEST_P(SmallDisk, takesTheNewFilesWholeOrLeavesTheOldOnes)
{
    FaultDesk desk;
    long long cases = 0, refused = 0, fitted = 0;
    for (const WritePath& path : writePaths(desk.site())) {
        if (path.group != GetParam())
            continue;
        bool before = false;
        for (int pages = 0; pages <= 24; ++pages) {
            bool mounted = true, saved = false;
            const std::string broken = desk.runOnSmallDisk(path, pages, mounted, saved);
            if (!mounted)
                SKIP_WITHOUT_A_DISK;
            ASSERT_EQ(broken, "") << path.name << ", " << pages << " pages free";
            ++cases;
            (saved ? fitted : refused) += 1;
            // Above the first size that was enough little is new.
            if (saved && before && pages < 22)
                pages = 22;
            before = saved;
        }
        EXPECT_TRUE(before) << path.name << " fits into 24 pages";
    }
    EXPECT_GT(refused, 0);
    EXPECT_GT(fitted, 0);
    noteFigure("R7", "pages free, " + GetParam(), cases);
}

INSTANTIATE_TEST_SUITE_P(OfEachWay, SmallDisk,
                         testing::Values("save", "save as", "closing save", "database", "records", "start and exit"),
                         [](const auto& each) {
                             std::string name = each.param;
                             std::replace(name.begin(), name.end(), ' ', '_');
                             return name;
                         });
