// The desk of the random tests: several windows at once, a user who selects rows and copies, cuts and pastes where the
// menu lets them, and a book of every window's bytes, so that a window that should not change is known not to have.
#pragma once

#include "ClipRoom.h"
#include "clipboard/EditItems.h"

#include <algorithm>
#include <functional>
#include <memory>
#include <random>
#include <string>
#include <string_view>
#include <vector>

/// Numbers that are the same in every run: by chance from a seed, or one after the other from bytes that somebody
/// chose.
class Dice
{
public:
    explicit Dice(unsigned seed) : engine_(seed) {}
    explicit Dice(std::string_view bytes) : bytes_(bytes), chosen_(true) {}
    /// 0 to sides - 1; 0 behind the last byte.
    int roll(int sides)
    {
        const unsigned number = !chosen_      ? static_cast<unsigned>(engine_())
                                : sides > 256 ? take() * 256 + take()
                                              : take();
        return static_cast<int>(number % static_cast<unsigned>(sides));
    }
    bool oneIn(int sides) { return roll(sides) == 0; }
    /// No byte is left.
    bool used() const { return chosen_ && bytes_.empty(); }

private:
    unsigned take()
    {
        const unsigned byte = bytes_.empty() ? 0 : static_cast<unsigned char>(bytes_.front());
        bytes_.remove_prefix(bytes_.empty() ? 0 : 1);
        return byte;
    }

    std::mt19937 engine_;
    std::string_view bytes_;
    bool chosen_ = false;
};

/// The slots of a style file, read by hand.
struct SlotsView {
    std::vector<std::string_view> blocks; ///< those that are present
    bool agrees = true;                   ///< table and blocks: lengths add up, nothing behind the first absent slot

    explicit SlotsView(std::string_view file)
    {
        std::size_t offset = 224;
        bool ended = false;
        for (std::size_t i = 0; i < 16; ++i) {
            const auto low = static_cast<unsigned char>(file[24 + 4 * i]);
            const auto high = static_cast<unsigned char>(file[25 + 4 * i]);
            const std::size_t length = low + high * 256U;
            agrees = agrees && !(ended && length > 0);
            ended = ended || length == 0;
            if (!ended && offset + length <= file.size())
                blocks.push_back(file.substr(offset, length));
            offset += length;
        }
        agrees = agrees && offset == file.size();
    }
    int count() const { return static_cast<int>(blocks.size()); }
    bool has(int slot) const { return slot >= 0 && slot < count(); }
    std::string_view block(int slot) const { return has(slot) ? blocks[static_cast<std::size_t>(slot)] : ""; }
    std::string_view name(int slot) const
    {
        std::string_view text = block(slot).substr(0, 16);
        while (!text.empty() && text.back() == ' ')
            text.remove_suffix(1);
        return text;
    }
    /// No style stands there: absent, empty, or without a name.
    bool isFree(int slot) const { return name(slot).empty() || name(slot) == "- empty -"; }
    bool holds(std::string_view wanted) const
    {
        for (int slot = 0; slot < count(); ++slot)
            if (name(slot) == wanted)
                return true;
        return false;
    }
    bool full() const
    {
        for (int slot = 0; slot < 16; ++slot)
            if (isFree(slot))
                return false;
        return true;
    }
};

/// The arrangements of a window and its styles, read by hand.
struct ArrView {
    std::string_view tag;
    SlotsView styles;

    /// A bank holds no styles.
    explicit ArrView(std::string_view bytes)
        : tag(bytes), styles(bytes.size() > 42622 ? bytes.substr(42622) : std::string_view(NoStyles))
    {
    }
    std::string_view record(int row) const { return tag.substr(static_cast<std::size_t>(302 + 164 * row), 164); }
    bool used(int row) const { return record(row)[0] != '\0'; }
    bool user(int row) const { return record(row)[18] == 1; }
    int slot(int row) const { return static_cast<unsigned char>(record(row)[17]); }
    std::string_view styleName(int row) const { return styles.name(slot(row)); }
    int users(int wanted) const
    {
        int count = 0;
        for (int row = 0; row < 64; ++row)
            count += used(row) && user(row) && slot(row) == wanted ? 1 : 0;
        return count;
    }

    static const std::string NoStyles;
};
inline const std::string ArrView::NoStyles = styFile({});

class ModelDesk : public ClipRoom
{
protected:
    /// What the user has done last.
    struct Act {
        DeskWindow* window = nullptr;
        std::string before; ///< the window's buffer
        ListRows rows;      ///< its list, with the selection
        std::string snapshot;
        std::vector<std::string> told;
        bool changes = false; ///< no mere copy
    };

    std::unique_ptr<Dice> dice;
    std::vector<std::unique_ptr<DeskWindow>> windows;
    std::vector<std::string> book;
    Act act;
    std::string story; ///< for a failure

    int copies = 0;
    int cuts = 0;
    int pastes = 0;

    /// New windows, and no story yet.
    virtual void layDesk() = 0;
    /// The rules that a cut, a copy and a paste obey, and those that always hold. What a cut or a paste told is in act.
    virtual void checkCut() = 0;
    virtual void checkCopied() = 0;
    virtual void checkPaste() = 0;
    virtual void checkAlways() = 0;

