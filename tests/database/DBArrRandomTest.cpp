// A hundred thousand random changes through the program's own routines and files, against a model that knows nothing of
// records: a map from names in capitals to numbers. After each step the file on disk is compared whole with the file
// that the model writes: so its length, the order, the numbers and the map of taken ones hold, and no number of a file
// that stayed has changed.
#include "DBArrRoom.h"

#include "database/DBArrUpdate.h"

#include <algorithm>
#include <map>
#include <optional>
#include <random>

namespace
{

/// Capitals by their code points, as an alphabet tells them.
std::string capitals(const std::string& text)
{
    static const std::map<std::string, std::string> letters = [] {
        std::map<std::string, std::string> all;
        for (char letter = 'a'; letter <= 'z'; ++letter)
            all[std::string(1, letter)] = std::string(1, static_cast<char>(letter - 'a' + 'A'));
        const std::string small = "àáâãäåæçèéêëìíîïðñòóôõöøùúûüýþ", large = "ÀÁÂÃÄÅÆÇÈÉÊËÌÍÎÏÐÑÒÓÔÕÖØÙÚÛÜÝÞ";
        for (std::size_t i = 0; i < small.size(); i += 2)
            all[small.substr(i, 2)] = large.substr(i, 2);
        return all;
    }();
    std::string upper;
    for (std::size_t i = 0; i < text.size();) {
        const std::size_t length = i + 1 < text.size() && text[i] == '\xC3' ? 2 : 1;
        const auto found = letters.find(text.substr(i, length));
        upper += found == letters.end() ? text.substr(i, length) : found->second;
        i += length;
    }
    return upper;
}

std::string cut(std::string name)
{
    name = name.substr(0, 24);
    while (!name.empty() && name.back() == ' ')
        name.pop_back();
    return name;
}

class Model
{
public:
    struct Entry {
        std::string name;
        int id;
    };

    explicit Model(std::string folder) : folder_(std::move(folder)) {}

    int add(const std::string& name)
    {
        const std::string key = capitals(cut(name));
        if (const auto found = entries.find(key); found != entries.end())
            return found->second.id;
        for (int id = 3; id <= 999; ++id)
            if (!taken_[static_cast<std::size_t>(id)]) {
                taken_[static_cast<std::size_t>(id)] = true;
                entries[key] = {cut(name), id};
                return id;
            }
        return 0;
    }
    void remove(const std::string& key)
    {
        taken_[static_cast<std::size_t>(entries.at(key).id)] = false;
        entries.erase(key);
    }
    void removeId(int id)
    {
        for (const auto& [key, entry] : entries)
            if (entry.id == id) {
                remove(key);
                return;
            }
    }
    bool full() const { return entries.size() == 997; }

    std::string file() const
    {
        static const std::string empty = database({}, {});
        std::string bytes = empty;
        std::size_t place = 52;
        for (const auto& [key, entry] : entries) { // in ascending order of the capitals' bytes
            std::string record = entry.name;
            record.resize(24, ' ');
            record += static_cast<char>(entry.id % 256);
            record += static_cast<char>(entry.id / 256);
            bytes.replace(place, 26, record);
            bytes[25974 + static_cast<std::size_t>(entry.id) - 3] = 1;
            place += 26;
        }
        bytes.replace(26971, folder_.size(), folder_);
        return bytes;
    }

    std::map<std::string, Entry> entries; ///< by name in capitals
    /// What stands in the working folder, by file name.
    enum class Kind { Good, Changed, Short, Long, Empty };
    std::map<std::string, Kind> files;

    std::optional<std::string> onDisk(const std::string& name) const
    {
        if (files.contains(name))
            return name;
        std::vector<std::string> alike;
        for (const auto& [file, kind] : files)
            if (capitals(file) == capitals(name))
                alike.push_back(file);
        return alike.size() == 1 ? std::optional(alike[0]) : std::nullopt;
    }

private:
    std::string folder_;
    std::array<bool, 1000> taken_{};
};

class RandomChanges : private MemoryDisk, public DBArrRoom
{
protected:
    RandomChanges() : model(songs.path()) { state.put("TvlDBArr", database({}, songs.path())); }

    int pick(int below) { return static_cast<int>(random() % static_cast<unsigned>(below)); }

    /// Names of 1 to 60 bytes: letters of both cases, accents, blanks, points and signs between the alphabets. Many
    /// agree in their first 24 bytes, and many differ in case alone.
    std::string name()
    {
        static const std::vector<std::string> pieces = {"a", "A", "b", "B", "é", "É", "ø", "Ø",  "ß", "÷",   "×",
                                                        "ÿ", " ", ".", "_", "[", "0", "~", "ab", "Ž", "\xE8"};
        std::string text;
        const int length = 1 + pick(pick(4) == 0 ? 60 : 3);
        const bool longStart = pick(6) == 0;
        if (longStart)
            text = pick(2) == 0 ? "the same song of the ban" : "THE same Song of The Ba";
        while (static_cast<int>(text.size()) < length || text.empty())
            text += pieces[static_cast<std::size_t>(pick(static_cast<int>(pieces.size())))];
        return text.substr(0, 60);
    }

