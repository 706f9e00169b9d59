// Works on the text, not on the language: what the house's formatting makes unambiguous (blanks round operators, one
// statement a line) is enough. A mutant that no longer compiles is counted as such and proves nothing.
#include "Mutants.h"

#include <algorithm>
#include <array>
#include <cctype>

namespace
{

struct Swap {
    const char* kind;
    std::string_view from;
    std::string_view to;
};
constexpr std::array<Swap, 20> Swaps{{{"boundary", " < ", " <= "},
                                      {"boundary", " <= ", " < "},
                                      {"boundary", " > ", " >= "},
                                      {"boundary", " >= ", " > "},
                                      {"relation", " == ", " != "},
                                      {"relation", " != ", " == "},
                                      {"logic", " && ", " || "},
                                      {"logic", " || ", " && "},
                                      {"arithmetic", " + ", " - "},
                                      {"arithmetic", " - ", " + "},
                                      {"arithmetic", " += ", " -= "},
                                      {"arithmetic", " -= ", " += "},
                                      {"arithmetic", " * ", " + "},
                                      {"arithmetic", " / ", " * "},
                                      {"arithmetic", " % ", " / "},
                                      {"bits", " & ", " | "},
                                      {"bits", " | ", " & "},
                                      {"bits", " << ", " >> "},
                                      {"not", " !", " "},
                                      {"not", "(!", "("}}};
constexpr std::array<std::string_view, 12> NoStatement{"return",        "break",     "continue", "using",
                                                       "const ",        "constexpr", "static",   "struct",
                                                       "static_assert", "throw ",    "delete ",  "auto "};

bool startsWith(std::string_view text, std::string_view head) { return text.substr(0, head.size()) == head; }

bool isWord(char character)
{
    return std::isalnum(static_cast<unsigned char>(character)) != 0 || character == '_' || character == '\'';
}

/// The line with the insides of its texts and its comment made blank, so that places agree.
std::string codeOf(std::string_view line)
{
    std::string code(line);
    char quote = 0;
    for (std::size_t place = 0; place < code.size(); ++place) {
        const char now = code[place];
        if (quote == 0 && code.compare(place, 2, "//") == 0) {
            std::fill(code.begin() + static_cast<std::ptrdiff_t>(place), code.end(), ' ');
            break;
        }
        if (quote == 0) {
            const bool separator = now == '\'' && place > 0 && isWord(code[place - 1]);
            if (now == '"' || (now == '\'' && !separator))
                quote = now;
            continue;
        }
        if (now == '\\' && place + 1 < code.size())
            code[place++] = '.';
        else if (now == quote)
            quote = 0;
        if (quote != 0)
            code[place] = '.';
    }
    return code.substr(0, code.find_last_not_of(' ') + 1);
}

std::string replaced(std::string_view line, std::size_t place, std::size_t length, std::string_view by)
{
    std::string text(line);
    return text.replace(place, length, by);
}

void swapOperators(std::string_view line, const std::string& code, std::vector<Mutant>& found)
{
    for (const Swap& swap : Swaps)
        for (std::size_t place = code.find(swap.from); place != std::string::npos;
             place = code.find(swap.from, place + 1)) {
            const std::size_t behind = place + swap.from.size();
            if (std::string_view(swap.kind) == "not" && (behind >= code.size() || code[behind] == '='))
                continue;
            found.push_back({0, swap.kind, replaced(line, place, swap.from.size(), swap.to)});
        }
}

/// Whole decimal numbers, one more and one less.
void moveNumbers(std::string_view line, const std::string& code, std::vector<Mutant>& found)
{
    for (std::size_t place = 0; place < code.size();) {
        if (std::isdigit(static_cast<unsigned char>(code[place])) == 0 ||
            (place > 0 && (isWord(code[place - 1]) || code[place - 1] == '.'))) {
            ++place;
            continue;
        }
        std::size_t end = place;
        const int base = startsWith(std::string_view(code).substr(place), "0x") ? 16 : 10;
        end += base == 16 ? 2 : 0;
        while (end < code.size() && (base == 16 ? std::isxdigit(static_cast<unsigned char>(code[end]))
                                                : std::isdigit(static_cast<unsigned char>(code[end]))) != 0)
            ++end;
        const bool whole = end >= code.size() || (code[end] != '\'' && code[end] != '.');
        if (whole && end - place < 9) {
            const long number = std::stol(code.substr(place, end - place), nullptr, base);
            found.push_back({0, "constant", replaced(line, place, end - place, std::to_string(number + 1))});
            if (number > 0)
                found.push_back({0, "constant", replaced(line, place, end - place, std::to_string(number - 1))});
        }
        place = end + 1;
    }
}

/// The condition of an `if` that stands whole on its line.
void negateCondition(std::string_view line, const std::string& code, std::vector<Mutant>& found)
{
    const std::size_t start = code.find("if (");
    if (start == std::string::npos || code.find(" = ") != std::string::npos)
        return;
    int depth = 0;
    for (std::size_t place = start + 3; place < code.size(); ++place) {
        depth += code[place] == '(' ? 1 : code[place] == ')' ? -1 : 0;
        if (depth != 0)
            continue;
        const std::string condition(line.substr(start + 3, place - start - 2));
        found.push_back({0, "condition", replaced(line, start + 3, condition.size(), "(!" + condition + ")")});
        return;
    }
}

bool endsStatement(std::string_view before)
{
    if (before.empty())
        return true;
    const std::string_view last = before.substr(before.size() - 1);
    return last == ";" || last == "{" || last == "}" || before.find("if (") != std::string_view::npos ||
           before.find("for (") != std::string_view::npos || before.find("else") != std::string_view::npos;
}

/// A call or an assignment that stands whole on its line; a declaration is none.
void forgetStatement(const std::string& code, std::string_view before, std::vector<Mutant>& found)
{
    const std::size_t indent = code.find_first_not_of(' ');
    if (indent == std::string::npos || indent == 0 || code.back() != ';' || !endsStatement(before))
        return;
    const std::string_view statement = std::string_view(code).substr(indent);
    for (const std::string_view word : NoStatement)
        if (startsWith(statement, word))
            return;
    const std::size_t call = statement.find('(');
    const std::size_t assignment = std::min(statement.find(" = "), statement.find("= "));
    const std::size_t head = std::min(call, assignment);
    if (head == std::string_view::npos || statement.substr(0, head).find(' ') < head - (head == assignment ? 3 : 0))
        return;
    if (std::count(statement.begin(), statement.end(), '(') != std::count(statement.begin(), statement.end(), ')'))
        return;
    found.push_back({0, "statement", std::string(indent, ' ') + "{}"});
}

void changeReturn(std::string_view line, const std::string& code, std::vector<Mutant>& found)
{
    const std::size_t start = code.find("return ");
    if (start == std::string::npos || code.back() != ';' || (start > 0 && code[start - 1] != ' '))
        return;
    const std::size_t place = start + 7;
    const std::size_t length = code.find(';', place) - place;
    const std::string value = code.substr(place, length);
    if (value == "true" || value == "false")
        found.push_back({0, "return", replaced(line, place, length, value == "true" ? "false" : "true")});
    else if (value == "MidiResult::Done")
        found.push_back({0, "return", replaced(line, place, length, "1")});
    else if (value != "{}" && value != "std::nullopt" && value != "nullptr" && value != "0" && value.front() != '*')
        found.push_back({0, "return", replaced(line, place, length, "{}")});
}

} // namespace

