// What the user is told and asked: errors, questions, the status line, in both languages; the statement tried again.
#include "core/Reports.h"

#include "core/RandomFile.h"
#include "support/CoreRun.h"

#include <gtest/gtest.h>
#include <vector>

namespace
{

struct Case {
    int code;
    const char* italian;
    const char* english;
};

const Case Cases[] = {
    {0, "errore generico", "generic error"},
    {2, "xy errato", "xy error"},
    {3, "Non sono consentiti più di 4 stili per file", "Not more than 4 styles per file are allowed"},
    {4, "Formato dati xy errato", "Error reading xy"},
    {5, "File xy assente", "File xy not found"},
    {6, "File TvlDBArr assente", "File TvlDBArrnot found"},
    {7, "File TvlDBArr errato", "File TvlDBArrdata error"},
    {8, "File Arrangement assente", "File Arrangement not found"},
    {9, "File TvlDBArr vuoto", "File TvlDBArrempty"},
    {10, "Non è ammessa più di una istanza del programma", "Not more than one istance is allowed"},
    {12, "Chiudere prima tutte le altre applicazioni", "Close before all other applications"},
    {13, "Consentite non più di 10 applicazioni", "Not more than 10 applications Allowed "},
    {14, "File TvlArrA assente", "File TvlArrA not found"},
    {15, "File TvlArrB assente", "File TvlArrB not found"},
    {16, "File già aperto", "File already open"},
    {17, "File di sola lettura", "Read only file"},
    {18, "Errore di lettura da disco", "Disk reading error"},
    {19, "Disco pieno", "Disk full"},
    {20, "Dispositivo MIDI di Uscita già in uso", "Output MIDI Device already in use"},
    {21, "Errore apertura Dispositivo MIDI di Uscita", "Error opening Output MIDI Device"},
    {22, "Dispositivo MIDI di Uscita assente", "Output MIDI Device not found"},
    {23, "Errore chiusura Dispositivo MIDI di Uscita", "Error closing Output MIDI Device"},
    {24, "Il cambio avrà effetto alla prossima esecuzione del programma",
     "The change will take place next time you will run the programme"},
    {25, "Errore di lettura", "Reading Error"},
    {26, "Lettura di ", "Reading "},
    {27, "File assente", "File not found"},
    {28, "Disco non pronto o non formattato", "Disk not ready or not formatted"},
    {29, "Errore di scrittura su disco", "Disk writing error"},
    {30, "Impossibile trovare il percorso", "Path not found"},
    {31, "Errore I/O periferica", "Error I/O device"},
    {32, "Formato dati errato", "Data format error"},
    {34, "Errore Apertura Dispositivo MIDI di Ingresso", "Error Opening the MIDI Input Device"},
    {35, "Il Dispositivo MIDI non sarà utilizzato", "The MIDI Device will not be used"},
    {36, "La lunghezza di un gruppo di 4 Styles deve essere inferiore a 65496 bytes",
     "The lenght of a 4 Styles group must be less than 65496 bytes"},
};

std::string reported(CoreRun& run, int code)
{
    ReportError(code, "title", "xy");
    const ScriptedUser::Said said = run.user.warnings.back();
    EXPECT_EQ(said.title, "title");
    return said.text;
}

using Lines = std::vector<std::string>;

} // namespace

TEST(ReportError, showsTheTextOfEveryCodeInBothLanguages)
{
    CoreRun run;
    for (const Case& row : Cases) {
        run.speak(1);
        EXPECT_EQ(reported(run, row.code), row.italian) << row.code;
        run.speak(2);
        EXPECT_EQ(reported(run, row.code), row.english) << row.code;
    }
    EXPECT_EQ(run.user.warnings.size(), 2 * std::size(Cases)) << "one box a report";
}

TEST(ReportError, showsFileNameNotValidForAnyOtherCode)
{
    CoreRun run;
    for (const int code : {1, 11, 33, 37, -1, 1000}) {
        run.speak(1);
        EXPECT_EQ(reported(run, code), "Nome file non valido") << code;
        run.speak(2);
        EXPECT_EQ(reported(run, code), "File name not valid") << code;
    }
}

TEST(ReportError, leavesThePlaceOfAnEmptyArgumentEmpty)
{
    CoreRun run;
    run.speak(2);
    ReportError(4, "Opening song.arr", "");
    EXPECT_EQ(run.user.warnings, (std::vector<ScriptedUser::Said>{{"Opening song.arr", "Error reading "}}));
}

TEST(AskSave, asksItsThreeQuestions)
{
    CoreRun run;
    run.user.answers = {Answer::Yes, Answer::No, Answer::Yes};
    run.speak(1);
    EXPECT_EQ(AskSave(1, "t"), 6);
    EXPECT_EQ(AskSave(2, "t"), 7);
    EXPECT_EQ(AskSave(3, "t"), 6);
    ASSERT_EQ(run.user.questions.size(), 3U);
    EXPECT_EQ(run.user.questions[0].text, "Il file è stato modificato\nSalvare le modifiche ?");
    EXPECT_EQ(run.user.questions[1].text, "L'Arrangement è stato modificato.\nSalvare le modifiche ?");
    EXPECT_EQ(run.user.questions[2].text,
              "Scegliere la directory del file aperto come directory di lavoro di TvlDBArr ?");
    EXPECT_EQ(run.user.questions[0].title, "t");
}

