// Every word on the screen, in both languages: each stands in a table of words, or is stated here as fixed. And none of
// them is cut off in a window of its default size.
#include "EveryDialog.h"
#include "FixedTexts.h"
#include "TextFit.h"

#include "core/NameTables.h"
#include "core/StringTable.h"
#include "shell/frmSplash.h"
#include "toolkit/QtToolkitWords.h"

#include <QCheckBox>
#include <QFileDialog>
#include <QGroupBox>
#include <QHeaderView>
#include <QRegularExpression>
#include <QTabBar>
#include <QTabWidget>
#include <gtest/gtest-spi.h>

namespace
{

/// What the tables say in a language.
struct Vocabulary {
    std::set<QString> whole;
    std::vector<QRegularExpression> gapped; ///< texts with the places of arguments

    explicit Vocabulary(int language)
    {
        for (const auto table : {stringTable(), supplementTable()})
            for (const StringRow& row : table)
                add(QString::fromUtf8(language == 2 ? row.english : row.italian), QLatin1String("_"));
        for (const ToolkitWord& word : toolkitWords()) {
            const QString text = QString::fromUtf8(language == 2 ? word.english : word.italian);
            add(text.endsWith(QLatin1Char(' ')) ? text + QLatin1String("%1") : text, QLatin1String("%1"));
        }
    }
    void add(const QString& text, const QString& gap)
    {
        for (const QString& line : bare(text).split(QLatin1Char('\n'))) {
            whole.insert(line);
            const QString pattern = QRegularExpression::escape(line).replace(QRegularExpression::escape(gap), ".+");
            if (line.contains(gap) && line.size() > gap.size())
                gapped.emplace_back(QRegularExpression::anchoredPattern(pattern));
        }
    }
    bool has(const QString& text) const
    {
        return whole.contains(text) ||
               std::any_of(gapped.begin(), gapped.end(), [&](const auto& one) { return one.match(text).hasMatch(); });
    }
};

struct Shown {
    QString where; ///< window, control and property
    QString text;
};

class EveryWord : public EveryDialog
{
protected:
    // Collect.
    void add(const QObject* of, const char* property, const QString& text)
    {
        QString where;
        for (const QObject* one = of; one; one = one->parent())
            if (!one->objectName().isEmpty() && !one->objectName().startsWith(QLatin1String("qt_")))
                where = one->objectName() + (where.isEmpty() ? QString() : QLatin1Char('/') + where);
        for (const QString& line : text.split(QLatin1Char('\n')))
            if (!bare(line).isEmpty())
                found.push_back({where + QLatin1Char(' ') + QLatin1String(property), line});
    }
    void addLists(const QWidget* one)
    {
        if (const auto* bar = dynamic_cast<const QTabBar*>(one))
            for (int tab = 0; tab < bar->count(); ++tab)
                add(one, "tab", bar->tabText(tab) + QLatin1Char('\n') + bar->tabToolTip(tab));
        if (const auto* combo = dynamic_cast<const QComboBox*>(one))
            for (int row = 0; row < combo->count(); ++row)
                add(one, "choice", combo->itemText(row));
        if (const auto* list = dynamic_cast<const QListWidget*>(one))
            for (int row = 0; row < list->count(); ++row)
                add(one, "row", list->item(row)->text() + QLatin1Char('\n') + list->item(row)->toolTip());
        if (const auto* header = dynamic_cast<const QHeaderView*>(one); header && header->model())
            for (int section = 0; section < header->count(); ++section)
                add(one, "header", header->model()->headerData(section, header->orientation()).toString());
    }
    void addWidget(const QWidget* one)
    {
        add(one, "title", one->windowTitle());
        add(one, "tip", one->toolTip());
        add(one, "status tip", one->statusTip());
        add(one, "what is this", one->whatsThis());
        add(one, "accessible", one->accessibleName());
        add(one, "description", one->accessibleDescription());
        if (const auto* label = dynamic_cast<const QLabel*>(one))
            add(one, "label", label->text());
        if (const auto* button = dynamic_cast<const QAbstractButton*>(one))
            add(one, "button", button->text());
        if (const auto* group = dynamic_cast<const QGroupBox*>(one))
            add(one, "group", group->title());
        if (const auto* field = dynamic_cast<const QLineEdit*>(one))
            add(one, "placeholder", field->placeholderText());
        addLists(one);
    }
    void collect(const QWidget* top)
    {
        addWidget(top);
        for (const QWidget* one : top->findChildren<QWidget*>())
            addWidget(one);
        for (const QAction* one : top->findChildren<QAction*>())
            add(one, "action", one->text() + QLatin1Char('\n') + one->toolTip() + QLatin1Char('\n') + one->statusTip());
    }