    void putFile(const std::string& file)
    {
        using Kind = Model::Kind;
        static const std::map<Kind, std::string> contents = {{Kind::Good, arrangement()},
                                                             {Kind::Changed, changedArrangement()},
                                                             {Kind::Short, arrangement().substr(0, 700)},
                                                             {Kind::Long, arrangement() + "x"},
                                                             {Kind::Empty, ""}};
        constexpr Kind Kinds[] = {Kind::Good,  Kind::Good, Kind::Good, Kind::Changed,
                                  Kind::Short, Kind::Long, Kind::Empty};
        const Kind kind = Kinds[pick(7)];
        songs.put(file, contents.at(kind));
        model.files[file] = kind;
    }
    void changeFolder()
    {
        constexpr std::size_t MostFiles = 8;
        if (model.files.size() >= MostFiles || (!model.files.empty() && pick(2) == 0)) {
            const auto file = std::next(model.files.begin(), pick(static_cast<int>(model.files.size())));
            std::filesystem::remove(songs.file(file->first));
            model.files.erase(file);
        } else if (pick(2) == 0 && !model.entries.empty()) {
            const auto entry = std::next(model.entries.begin(), pick(static_cast<int>(model.entries.size())));
            putFile((pick(3) == 0 ? entry->first : entry->second.name) + ".arr");
        } else {
            putFile(name() + (pick(4) == 0 ? ".ARR" : ".arr"));
        }
    }

    void add(const std::string& stem)
    {
        const int expected = stem.back() == ' ' ? 0 : model.add(stem); // such a path does not come back from its field
        ASSERT_EQ(DBArrAddFile(songs.file(stem)), DBArrResult::Done);
        ASSERT_EQ(DBArr.DBArrID, expected) << stem;
    }
    void takeOut()
    {
        int id = 1 + pick(1000);
        if (!model.entries.empty() && pick(8) != 0)
            id = std::next(model.entries.begin(), pick(static_cast<int>(model.entries.size())))->second.id;
        model.removeId(id);
        ASSERT_EQ(DBArrDelete(id), DBArrResult::Done);
    }
    void refresh()
    {
        const auto entries = model.entries;
        for (const auto& [key, entry] : entries) {
            const auto file = model.onDisk(entry.name + ".arr");
            const auto kind = file ? model.files.at(*file) : Model::Kind::Empty;
            if (file && kind == Model::Kind::Empty)
                model.files.erase(*file);
            if (kind == Model::Kind::Empty || kind == Model::Kind::Changed)
                model.remove(key);
        }
        ASSERT_EQ(DBArrRefresh(), DBArrResult::Done);
    }
    void addAll()
    {
        std::vector<std::string> names;
        for (const auto& [file, kind] : model.files)
            if (file[0] != '.')
                names.push_back(file);
        std::sort(names.begin(), names.end(), [](const std::string& one, const std::string& other) {
            return std::pair(capitals(one), one) < std::pair(capitals(other), other);
        });
        for (const std::string& file : names) {
            const auto kind = model.files.at(file);
            if (kind == Model::Kind::Empty)
                model.files.erase(file);
            if ((kind == Model::Kind::Good || kind == Model::Kind::Changed) &&
                model.add(file.substr(0, file.size() - 4)) == 0)
                break;
        }
        ASSERT_EQ(DBArrAddAll(), DBArrResult::Done);
    }
    /// The disk as the model knows it.
    void expectModel(int step)
    {
        ASSERT_EQ(onDisk(), model.file()) << "step " << step;
        ASSERT_TRUE(user.warnings.empty()) << "step " << step;
        user.sends.clear();
    }

    std::mt19937 random{20};
    Model model;
};

} // namespace

TEST_F(RandomChanges, aHundredThousandLeaveTheFileThatTheModelWrites)
{
    int done[4] = {};
    for (int step = 0; step < 100'000; ++step) {
        // Every thousand steps the table is thinned out, so that the walks stay short and numbers come back.
        const int what = pick(100);
        if (what < 20)
            changeFolder();
        if (model.entries.size() > 60 || what >= 95) {
            ++done[1];
            takeOut();
        } else if (what < 2) {
            ++done[2];
            refresh();
        } else if (what < 4) {
            ++done[3];
            addAll();
        } else {
            ++done[0];
            // Half of the adds are of files that are listed, in one case or the other.
            std::string stem = name();
            if (!model.entries.empty() && pick(2) == 0) {
                const auto entry = std::next(model.entries.begin(), pick(static_cast<int>(model.entries.size())));
                stem = pick(2) == 0 ? entry->first : entry->second.name;
            }
            if (!stem.empty())
                add(stem);
        }
        expectModel(step);
        if (HasFatalFailure())
            return;
    }
    for (const int count : done)
        EXPECT_GT(count, 1500);
}

TEST_F(RandomChanges, aFullTableStaysFullAndGivesBackWhatIsTakenOut)
{
    int next = 0;
    std::vector<Row> rows;
    for (; next < 990; ++next) {
        const std::string stem = "song" + std::to_string(10000 + next);
        rows.push_back({stem, model.add(stem)});
    }
    state.put("TvlDBArr", database(rows, songs.path()));
    int refused = 0;
    for (int step = 0; step < 600; ++step) {
        if (pick(3) == 0) {
            takeOut();
        } else {
            const std::string stem = pick(2) == 0 ? name() + "!" : "song" + std::to_string(9500 + pick(2000));
            add(stem);
            refused += DBArr.DBArrID == 0;
        }
        expectModel(step);
        if (HasFatalFailure())
            return;
    }
    EXPECT_GT(refused, 20) << "the 998th file was tried";
}
