// Random sequences of copy, cut and paste over arrangement and style windows; what must hold after each is in
// ArrModel.h.
#include "ArrModel.h"

TEST_F(ArrModel, referencesStayWholeThroughAnySequence)
{
    play(20261121U, 100000, 20, [this] {
        take();
        put();
        if (dice->oneIn(2))
            put();
    });
}