    // Judge.
    bool fixed(const QString& text) const
    {
        static const QStringList texts = bareAll(QString::fromUtf8(FixedTexts).split(QLatin1Char(';')));
        if (texts.contains(text) || text.contains(QString::fromStdString(songs.path())))
            return true;
        const auto matches = [&text](const char* rule) {
            return QRegularExpression(QRegularExpression::anchoredPattern(QLatin1String(rule))).match(text).hasMatch();
        };
        return std::any_of(std::begin(FixedRules), std::end(FixedRules), matches);
    }
    static QStringList bareAll(QStringList texts)
    {
        for (QString& one : texts)
            one = bare(one);
        return texts;
    }
    static bool composed(const QString& text)
    {
        for (const char* one : Composed) {
            QString whole = QLatin1String(one);
            static const QRegularExpression row(QStringLiteral("\\{(\\d+)\\}"));
            for (auto at = row.match(whole); at.hasMatch(); at = row.match(whole))
                whole.replace(at.captured(0),
                              bare(QString::fromStdString(ResTextIn(GetParam(), at.captured(1).toInt()))));
            if (whole == text)
                return true;
        }
        return false;
    }
    /// A row of a list of the instrument's memory: its code, a mark, and a name of the tables or of the walk's files.
    static bool memoryRow(const QString& text)
    {
        static std::set<QString> names = {"", "First", "Last", "Style 0", "Style 1", "Style 2", "Style 3", "- empty -"};
        if (names.size() == 8) {
            for (int number = 0; number < 5 * 64; ++number)
                names.insert(QString::fromLatin1(programName(number / 64, number % 64).c_str()));
            for (int number = 0; number < 128; ++number)
                names.insert(QString::fromLatin1(factoryStyleName(number).c_str()));
            for (int number = 0; number < 16; ++number)
                names.insert(QString::fromLatin1(drumKitName(number).c_str()));
        }
        static const QRegularExpression row(QStringLiteral("^[1-8][1-8][ +]{0,2}(.*)$"));
        const auto match = row.match(text);
        return match.hasMatch() && (names.contains(match.captured(1).trimmed()) ||
                                    match.captured(1).contains(QRegularExpression(QStringLiteral("^\\x11+$"))));
    }
    void judge()
    {
        const Vocabulary own(GetParam());
        const Vocabulary other(3 - GetParam());
        std::set<QString> told;
        for (const Shown& one : found) {
            const QString text = bare(one.text);
            const bool named = std::any_of(std::begin(PanelNames), std::end(PanelNames), [&](const auto& name) {
                return one.where.contains(QLatin1String(name.first)) && text == QLatin1String(name.second);
            });
            const bool foreign = other.whole.contains(text) && !own.has(text) && !named;
            const bool known = own.has(text) || fixed(text) || composed(text) ||
                               (one.where.endsWith(QLatin1String("List1 row")) && memoryRow(one.text));
            if ((foreign || !known) && told.insert(one.where + text).second)
                ADD_FAILURE() << (foreign ? "of the other language: " : "in no table: ") << one.where.toStdString()
                              << " \"" << one.text.toStdString() << "\"";
        }
        found.clear();
    }

