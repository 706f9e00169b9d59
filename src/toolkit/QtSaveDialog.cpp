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
          nameOf_(request.nameOf),
          filters_(::nameFilters(QString::fromUtf8(request.filters.c_str()))),
          firstFilter_(request.filterIndex)
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

    /// The full path typed or chosen; empty without one.
    QString chosenPath() const { return selectedFiles().value(0); }

    /// The file that the path stands for under the filter; empty for none.
    QString chosenFile() const
    {
        if (!nameOf_)
            return chosenPath();
        return QFile::decodeName(nameOf_(QFile::encodeName(chosenPath()).toStdString(), chosenFilter()).c_str());
    }

    /// 1-based; the one it began with when none is shown.
    int chosenFilter() const
    {
        const int index = shownFilter(filters_, selectedNameFilter());
        return index < 0 ? firstFilter_ : index + 1;
    }

protected:
    void accept() override
    {
        // The list of completions would take the clicks that are meant for the question.
        if (QWidget* completions = QApplication::activePopupWidget())
            completions->hide();
        if (mayTake())
            QFileDialog::accept();
    }

private:
    bool mayTake()
    {
        const QFileInfo path(chosenPath());
        if (path.filePath().isEmpty() || path.isDir())
            return true; // a folder is entered, not taken
        if (!path.dir().exists()) {
            user_.warn(title_, ResText(PathNotFoundRow));
            return false;
        }
        const QString file = chosenFile();
        return !QFileInfo::exists(file) || user_.confirmOverwrite(QFile::encodeName(file).toStdString());
    }

    UserInterface& user_;
    std::string title_;
    std::function<std::string(const std::string&, int)> nameOf_;
    QStringList filters_;
    int firstFilter_;
};

} // namespace

SaveDialogAnswer runSaveDialog(const SaveDialogRequest& request, QWidget* parent, UserInterface& user)
{
    SaveDialog dialog(request, parent, user);
    SaveDialogAnswer answer;
    answer.accepted = dialog.exec() == QDialog::Accepted;
    answer.filterIndex = dialog.chosenFilter();
    if (answer.accepted) {
        const QString file = dialog.chosenFile();
        answer.path = QFile::encodeName(file.isEmpty() ? dialog.chosenPath() : file).toStdString();
    }
    return answer;
}
