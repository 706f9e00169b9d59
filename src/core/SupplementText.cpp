// Words that the system's own table lacks: tool tips, progress, the virtual instrument, recovery.
//
// A new text takes one name in Words (Strings.h) and one row here, at the same place in the order.
#include "core/StringTable.h"
#include "core/Strings.h"
#include "core/Words.h"

namespace
{

constexpr std::array Rows = {
    StringRow{Words::TransferInProgress, "Trasferimento in corso", "Transfer in progress"},
    StringRow{Words::VirtualInstrument, "Strumento virtuale", "Virtual instrument"},
    StringRow{Words::CableSpeed, "Riceve alla velocità del cavo MIDI", "Takes bytes at the cable's speed"},
    StringRow{Words::Ok, "OK", "OK"},
    StringRow{Words::Yes, "&Sì", "&Yes"},
    StringRow{Words::No, "&No", "&No"},
    StringRow{Words::Cancel, "Annulla", "Cancel"},
    StringRow{Words::LookIn, "Cerca in:", "Look in:"},
    StringRow{Words::FileType, "Tipo di file:", "Files of type:"},
    StringRow{Words::ModeHint, "Modo dello strumento", "Mode of the instrument"},
    StringRow{Words::LastArrHint, "Ultimi Arrangement trasmessi", "Arrangements last sent"},
    StringRow{Words::LastStyHint, "Ultimi Style trasmessi", "Styles last sent"},
    StringRow{Words::LastPrgHint, "Ultimi Program trasmessi", "Programs last sent"},
    StringRow{Words::InstNoteOn, "Canale _: nota _ suonata, velocità _", "Channel _: note _ on, velocity _"},
    StringRow{Words::InstNoteOff, "Canale _: nota _ rilasciata", "Channel _: note _ off"},
    StringRow{Words::InstPolyPressure, "Canale _: pressione sulla nota _: _", "Channel _: pressure on note _: _"},
    StringRow{Words::InstController, "Canale _: controllo _ a _", "Channel _: controller _ at _"},
    StringRow{Words::InstBankMsb, "Canale _: banco, byte alto _", "Channel _: bank, high byte _"},
    StringRow{Words::InstBankLsb, "Canale _: banco, byte basso _", "Channel _: bank, low byte _"},
    StringRow{Words::InstAllNotesOff, "Canale _: tutte le note spente", "Channel _: all notes off"},
    StringRow{Words::InstProgramChange, "Canale _: selezione _, banco _", "Channel _: selects _, bank _"},
    StringRow{Words::InstSelected, "Canale _: selezione _, banco _, _", "Channel _: selects _, bank _, _"},
    StringRow{Words::InstPressure, "Canale _: pressione _", "Channel _: pressure _"},
    StringRow{Words::InstPitchBend, "Canale _: intonazione _", "Channel _: pitch bend _"},
    StringRow{Words::InstModeChange, "Modo _, canale globale _", "Mode _, global channel _"},
    StringRow{Words::InstParameter, "Parametro _ a _, canale globale _", "Parameter _ at _, global channel _"},
    StringRow{Words::InstArrDump, "Arrangement ricevuti: _", "Arrangements received: _"},
    StringRow{Words::InstStyDump, "Gruppo di Style _ ricevuto: _", "Style group _ received: _"},
    StringRow{Words::InstPrgDump, "Program ricevuti: _", "Programs received: _"},
    StringRow{Words::InstGblDump, "Blocco globale ricevuto, _ byte", "Global block received, _ bytes"},
    StringRow{Words::InstSystem, "Messaggio di sistema _", "System message _"},
    StringRow{Words::InstMalformed, "Messaggio errato: _", "Malformed message: _"},
    StringRow{Words::InstCutByStatus, "interrotto da un byte di stato", "cut short by a status byte"},
    StringRow{Words::InstHighByteInside, "byte oltre 127 all'interno", "byte above 127 inside"},
    StringRow{Words::InstStrayEnd, "fine senza inizio", "end without a beginning"},
    StringRow{Words::InstNoStatus, "dati senza byte di stato", "data without a status byte"},
    StringRow{Words::InstTooLong, "troppo lungo", "too long"},
    StringRow{Words::InstWrongManufacturer, "produttore sconosciuto", "unknown manufacturer"},
    StringRow{Words::InstWrongFormat, "byte di formato errato", "wrong format byte"},
    StringRow{Words::InstWrongModel, "per un altro modello", "for another model"},
    StringRow{Words::InstUnknownFunction, "funzione sconosciuta", "unknown function"},
    StringRow{Words::InstWrongLength, "lunghezza errata", "wrong length"},
    StringRow{Words::InstWrongContent, "contenuto contraddittorio", "content contradicts itself"},
    StringRow{Words::InstMode, "Modo", "Mode"},
    StringRow{Words::InstNothingYet, "niente ancora", "nothing yet"},
    StringRow{Words::InstArrangement, "Arrangement scelto", "Arrangement selected"},
    StringRow{Words::InstSelections, "Canali", "Channels"},
    StringRow{Words::InstArrangements, "Arrangement", "Arrangements"},
    StringRow{Words::InstStyles, "Style", "Styles"},
    StringRow{Words::InstPrograms, "Program", "Programs"},
    StringRow{Words::InstGlobal, "Blocco globale", "Global block"},
    StringRow{Words::InstParameters, "Parametri", "Parameters"},
    StringRow{Words::InstBytes, "_ byte", "_ bytes"},
    StringRow{Words::InstKeys, "Tasti che suonano", "Sounding keys"},
    StringRow{Words::InstMessages, "Ultimi messaggi", "Last messages"},
    StringRow{Words::InstCounts, "Messaggi: _, errati: _", "Messages: _, malformed: _"},
    StringRow{Words::InstChannel, "Canale _", "Channel _"},
    StringRow{Words::InstGlobalChannel, "Canale _ (globale)", "Channel _ (global)"},
    StringRow{Words::ReplaceFile, "_ esiste già.\nSostituirlo?", "_ already exists.\nReplace it?"},
    StringRow{Words::ProgramFieldHint, "Scegli questo campo, poi un Program nella sua finestra",
              "Choose this field, then a program in its window"},
    StringRow{Words::StyleFieldHint, "Scegli questo campo, poi uno Style nella sua finestra",
              "Choose this field, then a style in its window"},
    StringRow{Words::OutputHint, "Uscita MIDI: _", "MIDI output: _"},
    StringRow{Words::NoOutputHint, "Nessuna uscita MIDI in uso", "No MIDI output in use"},
    StringRow{
        Words::AboutDescription,
        "Editor, archivio e controllo dal vivo per la workstation interattiva KORG i40M e le sorelle iS35, iS40 e "
        "iS50: arrangement, stili, programmi e parametri globali, dai file allo strumento.",
        "Editor, librarian and live control surface for the KORG i40M interactive workstation and its relatives "
        "iS35, iS40 and iS50: arrangements, styles, programs and global settings, from files to the instrument."},
    StringRow{Words::AboutVersion, "Versione _", "Version _"},
    StringRow{Words::AboutDisclaimer,
              "Tarvolyne è indipendente dal costruttore dello strumento. I nomi dei prodotti appartengono ai loro "
              "proprietari.",
              "Tarvolyne is independent of the instrument's maker. Product names belong to their owners."},
    StringRow{Words::CurveHint, "Si vede soltanto: la curva non viene cambiata da qui",
              "Shown only: the curve is not changed from here"},
    StringRow{Words::GlobalLoadHint, "Trasmette tutti i parametri globali", "Sends all global parameters"},
    StringRow{Words::GlobalModeHint, "Porta lo strumento nel modo GLOBAL", "Puts the instrument into GLOBAL mode"},
    StringRow{Words::ResetScaleHint, "Azzera le dodici note; va allo strumento con la prossima modifica o con Load",
              "Sets the twelve notes to 0; sent with the next change or with Load"},
    StringRow{Words::ChannelsHint, "Canale con cui Tarvolyne trasmette; non fa parte del blocco globale",
              "The channel that Tarvolyne sends on; it is no part of the global block"},
    StringRow{Words::StyleLength, "Lunghezza dello style _ in byte", "Length of style _ in bytes"},
    StringRow{Words::StyleGroup, "Byte fino alla fine del gruppo _; dopo una modifica, del gruppo soltanto",
              "Bytes up to the end of group _; after a change, of the group alone"},
    StringRow{Words::StyleTotal, "Lunghezza del file in byte", "Length of the file in bytes"},
    StringRow{
        Words::FindIdHint,
        "Numero del file (1 e 2 i banchi A e B, gli altri in Edit TvlDBArr), poi codice dell'Arrangement: 111, 30588",
        "Number of the file (1 and 2 the banks A and B, others in Edit TvlDBArr), then arrangement code: 111, 30588"},
    StringRow{Words::OctaveShift, "Ottava", "Octave"},
    StringRow{Words::SplitNote, "Nota del punto di split", "Note of the split point"},
    StringRow{Words::SplitMarker, "Segno del punto di split", "Marker of the split point"},
    StringRow{Words::ClickKeyHint, "Un tasto suona quando lo si preme; senza, suona quando il puntatore vi passa sopra",
              "A key sounds when it is pressed; without, when the pointer passes over it"},
    StringRow{Words::HoldNoteHint, "Un tasto premuto continua a suonare finché non lo si preme di nuovo",
              "A pressed key goes on sounding until it is pressed again"},
    StringRow{Words::HoldChordHint, "Fissa le note tenute: ogni tasto suona lo stesso accordo a partire da sé",
              "Keeps the held notes: each key then plays the same chord from itself"},
    StringRow{Words::SecondsLeft, "ancora _ s", "_ s left"},
    StringRow{Words::InstMemory, "Memoria dello strumento", "Memory of the instrument"},
    StringRow{Words::StatusPanel, "Barra di stato", "Status bar"},
};

static_assert(Rows.size() == static_cast<std::size_t>(Words::count()), "a row for each name in Words");
static_assert(inAscendingOrder(Rows) && Rows.back().id == Words::First + Words::count() - 1,
              "the rows in the order of Words");

} // namespace

std::span<const StringRow> supplementTable() { return Rows; }
