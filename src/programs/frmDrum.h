// The window on the instrument's 16 drum kits, once as "Drum" and once as "Percussion", each with a channel of its own.
#pragma once

#include "programs/QtProgramBank.h"

class frmDrum final : public QtProgramBank
{
public:
    /// `windowKind` is 9 for the drum channel, 10 for the percussion channel.
    explicit frmDrum(int windowKind);

private:
    void buildControls();
    /// The name of the window, "Drum" or "Percussion", above the list.
    void addHeading(QWidget* content) const;
};