std::vector<Mutant> mutantsOf(std::string_view line, std::string_view before)
{
    std::vector<Mutant> found;
    const std::string code = codeOf(line);
    const std::string_view trimmed = std::string_view(code).substr(std::min(code.find_first_not_of(' '), code.size()));
    if (trimmed.empty() || trimmed.front() == '#' || startsWith(trimmed, "static_assert") ||
        startsWith(trimmed, "template") || startsWith(trimmed, "namespace"))
        return found;
    swapOperators(line, code, found);
    moveNumbers(line, code, found);
    negateCondition(line, code, found);
    forgetStatement(code, codeOf(before), found);
    changeReturn(line, code, found);
    return found;
}

std::vector<Mutant> mutantsOfFile(const std::vector<std::string>& lines, std::mt19937& random)
{
    std::vector<Mutant> chosen;
    std::string before;
    for (std::size_t index = 0; index < lines.size(); ++index) {
        const std::vector<Mutant> possible = mutantsOf(lines[index], before);
        if (!possible.empty()) {
            chosen.push_back(possible[random() % possible.size()]);
            chosen.back().line = index + 1;
        }
        if (!codeOf(lines[index]).empty())
            before = lines[index];
    }
    return chosen;
}

std::vector<std::size_t> spread(std::size_t all, std::size_t count, std::mt19937& random)
{
    std::vector<std::size_t> places;
    count = std::min(all, count);
    for (std::size_t part = 0; part < count; ++part) {
        const std::size_t from = part * all / count;
        const std::size_t to = (part + 1) * all / count;
        places.push_back(from + random() % (to - from));
    }
    return places;
}
