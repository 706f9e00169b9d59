// The drawn keyboard under the X server's own pointer, down to the instrument.
#include "e2e/DeskTest.h"
#include "support/Hex.h"

namespace
{

class KeyboardPlayed : public DeskTest
{
protected:
    void SetUp() override
    {
        startFirst();
        desk().menu("mnuTastiera");
        desk().waitFor("frmTastiera");
        before = takenSoFar();
    }
    static std::vector<std::string> wire(const std::vector<std::string>& messages)
    {
        std::vector<std::string> bytes;
        for (const std::string& message : messages)
            bytes.push_back(bytesOf(message));
        return bytes;
    }
    /// The lower end of a white key, above its band.
    Point lowOn(const std::string& key)
    {
        const Control found = desk().waitFor("frmTastiera", key);
        return {found.number("x") + found.number("width") / 2, found.number("y") + found.number("height") * 9 / 10};
    }
    std::size_t before = 0;
};

TEST_F(KeyboardPlayed, theMenuOpensOneAndItsKeysSound)
{
    EXPECT_FALSE(desk().action("mnuTastiera").enabled());
    for (const char* key : {"Key(24)", "Key(25)", "Key(60)"})
        desk().click("frmTastiera", key);
    expectTaken(wire({"90 3C 40", "80 3C 40", "90 3D 40", "80 3D 40", "90 60 40", "80 60 40"}), before);
    desk().click("frmTastiera", "CommChiudi");
    desk().waitUntilGone("frmTastiera");
    EXPECT_TRUE(desk().action("mnuTastiera").enabled());
}

TEST_F(KeyboardPlayed, aHeldChordIsPlacedOnTheNextKey)
{
    for (const char* name : {"CheckHoldNote", "Key(24)", "Key(28)", "CommHoldChord", "Key(26)"})
        desk().click("frmTastiera", name);
    expectTaken(wire({"B0 7B 00", "90 3C 40", "90 40 40", "B0 7B 00", "90 3E 40", "90 42 40"}), before);
}

TEST_F(KeyboardPlayed, aGlideSoundsEachWhiteKeyOnItsWay)
{
    desk().click("frmTastiera", "CheckClickKey");
    desk().drag(lowOn("Key(24)"), lowOn("Key(36)"));
    expectTaken(wire({"90 3C 40", "80 3C 40", "90 3E 40", "80 3E 40", "90 40 40", "80 40 40", "90 41 40", "80 41 40",
                      "90 43 40", "80 43 40", "90 45 40", "80 45 40", "90 47 40", "80 47 40", "90 48 40"}),
                before);
}

} // namespace
