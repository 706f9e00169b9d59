// The toolkit's own words in Italian: the system menus of the child windows, the file dialogs, the menus of scroll bars
// and fields. They do not hang on the toolkit's translations being installed.
#pragma once

#include <QTranslator>
#include <span>

/// A text of the toolkit, by which it is looked up, and what stands for it. A "%1" is the place of an argument.
struct ToolkitWord {
    const char* english;
    const char* italian;
};
std::span<const ToolkitWord> toolkitWords();

/// To be installed for a run in Italian; the toolkit speaks English by itself.
class ToolkitWords final : public QTranslator
{
public:
    /// Null for a text without a row: the toolkit then asks the other translators.
    QString translate(const char* context, const char* sourceText, const char* disambiguation = nullptr,
                      int n = -1) const override;
    bool isEmpty() const override { return false; }
};
