// The rows, and the look-up by the toolkit's text.
#include "toolkit/QtToolkitWords.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace
{

constexpr std::array Rows = {
    // the system menu and the buttons of a child window
    ToolkitWord{"&Restore", "&Ripristina"},
    ToolkitWord{"&Move", "&Sposta"},
    ToolkitWord{"&Size", "&Dimensiona"},
    ToolkitWord{"Mi&nimize", "Riduci a &icona"},
    ToolkitWord{"Ma&ximize", "In&grandisci"},
    ToolkitWord{"Stay on &Top", "Sempre in &primo piano"},
    ToolkitWord{"&Close", "&Chiudi"},
    ToolkitWord{"Restore", "Ripristina"},
    ToolkitWord{"Restore Down", "Ripristina"},
    ToolkitWord{"Minimize", "Riduci a icona"},
    ToolkitWord{"Maximize", "Ingrandisci"},
    ToolkitWord{"Close", "Chiudi"},
    ToolkitWord{"Menu", "Menu"},
    // the file dialogs
    ToolkitWord{"Back", "Indietro"},
    ToolkitWord{"Go back", "Torna alla cartella precedente"},
    ToolkitWord{"Forward", "Avanti"},
    ToolkitWord{"Go forward", "Va alla cartella successiva"},
    ToolkitWord{"Parent Directory", "Cartella superiore"},
    ToolkitWord{"Go to the parent directory", "Va alla cartella superiore"},
    ToolkitWord{"Create New Folder", "Crea nuova cartella"},
    ToolkitWord{"Create a New Folder", "Crea una nuova cartella"},
    ToolkitWord{"List View", "Elenco"},
    ToolkitWord{"Change to list view mode", "Mostra i file in un elenco"},
    ToolkitWord{"Detail View", "Dettagli"},
    ToolkitWord{"Change to detail view mode", "Mostra i file con i dettagli"},
    ToolkitWord{"Sidebar", "Barra laterale"},
    ToolkitWord{"List of places and bookmarks", "Elenco dei luoghi e dei segnalibri"},
    ToolkitWord{"Files", "File"},
    ToolkitWord{"Name", "Nome"},
    ToolkitWord{"Size", "Dimensione"},
    ToolkitWord{"Type", "Tipo"},
    ToolkitWord{"Date Modified", "Ultima modifica"},
    ToolkitWord{"Show ", "Mostra "}, // before the name of a column
    ToolkitWord{"Computer", "Computer"},
    ToolkitWord{"Recent Places", "Luoghi recenti"},
    ToolkitWord{"Folder", "Cartella"},
    ToolkitWord{"Drive", "Unità"},
    ToolkitWord{"%1 File", "File %1"},
    ToolkitWord{"&Rename", "&Rinomina"},
    ToolkitWord{"&Delete", "&Elimina"},
    ToolkitWord{"Remove", "Rimuovi"},
    ToolkitWord{"Show &hidden files", "Mostra file &nascosti"},
    ToolkitWord{"&New Folder", "&Nuova cartella"},
    ToolkitWord{"New Folder", "Nuova cartella"},
    ToolkitWord{"Are you sure you want to delete '%1'?", "Eliminare '%1'?"},
    ToolkitWord{"'%1' is write protected.\nDo you want to delete it anyway?",
                "'%1' è protetto da scrittura.\nEliminarlo ugualmente?"},
    ToolkitWord{"Could not delete directory.", "Impossibile eliminare la cartella."},
    ToolkitWord{"%1\nDirectory not found.\nPlease verify the correct directory name was given.",
                "%1\nCartella non trovata.\nVerificare che il nome sia corretto."},
    // fields, tabs and scroll bars
    ToolkitWord{"&Undo", "Ann&ulla"},
    ToolkitWord{"&Redo", "&Ripeti"},
    ToolkitWord{"Cu&t", "&Taglia"},
    ToolkitWord{"&Copy", "&Copia"},
    ToolkitWord{"&Paste", "&Incolla"},
    ToolkitWord{"Delete", "Elimina"},
    ToolkitWord{"Select All", "Seleziona tutto"},
    ToolkitWord{"Scroll Left", "Scorri a sinistra"},
    ToolkitWord{"Scroll Right", "Scorri a destra"},
    ToolkitWord{"Scroll here", "Scorri fin qui"},
    ToolkitWord{"Left edge", "Estremo sinistro"},
    ToolkitWord{"Right edge", "Estremo destro"},
    ToolkitWord{"Top", "In cima"},
    ToolkitWord{"Bottom", "In fondo"},
    ToolkitWord{"Page left", "Pagina a sinistra"},
    ToolkitWord{"Page right", "Pagina a destra"},
    ToolkitWord{"Page up", "Pagina in su"},
    ToolkitWord{"Page down", "Pagina in giù"},
    ToolkitWord{"Scroll left", "Scorri a sinistra"},
    ToolkitWord{"Scroll right", "Scorri a destra"},
    ToolkitWord{"Scroll up", "Scorri in su"},
    ToolkitWord{"Scroll down", "Scorri in giù"},
};

} // namespace

std::span<const ToolkitWord> toolkitWords() { return Rows; }

QString ToolkitWords::translate(const char*, const char* sourceText, const char*, int) const
{
    if (!sourceText)
        return {};
    const std::string_view wanted = sourceText;
    const auto row =
        std::find_if(Rows.begin(), Rows.end(), [&](const ToolkitWord& one) { return wanted == one.english; });
    return row == Rows.end() ? QString() : QString::fromUtf8(row->italian);
}
