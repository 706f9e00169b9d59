// What an arrangement window leaves of itself in the session and in the list of recent files.
#include "arrangements/ArrSession.h"
#include "ArrRoom.h"

class ArrSession : public ArrRoom
{
protected:
    ArrSession() : tag(WindowBuffer::fresh(19, 1))
    {
        tag.setPath("/music/song");
        entry.path = "/music/song";
        entry.used = true;
        entry.Open = 1;
        entry.databaseId = 305;
        place.left = 450;
        place.top = -300;
        place.width = 5100;
        place.height = 8100;
    }
    static RecentEntry recent(const std::string& path, int kind)
    {
        RecentEntry file;
        file.path = path;
        file.kind = kind;
        file.kept = std::string(250, '\x55');
        return file;
    }

    WindowBuffer tag;
    SessionEntry entry;
    WindowPosition place;
};

TEST_F(ArrSession, keepsThePlaceAndFreesTheSlot)
{
    ArrSessionLeave(entry, tag, place);
    EXPECT_EQ(entry.left, 450);
    EXPECT_EQ(entry.top, -300);
    EXPECT_EQ(entry.width, 5100);
    EXPECT_EQ(entry.height, 8100);
    EXPECT_FALSE(entry.used);
    EXPECT_EQ(entry.databaseId, 0);
}

TEST_F(ArrSession, comesBackOnlyWhenTheProgramLeaves)
{
    ArrSessionLeave(entry, tag, place);
    EXPECT_EQ(entry.Open, 0) << "closed by the user";
    App.AppClosing = true;
    ArrSessionLeave(entry, tag, place);
    EXPECT_EQ(entry.Open, 1);
}

TEST_F(ArrSession, takesTheNameUnderWhichTheFileWasSavedLast)
{
    tag.setPath("/music/other");
    ArrSessionLeave(entry, tag, place);
    EXPECT_EQ(entry.path, "/music/other");
}

TEST_F(ArrSession, ofAPathThatItsFieldCannotHoldDoesNotComeBack)
{
    entry.path = "/" + std::string(238, 'd');
    tag.setPath(entry.path);
    App.AppClosing = true;
    ArrSessionLeave(entry, tag, place);
    EXPECT_EQ(entry.Open, 0);
    EXPECT_EQ(entry.path.size(), 239u);
}

TEST_F(ArrSession, keepsThePlaceInTheRecentFileOfItsPathAndKind)
{
    App.Recent[0] = recent("/music/song", 2);
    App.Recent[1] = recent("/music/song2", 1);
    App.Recent[2] = recent("/music/song", 1);
    ArrSessionLeave(entry, tag, place);
    // Width, height 5100 and 8100; left and top with their bias of 16000: 16450 and 15700.
    std::string kept(250, '\x55');
    kept.replace(238, 2, bytesOf("13 EC"));
    kept.replace(242, 4, bytesOf("40 42 3D 54"));
    kept.replace(248, 2, bytesOf("1F A4"));
    EXPECT_EQ(hex(App.Recent[2].kept), hex(kept));
    EXPECT_EQ(App.Recent[0].kept, std::string(250, '\x55'));
    EXPECT_EQ(App.Recent[1].kept, std::string(250, '\x55'));
}

TEST_F(ArrSession, keepsARecentPlaceWithinWhatTheFileCanHold)
{
    App.Recent[0] = recent("/music/song", 1);
    App.Recent[0].kept.clear();
    place.left = -20000;
    place.top = 20000;
    place.width = -5;
    place.height = 40000;
    ArrSessionLeave(entry, tag, place);
    std::string kept(250, '\0');
    kept.replace(242, 4, bytesOf("00 00 7D 00"));
    kept.replace(248, 2, bytesOf("7F FF"));
    EXPECT_EQ(hex(App.Recent[0].kept), hex(kept));
}