    /// Sequences of steps, so many of them on one desk; at the end they have been what they claim to be.
    void play(unsigned seed, int sequences, int sequencesPerDesk, const std::function<void()>& step)
    {
        dice = std::make_unique<Dice>(seed);
        for (int sequence = 0; sequence < sequences && !HasFailure(); ++sequence) {
            if (sequence % sequencesPerDesk == 0)
                layDesk();
            story += "\nsequence " + std::to_string(sequence);
            step();
        }
        EXPECT_GT(copies, sequences / 8);
        EXPECT_GT(cuts, sequences / 20);
        EXPECT_GT(pastes, sequences / 8);
    }
    void take()
    {
        DeskWindow& window = anyWindow();
        const int row = selectSomething(window);
        const EditItems items = itemsOf(window, row);
        if (items.cut && dice->oneIn(3)) {
            begin(window, "cut");
            window.cut();
            act.told = boxes();
            checkCut();
            ++cuts;
        } else if (items.copy) {
            begin(window, "copy");
            window.copy();
            checkCopied();
            ++copies;
        } else {
            return;
        }
        checkAlways();
    }
    void put()
    {
        DeskWindow& window = anyWindow();
        const int row = selectSomething(window);
        if (!itemsOf(window, row).paste)
            return;
        begin(window, "paste");
        window.paste();
        act.told = boxes();
        checkPaste();
        ++pastes;
        checkAlways();
    }

    void open(const std::string& tag)
    {
        windows.push_back(std::make_unique<DeskWindow>(tag));
        book.push_back(tag);
    }
    DeskWindow& anyWindow() { return *windows[static_cast<std::size_t>(dice->roll(static_cast<int>(windows.size())))]; }

    void must(bool holds, const char* rule)
    {
        if (!holds)
            ADD_FAILURE() << rule << "\n" << story;
    }

    /// Selects one row, a range, or rows here and there; answers the current row, or -1.
    int selectSomething(DeskWindow& window)
    {
        const int count = static_cast<int>(window.rows.size());
        const int first = dice->roll(count);
        const int kind = dice->roll(4);
        for (int row = 0; row < count; ++row)
            window.rows[static_cast<std::size_t>(row)].selected =
                row == first || (kind == 1 && row > first && row < first + 6) ||
                (kind == 2 && row >= first && row < first + 20 && dice->oneIn(2));
        return first;
    }
    EditItems itemsOf(const DeskWindow& window, int row) const
    {
        return editItems({window.Tag.kind(), window.Tag.readOnly(), row, window.text(row)}, Clipboard.facts());
    }
    virtual void begin(DeskWindow& window, const char* what)
    {
        act = {&window, window.bytes(), window.rows, Clipboard.BufferTagSorg, {}, std::string_view(what) != "copy"};
        story += std::string("\n") + what + " in window of kind " + std::to_string(window.Tag.kind()) + " " +
                 window.Tag.path();
    }
    /// Windows other than the one at work (and one that is linked to it) must be as the book says.
    void checkOthers(const DeskWindow* linked)
    {
        for (std::size_t i = 0; i < windows.size(); ++i)
            if (windows[i].get() != act.window && windows[i].get() != linked)
                must(windows[i]->bytes() == book[i], "no other window changes");
            else
                book[i] = windows[i]->bytes();
    }
    /// The list shows what a window that is opened afresh on these bytes would show.
    void checkList()
    {
        const ListRows shown = act.window->rows;
        act.window->list();
        for (std::size_t row = 0; row < shown.size(); ++row)
            must(shown[row].text == act.window->rows[row].text, "list and records agree");
        act.window->rows = shown;
    }
    /// The copies of rows in the buffer change at every Copy; nothing else does.
    void checkCopy(int base, int size)
    {
        const std::string& after = act.window->bytes();
        const auto from = static_cast<std::size_t>(base);
        const auto to = static_cast<std::size_t>(base + size);
        must(after.size() == act.before.size() &&
                 std::string_view(after).substr(0, from) == act.before.substr(0, from) &&
                 std::string_view(after).substr(to) == std::string_view(act.before).substr(to),
             "a copy changes nothing");
        must(Clipboard.BufferTagSorg == after, "the snapshot is the window's buffer");
    }
    /// Source and destination rows of a paste: the marked rows in order, the rows from the first selected one on, as
    /// long as they are free, and selected where several are.
    template <typename IsFree>
    std::vector<std::pair<int, int>> pairsOf(const std::vector<int>& marked, const std::vector<int>& selected, int rows,
                                             const IsFree& isFree) const
    {
        std::vector<std::pair<int, int>> pairs;
        int to = selected.empty() ? rows : selected.front();
        for (const int from : marked) {
            if (to >= rows || !isFree(to))
                break;
            if (selected.size() > 1 && std::find(selected.begin(), selected.end(), to) == selected.end())
                break;
            pairs.emplace_back(from, to++);
        }
        return pairs;
    }
    static std::vector<int> selectedIn(const ListRows& rows)
    {
        std::vector<int> selected;
        for (std::size_t row = 0; row < rows.size(); ++row)
            if (rows[row].selected)
                selected.push_back(static_cast<int>(row));
        return selected;
    }
    static std::vector<int> markedIn(std::string_view snapshot, int base, int count)
    {
        std::vector<int> marked;
        for (int row = 0; row < count; ++row)
            if (snapshot[static_cast<std::size_t>(base + 21 * row)] == 1)
                marked.push_back(row);
        return marked;
    }
};
