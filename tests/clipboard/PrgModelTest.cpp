// Random sequences of copy, cut and paste over program windows and factory banks; what must hold is in PrgModel.h.
#include "PrgModel.h"

namespace
{

constexpr int Sequences = 100000;
constexpr int SequencesPerDesk = 50;

} // namespace

TEST_F(PrgModel, theFilesHeadFollowsItsRecordsThroughAnySequence)
{
    dice = std::make_unique<Dice>(64U);
    for (int sequence = 0; sequence < Sequences && !HasFailure(); ++sequence) {
        if (sequence % SequencesPerDesk == 0)
            layDesk();
        story += "\nsequence " + std::to_string(sequence);
        take();
        put();
    }
    EXPECT_GT(copies, Sequences / 8);
    EXPECT_GT(cuts, Sequences / 20);
    EXPECT_GT(pastes, Sequences / 8);
}
