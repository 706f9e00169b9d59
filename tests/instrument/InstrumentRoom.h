// What the tests of the virtual instrument share: the instrument with its names, and messages written out.
#pragma once

#include "core/Dichiarazioni.h"
#include "core/NameTables.h"
#include "instrument/VirtualInstrument.h"
#include "support/CoreRun.h"
#include "support/Hex.h"

#include <gtest/gtest.h>

#include <string>

class InstrumentRoom : public testing::Test
{
protected:
    InstrumentRoom()
    {
        App = {};
        speakLanguage(2);
        NameTablesBuild();
    }
    ~InstrumentRoom() override { App = {}; }

    void take(const std::string& pairs) { instrument.take(bytesOf(pairs)); }

    VirtualInstrument instrument;
};