TEST(AskSave, asksInEnglish)
{
    CoreRun run;
    run.speak(2);
    AskSave(1, "t");
    AskSave(2, "t");
    AskSave(3, "t");
    EXPECT_EQ(run.user.questions[0].text, "The file has changed\nSave changes ?");
    EXPECT_EQ(run.user.questions[1].text, "The Arrangement has changed.\nSave changes ?");
    EXPECT_EQ(run.user.questions[2].text, "Choose the directory of the opened file as working directory of TvlDBArr?");
}

TEST(AskSaveCancel, answersYesNoOrCancel)
{
    CoreRun run;
    run.speak(2);
    run.user.answers = {Answer::Yes, Answer::No, Answer::Cancel};
    EXPECT_EQ(AskSaveCancel(1, "a"), 6);
    EXPECT_EQ(AskSaveCancel(2, "b"), 7);
    EXPECT_EQ(AskSaveCancel(1, "c"), 2);
    EXPECT_EQ(run.user.questions[0], (ScriptedUser::Said{"a", "The file has changed\nSave changes ?"}));
    EXPECT_EQ(run.user.questions[1], (ScriptedUser::Said{"b", "The Arrangement has changed.\nSave changes ?"}));
}

TEST(StatusNotice, showsItsLinesInBothLanguagesAndClearsThem)
{
    CoreRun run;
    for (const int language : {1, 2}) {
        run.speak(language);
        for (const int code : {1, 2, 3, 4, 6, 7, 8, 0})
            StatusNotice(code, "song.arr");
    }
    EXPECT_EQ(run.user.progressLines,
              (Lines{"Elaborazione File Style", "Trasmissione Style", "Trasm. Arrangement", "Trasmissione Program",
                     "Apertura di song.arr", "Elaborazione di song.arr", "Aggiornamento di song.arr", "",
                     "Processing File Style", "Loading Style", "Loading Arrangement", "Loading Program",
                     "Opening song.arr", "Processing song.arr", "Update song.arr", ""}));
}

TEST(StatusNotice, leavesTheLineAsItIsForACodeWithoutAText)
{
    CoreRun run;
    StatusNotice(5, "x");
    StatusNotice(9, "x");
    StatusNotice(-1, "x");
    EXPECT_EQ(run.user.progressLines, Lines{});
}

TEST(FileErrReport, reportsUnderTheApplicationTitleByTheNumberOfTheError)
{
    CoreRun run;
    run.speak(2);
    run.user.boxEnds = {BoxEnd::Ok, BoxEnd::Ok, BoxEnd::Ok, BoxEnd::Ok, BoxEnd::Ok};
    const struct {
        int error;
        const char* text;
    } rows[] = {{56, "Error I/O device"},
                {75, "Read only file"},
                {76, "Path not found"},
                {57, "Disk reading error"},
                {61, "Disk reading error"}};
    for (const auto& row : rows) {
        EXPECT_EQ(FileErrReport(row.error), FileErrAnswer::Abort) << row.error;
        EXPECT_EQ(run.user.warnings.back(), (ScriptedUser::Said{"Tarvolyne - Tarvolyne Console ", row.text}));
    }
}

TEST(FileErrReport, triesAgainOnlyForADiskThatIsNotReadyAndOnlyAfterOk)
{
    CoreRun run;
    run.speak(1);
    run.user.boxEnds = {BoxEnd::Ok, BoxEnd::Dismissed};
    EXPECT_EQ(FileErrReport(71), FileErrAnswer::Retry);
    EXPECT_EQ(FileErrReport(71), FileErrAnswer::Abort);
    EXPECT_EQ(run.user.warnings.back().text, "Disco non pronto o non formattato");
}

TEST(RetryStatement, repeatsTheStatementUntilItSucceeds)
{
    CoreRun run;
    int tries = 0;
    EXPECT_EQ(RetryStatement([&] { return ++tries < 3 ? FileError::NotReady : 0; }), 0);
    EXPECT_EQ(tries, 3);
    EXPECT_EQ(run.user.warnings.size(), 2U);
}

TEST(RetryStatement, endsWithOneWhenTheUserGivesUpOrTheErrorCannotBeMended)
{
    CoreRun run;
    int tries = 0;
    run.user.boxEnds = {BoxEnd::Ok, BoxEnd::Dismissed};
    EXPECT_EQ(RetryStatement([&] {
                  ++tries;
                  return FileError::NotReady;
              }),
              1);
    EXPECT_EQ(tries, 2);
    EXPECT_EQ(RetryStatement([&] {
                  ++tries;
                  return FileError::AccessDenied;
              }),
              1);
    EXPECT_EQ(tries, 3);
}

TEST(TheUser, saysNothingAndAgreesToNothingWhileThereIsNone)
{
    App = {};
    EXPECT_EQ(AskSave(1, "t"), Answer::No);
    EXPECT_EQ(AskSaveCancel(1, "t"), Answer::Cancel);
    EXPECT_EQ(FileErrReport(71), FileErrAnswer::Abort);
    EXPECT_EQ(theUser().chooseLanguage(), 0);
    EXPECT_FALSE(theUser().openFile({}).accepted);
}
