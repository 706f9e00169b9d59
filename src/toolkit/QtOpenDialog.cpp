// The open dialog. Its filters show their text alone; the pattern behind it matches any letter case. A name that does
// not exist may be typed: the caller reports it in the program's own words.
#include "toolkit/QtOpenDialog.h"

#include "core/Strings.h"
#include "core/Words.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QFileDialog>
#include <QGridLayout>
#include <QHeaderView>
#include <QScreen>
#include <QTreeView>
#include <algorithm>

namespace
{

constexpr int FileNameRow = 46;
constexpr int OpenRow = 51;
constexpr int ReadOnlyRow = 122;

QString words(int id) { return QString::fromUtf8(ResText(id).c_str()); }

/// The toolkit leaves its two lists without a name.
void nameList(const QFileDialog& dialog, const char* list, int caption)
{
    if (auto* combo = dialog.findChild<QComboBox*>(QLatin1String(list)))
        combo->setAccessibleName(words(caption));
}

QCheckBox* addReadOnlyBox(QFileDialog& dialog, bool checked)
{
    auto* box = new QCheckBox(words(ReadOnlyRow), &dialog);
    box->setObjectName(QStringLiteral("ReadOnly"));
    box->setChecked(checked);
    if (auto* grid = qobject_cast<QGridLayout*>(dialog.layout()))
        grid->addWidget(box, grid->rowCount(), 1);
    return box;
}

/// Sizes and dates are shown whole; a long name gives way.
void makeRoomForColumns(QFileDialog& dialog)
{
    constexpr int MeasuredRows = 50; ///< of a large folder
    constexpr int Characters = 96;   ///< of the dialog's width
    auto* view = dialog.findChild<QTreeView*>(QStringLiteral("treeView"));
    if (!view)
        return;
    QHeaderView* header = view->header();
    header->setStretchLastSection(false);
    header->setResizeContentsPrecision(MeasuredRows);
    header->setSectionResizeMode(QHeaderView::ResizeToContents);
    header->setSectionResizeMode(0, QHeaderView::Stretch);
    const int width = dialog.fontMetrics().averageCharWidth() * Characters;
    dialog.resize(dialog.sizeHint().expandedTo(QSize(width, 0)).boundedTo(dialog.screen()->availableSize()));
}

} // namespace

QStringList nameFilters(const QString& filters)
{
    QStringList result;
    const QStringList parts = filters.split(QLatin1Char('|'));
    for (int part = 0; part + 1 < parts.size(); part += 2) {
        QStringList patterns = parts[part + 1].split(QLatin1Char(';'), Qt::SkipEmptyParts);
        patterns.replaceInStrings(QStringLiteral("*.*"), QStringLiteral("*"));
        patterns.replaceInStrings(QStringLiteral(" "), QString());
        result << parts[part].trimmed() + QLatin1String(" (") + patterns.join(QLatin1Char(' ')) + QLatin1Char(')');
    }
    return result;
}

int shownFilter(const QStringList& filters, const QString& shown)
{
    for (int index = 0; index < filters.size(); ++index)
        if (filters[index].section(QLatin1String(" ("), 0, -2) == shown)
            return index;
    return -1;
}

QString suffixOf(const QString& nameFilter)
{
    const QString pattern = nameFilter.section(QLatin1Char('('), -1).section(QLatin1Char(' '), 0, 0);
    const QString suffix = pattern.section(QLatin1Char('.'), 1).remove(QLatin1Char(')'));
    return suffix.contains(QLatin1Char('*')) ? QString() : suffix;
}

void applyDialogWords(QFileDialog& dialog, int acceptRow)
{
    dialog.setLabelText(QFileDialog::LookIn, words(Words::LookIn));
    dialog.setLabelText(QFileDialog::FileName, words(FileNameRow) + QLatin1Char(':'));
    dialog.setLabelText(QFileDialog::FileType, words(Words::FileType));
    dialog.setLabelText(QFileDialog::Accept, words(acceptRow));
    dialog.setLabelText(QFileDialog::Reject, words(Words::Cancel));
    nameList(dialog, "lookInCombo", Words::LookIn);
    nameList(dialog, "fileTypeCombo", Words::FileType);
    makeRoomForColumns(dialog);
}

OpenDialogAnswer runOpenDialog(const OpenDialogRequest& request, QWidget* parent)
{
    QFileDialog dialog(parent, QString::fromUtf8(request.title.c_str()));
    dialog.setObjectName(QStringLiteral("OpenDialog"));
    dialog.setOptions(QFileDialog::DontUseNativeDialog | QFileDialog::HideNameFilterDetails);
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    dialog.setFileMode(QFileDialog::AnyFile);
    const QStringList filters = nameFilters(QString::fromUtf8(request.filters.c_str()));
    dialog.setNameFilters(filters);
    const int first = std::clamp(request.filterIndex, 1, static_cast<int>(filters.size())) - 1;
    dialog.selectNameFilter(filters.value(first));
    dialog.setDefaultSuffix(suffixOf(filters.value(first)));
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, [&dialog, filters](const QString& chosen) {
        dialog.setDefaultSuffix(suffixOf(filters.value(shownFilter(filters, chosen))));
    });
    if (!request.folder.empty())
        dialog.setDirectory(QFile::decodeName(request.folder.c_str()));
    applyDialogWords(dialog, OpenRow);
    const QCheckBox* readOnly = addReadOnlyBox(dialog, request.readOnly);

    OpenDialogAnswer answer;
    answer.accepted = dialog.exec() == QDialog::Accepted;
    const int chosen = shownFilter(filters, dialog.selectedNameFilter());
    answer.filterIndex = chosen < 0 ? request.filterIndex : chosen + 1;
    answer.readOnly = readOnly->isChecked();
    if (answer.accepted && !dialog.selectedFiles().isEmpty())
        answer.path = QFile::encodeName(dialog.selectedFiles().constFirst()).toStdString();
    return answer;
}