    // Cut off.
    /// Where the text stands in the control's frame: a label that is wider than its text stands over an edge unharmed.
    static QRect textPlace(const QWidget* one, QSize needs)
    {
        const auto* label = dynamic_cast<const QLabel*>(one);
        if (!label || label->wordWrap())
            return one->geometry();
        return QStyle::alignedRect(Qt::LeftToRight, label->alignment(), needs, label->geometry());
    }
    /// Windows that scroll by design at their default size.
    static bool scrolls(const QWidget* top)
    {
        static const std::set<QString> names = {QStringLiteral("frmEditArr"), QStringLiteral("frmStyUN")};
        return names.contains(top->objectName());
    }
    void measureTabs(const QTabBar* bar)
    {
        for (int tab = 0; tab < bar->count(); ++tab)
            EXPECT_GE(bar->tabRect(tab).width(), textWidth(bar, bar->tabText(tab)) + 8)
                << bar->window()->objectName().toStdString() << " tab " << bar->tabText(tab).toStdString();
        if (bar->count() > 0) {
            EXPECT_LE(bar->tabRect(bar->count() - 1).right(), bar->width()) << bar->tabText(0).toStdString();
        }
    }
    void measure(const QWidget* top)
    {
        for (const QWidget* one : top->findChildren<QWidget*>()) {
            if (!one->isVisible())
                continue;
            if (const auto* bar = dynamic_cast<const QTabBar*>(one))
                measureTabs(bar);
            const QSize needs = wantedByText(one);
            if (needs.isEmpty() && needs.height() <= 0 && needs.width() <= 0)
                continue;
            ++measured;
            QString text = one->property("text").toString() + one->property("title").toString();
            const std::string name = (top->objectName() + QLatin1Char('/') + one->objectName() + QStringLiteral(" \"") +
                                      text + QLatin1Char('"'))
                                         .toStdString();
            EXPECT_GE(one->width(), needs.width()) << name;
            EXPECT_GE(one->height(), needs.height()) << name;
            const QRect place = textPlace(one, needs);
            EXPECT_TRUE(one->parentWidget()->rect().contains(place)) << name << " stands outside its frame";
            const QRect inTop(one->parentWidget()->mapTo(top, place.topLeft()), place.size());
            EXPECT_TRUE(scrolls(top) || top->rect().contains(inTop)) << name << " must be scrolled to";
        }
    }
    /// Every page of every tab control in turn.
    void measureAllPages(QWidget* top)
    {
        QApplication::processEvents();
        measure(top);
        for (auto* pages : top->findChildren<QTabWidget*>())
            for (int page = 1; page < pages->count(); ++page) {
                pages->setCurrentIndex(page);
                QApplication::processEvents();
                measure(pages->currentWidget());
            }
    }

    std::vector<Shown> found;
    int measured = 0;
};

} // namespace

TEST_P(EveryWord, ofEveryWindowAndMenuStandsInTheTables)
{
    openEverything();
    collect(window.get());
    EXPECT_GT(found.size(), 3000U);
    judge();
}

TEST_P(EveryWord, ofTheSmallWindowsAndDialogsStandsInTheTables)
{
    everyDialog([this](QWidget* top) {
        collect(top);
        if (!dynamic_cast<QFileDialog*>(top))
            measureAllPages(top);
        judge();
    });
    frmSplash splash;
    collect(&splash);
    judge();
}

TEST_P(EveryWord, fitsIntoItsWindowOfTheDefaultSize)
{
    openEverything();
    for (QMdiSubWindow* one : window->area()->subWindowList())
        measureAllPages(one);
    EXPECT_GT(measured, 300);
}

TEST_P(EveryWord, isMissedByTheWalkInNoWay)
{
    const bool italian = GetParam() == 1;
    const auto seen = [this](const char* text) {
        found = {{QStringLiteral("window label"), QString::fromUtf8(text)}};
        judge();
    };
    EXPECT_NONFATAL_FAILURE(seen(italian ? "&Window" : "Fi&nestra"), "of the other language: window label");
    EXPECT_NONFATAL_FAILURE(seen("Brand new words"), "in no table: window label");
    EXPECT_NONFATAL_FAILURE(seen(italian ? "Restore" : "Ripristina"), "of the other language: window label");

    QWidget top;
    top.resize(600, 200);
    auto* label = new QLabel(QStringLiteral("Arrangement"), &top);
    label->setGeometry(10, 10, 20, 60);
    top.show();
    EXPECT_NONFATAL_FAILURE(measure(&top), "Arrangement");
    label->setGeometry(10, 10, 300, 4);
    EXPECT_NONFATAL_FAILURE(measure(&top), "Arrangement");
    label->setGeometry(10, 10, 300, 60);
    measure(&top);
    EXPECT_EQ(measured, 3);
}

INSTANTIATE_TEST_SUITE_P(InBothLanguages, EveryWord, testing::Values(1, 2),
                         [](const auto& run) { return run.param == 1 ? "Italian" : "English"; });
