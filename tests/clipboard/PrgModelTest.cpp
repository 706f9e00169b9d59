// Random sequences of copy, cut and paste over program windows and factory banks; what must hold is in PrgModel.h.
#include "PrgModel.h"

TEST_F(PrgModel, theFilesHeadFollowsItsRecordsThroughAnySequence)
{
    play(64U, 100000, 50, [this] {
        take();
        put();
    });
}
