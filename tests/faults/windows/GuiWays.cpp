// What the user does in the windows: the table.
#include "faults/windows/GuiDesk.h"

#include "core/Dichiarazioni.h"
#include "core/PathNames.h"
#include "files/SavingFixture.h"
#include "shell/frmMain.h"
#include "support/SettingsImage.h"
#include "toolkit/ChildWindow.h"

#include <QAction>
#include <QTest>

namespace
{

const std::string Old(20000, 'o');

struct Kind {
    const char* name;
    const char* extension;
    int fileKind;
    const char* newItem; ///< the menu item that makes an untitled one, or null
};

const Kind Kinds[] = {
    {"arrangements", ".arr", FileKind::Arr, "mnuNuovoArr"},
    {"programs", ".prg", FileKind::Prg, "mnuNuovoPrg"},
    {"programs of the other kind", ".pgg", FileKind::Pgg, nullptr},
    {"styles", ".sty", FileKind::Sty, "mnuNuovoSty"},
    {"globals", ".gbl", FileKind::Gbl, nullptr},
};

std::string bytesOf(const Kind& kind)
{
    const std::string extension = kind.extension;
    if (extension == ".sty")
        return SavingWindows::fourStyles();
    if (extension == ".gbl")
        return handMade(gblHead(), 448);
    if (extension == ".arr") {
        // Names of rows are shown, so they are letters.
        std::string file(10528, '\0');
        file.replace(0, 7, arrHead());
        return file.replace(32, 6, "Ballad");
    }
    return handMade(extension == ".prg" ? prgHead() : pggHead(), 30480);
}

/// The other program file of a stem, which a save removes.
std::optional<std::string> twinOf(const Kind& kind)
{
    if (kind.fileKind == FileKind::Prg)
        return ".pgg";
    return kind.fileKind == FileKind::Pgg ? std::optional<std::string>(".prg") : std::nullopt;
}

/// As after a change in each area of the windows.
void markChanged(frmMain& window)
{
    for (ChildWindow* child : window.findChildren<ChildWindow*>())
        switch (child->Tag.kind()) {
        case WindowKind::ArrFile:
        case WindowKind::ArrNew:
            child->Tag.set(9, 1);
            [[fallthrough]];
        case WindowKind::GlobalFile:
            child->Tag.set(3, 1);
            break;
        case WindowKind::PrgFile:
        case WindowKind::PrgNew:
            child->Tag.set(6, 1);
            break;
        default:
            child->Tag.set(9, 1);
        }
    window.MenuSync();
}

void openFile(frmMain& window, const Site& site, const Kind& kind)
{
    window.openPath(site.user() + "/song" + kind.extension, kind.fileKind, false);
    QTest::qWait(20);
    markChanged(window);
}

/// An untitled window of a kind, with known bytes in it.
void openNew(frmMain& window, const Kind& kind)
{
    window.menuItem(kind.newItem)->trigger();
    QTest::qWait(20);
    for (ChildWindow* child : window.findChildren<ChildWindow*>()) {
        if (kind.fileKind == FileKind::Sty)
            child->Tag.setStyleArea(bytesOf(kind));
        else
            child->Tag.bytes().replace(270, bytesOf(kind).size(), bytesOf(kind));
    }
    markChanged(window);
}

std::vector<WrittenFile> filesOf(const std::string& stem, const Kind& kind, const std::optional<std::string>& before)
{
    std::vector<WrittenFile> files{{Place::User, stem + kind.extension, before, bytesOf(kind)}};
    if (const auto twin = twinOf(kind))
        files.push_back({Place::User, stem + *twin, Old, {}});
    if (kind.fileKind == FileKind::Arr && before)
        files.push_back({Place::User, stem + ".sty", Old, SavingWindows::fourStyles()});
    return files;
}

GuiWay way(const std::string& group, const Kind& kind, const std::string& item, std::vector<WrittenFile> files)
{
    GuiWay made;
    made.group = group;
    made.item = item;
    made.path.name = group + " of " + kind.name;
    made.path.files = std::move(files);
    made.path.telling = Telling::ByBoth;
    made.path.keepsCopies = true;
    made.open = [kind](frmMain& window, const Site& site) { openFile(window, site, kind); };
    return made;
}

/// Everything open and modified, left by Exit and Yes to every question.
GuiWay exitWay()
{
    std::vector<WrittenFile> files;
    for (const Kind& kind : Kinds)
        if (kind.fileKind != FileKind::Pgg) // the styles are those of the arrangements
            files.push_back({Place::User, std::string("song") + kind.extension, Old, bytesOf(kind)});
    files.push_back({Place::State, "Dornflex", {}, {}});
    GuiWay made = way("exit", Kinds[0], "mnuExit", files);
    made.path.files.back().silent = true;
    made.path.files.push_back({Place::State, "Tarvolyne.ini", {}, {}});
    made.path.files.back().ownLength = 11500;
    made.open = [](frmMain& window, const Site& site) {
        for (const Kind& kind : Kinds)
            if (kind.fileKind != FileKind::Pgg && kind.fileKind != FileKind::Sty)
                openFile(window, site, kind);
    };
    return made;
}

} // namespace

std::vector<GuiWay> guiWays()
{
    std::vector<GuiWay> ways;
    for (const Kind& kind : Kinds) {
        ways.push_back(way("save", kind, "mnuSalva", filesOf("song", kind, Old)));
        ways.push_back(way("closing", kind, "mnuChiudi", filesOf("song", kind, Old)));
        std::vector<WrittenFile> files = filesOf("other", kind, Old);
        files.push_back({Place::User, std::string("song") + kind.extension, bytesOf(kind), bytesOf(kind)});
        if (kind.fileKind == FileKind::Arr)
            files.push_back({Place::User, "song.sty", bytesOf(Kinds[3]), bytesOf(Kinds[3])});
        ways.push_back(way("save as", kind, "mnuSalvaAs", files));
        ways.back().typed = std::string("other") + kind.extension;
        if (kind.newItem == nullptr)
            continue;
        for (const char* item : {"mnuSalva", "mnuChiudi"}) {
            ways.push_back(
                way(std::string(item) == "mnuSalva" ? "save as" : "closing", kind, item, filesOf("other", kind, {})));
            ways.back().path.name += ", untitled";
            ways.back().typed = std::string("other") + kind.extension;
            ways.back().open = [kind](frmMain& window, const Site&) { openNew(window, kind); };
        }
    }
    ways.push_back(exitWay());
    return ways;
}
