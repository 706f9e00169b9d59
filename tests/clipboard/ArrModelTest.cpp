// Random sequences of copy, cut and paste over arrangement and style windows; what must hold after each is in
// ArrModel.h.
#include "ArrModel.h"

namespace
{

constexpr int Sequences = 100000;
constexpr int SequencesPerDesk = 20;

} // namespace

TEST_F(ArrModel, referencesStayWholeThroughAnySequence)
{
    dice = std::make_unique<Dice>(20261121U);
    for (int sequence = 0; sequence < Sequences && !HasFailure(); ++sequence) {
        if (sequence % SequencesPerDesk == 0)
            layDesk();
        story += "\nsequence " + std::to_string(sequence);
        take();
        put();
        if (dice->oneIn(2))
            put();
    }
    // The sequences are what they claim to be.
    EXPECT_GT(copies, Sequences / 8);
    EXPECT_GT(cuts, Sequences / 20);
    EXPECT_GT(pastes, Sequences / 8);
}
