// The settings' way into a run and out of it.
#include "core/Settings.h"

#include "core/Dichiarazioni.h"
#include "core/NameTables.h"
#include "core/RandomFile.h"
#include "core/StateFiles.h"
#include "core/UserInterface.h"

namespace
{

/// Distance between the ids of a text in two languages.
constexpr int LanguageStep = 200;

Settings& settings() { return App; }

/// Writes the settings file during the start. A file error there never stops the start: the program runs on with what
/// it holds, and the exit tries again.
void writeTrapped(const ByteBuffer& image) { static_cast<void>(replaceStateFile(SettingsFile::path(), image)); }

void useLanguage(int language)
{
    App.Language = language;
    App.LanguageBase = (language - 1) * LanguageStep;
}

/// Asks for the language with the files of a fresh run in place. `mayWrite` is false when the settings file is there
/// but cannot be read: it may still be whole and is left alone.
void firstRun(bool mayWrite)
{
    DeviceRecordCreate();
    InfoFileCheck();
    if (mayWrite)
        writeTrapped(SettingsFile::firstImage(settings()));

    App.QuitRequested = false;
    const int language = theUser().chooseLanguage();
    if (language != 1 && language != 2) {
        App.QuitRequested = true;
        if (mayWrite)
            static_cast<void>(deleteFile(SettingsFile::path()));
        return;
    }
    useLanguage(language);
    if (mayWrite)
        writeTrapped(SettingsFile::firstImage(settings()));
}

} // namespace

void SettingsLoad()
{
    App.AppClosing = false;
    theUser().screenTwips(App.ScreenTwipsX, App.ScreenTwipsY);

    FileContent file;
    const int error = readFile(SettingsFile::path(), SettingsFile::FileLength, file);
    if (SettingsFile::decode(file.bytes, settings())) {
        useLanguage(App.Language);
    } else {
        SettingsFile::setDefaults(settings());
        // While another process runs, these files are its own: it may be asking for the language just now.
        if (!App.AnotherRuns)
            firstRun(error == FileError::None);
        if (App.QuitRequested)
            return;
    }
    NameTablesBuild();
}

int SettingsSave()
{
    FileContent file;
    if (const int error = readFile(SettingsFile::path(), SettingsFile::FileLength, file); error != 0)
        return error;
    App.GlobalValid = App.GlobalValid || App.GblCurrentChanged;
    Settings onDisk;
    const bool usable = SettingsFile::decode(file.bytes, onDisk);
    return replaceStateFile(
        SettingsFile::path(),
        SettingsFile::encode(settings(), usable ? file.bytes : SettingsFile::firstImage(settings())));
}
