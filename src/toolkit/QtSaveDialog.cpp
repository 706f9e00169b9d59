// The save dialog. Before it lets a name go it looks where the file would come to stand: a missing folder and a refused
// overwriting keep it open.
#include "toolkit/QtSaveDialog.h"

#include "core/Strings.h"
#include "toolkit/QtOpenDialog.h"

#include <QApplication>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <algorithm>

namespace
{

constexpr int SaveRow = 54;
constexpr int PathNotFoundRow = 110;

class SaveDialog final : public QFileDialog
{
public:
    SaveDialog(const SaveDialogRequest& request, QWidget* parent, UserInterface& user)
        : QFileDialog(parent, QString::fromUtf8(request.title.c_str())),
          user_(user),
          title_(request.title),
          filters_(::nameFilters(QString::fromUtf8(request.filters.c_str())))
    {
        setObjectName(QStringLiteral("SaveDialog"));
        // The dialog's own question is not in the words of the program.
        setOptions(DontUseNativeDialog | HideNameFilterDetails | DontConfirmOverwrite);
        setAcceptMode(AcceptSave);
        setFileMode(AnyFile);
        setNameFilters(filters_);
        selectNameFilter(filters_.value(std::clamp(request.filterIndex, 1, static_cast<int>(filters_.size())) - 1));
        const QString own = QString::fromUtf8(request.defaultExtension.c_str());
        setDefaultSuffix(own);
        connect(this, &QFileDialog::filterSelected, this, [this, own](const QString& chosen) {
            const QString suffix = suffixOf(filters_.value(shownFilter(filters_, chosen)));
            setDefaultSuffix(suffix.isEmpty() ? own : suffix); // "all files" are the window's own kind
        });
        if (!request.folder.empty())
            setDirectory(QFile::decodeName(request.folder.c_str()));
        selectFile(QFile::decodeName(request.fileName.c_str()));
        applyDialogWords(*this, SaveRow);
    }

    /// The full path chosen; empty without one.
    QString chosenPath() const { return selectedFiles().value(0); }

    /// 1-based; -1 when none is shown.
    int chosenFilter() const
    {
        const int index = shownFilter(filters_, selectedNameFilter());
        return index < 0 ? index : index + 1;
    }

protected:
    void accept() override
    {
        // The list of completions would take the clicks that are meant for the question.
        if (QWidget* completions = QApplication::activePopupWidget())
            completions->hide();
        if (mayTake(chosenPath()))
            QFileDialog::accept();
    }

private:
    bool mayTake(const QString& path)
    {
        const QFileInfo file(path);
        if (path.isEmpty() || file.isDir())
            return true; // a folder is entered, not taken
        if (!file.dir().exists()) {
            user_.warn(title_, ResText(PathNotFoundRow));
            return false;
        }
        return !file.exists() || user_.confirmOverwrite(QFile::encodeName(path).toStdString());
    }

    UserInterface& user_;
    std::string title_;
    QStringList filters_;
};

} // namespace

SaveDialogAnswer runSaveDialog(const SaveDialogRequest& request, QWidget* parent, UserInterface& user)
{
    SaveDialog dialog(request, parent, user);
    SaveDialogAnswer answer;
    answer.accepted = dialog.exec() == QDialog::Accepted;
    const int chosen = dialog.chosenFilter();
    answer.filterIndex = chosen < 0 ? request.filterIndex : chosen;
    if (answer.accepted)
        answer.path = QFile::encodeName(dialog.chosenPath()).toStdString();
    return answer;
}
