#include "apps/AppsListController.h"
#include "tests/support/ParameterNames.h"
#include "tests/support/doubles/UnsyncedFileSystem.h"
#include "tests/unit/apps/PickerFixture.h"

#include <algorithm>
#include <cctype>
#include <map>
#include <random>

namespace wardlock::test {
namespace {

using platform::Array;
using platform::Value;

/// A plain model of the picker: a list of what is restricted, and rows that were put in order
/// when the page opened. Written apart from the product, with the plainest means.
class PlainModel {
public:
    std::map<std::string, std::string> names;
    Identifiers stored;
    /// What the open page contains; it is not read again until the page opens again.
    Identifiers kept;
    Identifiers rows;

    void open() {
        kept = stored;
        Identifiers top = kept;
        Identifiers others;
        for (const auto& [identifier, name] : names) {
            if (std::count(kept.begin(), kept.end(), identifier) == 0)
                others.push_back(identifier);
        }
        order(top);
        order(others);
        rows = top;
        rows.insert(rows.end(), others.begin(), others.end());
    }
    bool isOn(std::size_t row) const { return std::count(kept.begin(), kept.end(), rows[row]) > 0; }
    void tap(std::size_t row) {
        if (isOn(row))
            kept.erase(std::remove(kept.begin(), kept.end(), rows[row]), kept.end());
        else
            kept.push_back(rows[row]);
        stored = kept;
    }

private:
    void order(Identifiers& list) const {
        std::stable_sort(list.begin(), list.end(),
                         [this](const std::string& a, const std::string& b) { return key(a) < key(b); });
    }
    std::pair<bool, std::string> key(const std::string& identifier) const {
        const auto found = names.find(identifier);
        if (found == names.end())
            return {true, ""};
        std::string lower = found->second;
        for (char& c : lower)
            c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
        return {false, lower};
    }
};

class AppsListSequences : public PickerFixture {
protected:
    AppsListSequences() { platform::FileSystem::setCurrent(&files); }
    ~AppsListSequences() override { platform::FileSystem::setCurrent(nullptr); }

    /// From the same beginning each time; everything after it follows from the seed.
    void begin(unsigned seed) {
        random.seed(seed);
        model = PlainModel();
        platform::MutableDictionary installed;
        for (const char* name : {"alpha", "Bravo", "CHARLIE", "delta", "Echo", "foxtrot", "Golf", "hotel"}) {
            const std::string identifier = "org." + std::to_string(installed.size());
            model.names[identifier] = name;
            installed.set(identifier, Value(name));
        }
        install(installed.copy());
        model.stored = {"org.3", "gone.1", "org.1", "org.1"};
        writeModel();
        page = std::make_shared<AppsListController>();
        show();
    }

    static Array arrayOf(const Identifiers& identifiers) {
        platform::MutableArray array;
        for (const std::string& identifier : identifiers)
            array.append(Value(identifier));
        return array.copy();
    }
    void writeModel() {
        writeAccounts({Value(accountNamed("First")), Value(accountWith(arrayOf(model.stored)))});
        SelectedIndex = 1;
    }
    void show() {
        page->viewWillAppear(false);
        model.open();
    }
    void step() {
        auto& view = dynamic_cast<AppsListView&>(*page->view());
        switch (random() % 10) {
        case 0:
            show();
            break;
        case 1:
            std::shuffle(model.stored.begin(), model.stored.end(), random);
            model.stored.push_back(random() % 2 ? "gone.2" : "org.5");
            writeModel();
            break;
        case 2:
            page = std::make_shared<AppsListController>();
            show();
            break;
        default: {
            const std::size_t row = random() % model.rows.size();
            auto shown = cell(view, row);
            switchOf(*shown).toggle();
            view.tableView()->giveBack(std::move(shown));
            model.tap(row);
        }
        }
    }
    void compare() {
        auto& view = dynamic_cast<AppsListView&>(*page->view());
        ASSERT_EQ(restricted(1), arrayOf(model.stored));
        ASSERT_EQ(account(0), accountNamed("First"));
        ASSERT_EQ(rows(view), model.rows);
        for (std::size_t row = 0; row < model.rows.size(); ++row) {
            auto shown = cell(view, row);
            ASSERT_EQ(switchOf(*shown).isOn(), model.isOn(row)) << "row " << row;
            ASSERT_EQ(shown->detailTextLabel().text(), model.rows[row]);
            view.tableView()->giveBack(std::move(shown));
        }
    }

    UnsyncedFileSystem files{platform::FileSystem::current()};
    std::mt19937 random;
    PlainModel model;
    std::shared_ptr<AppsListController> page;
};

/// The parameter: the first of the seeds. A process each, so that a slow machine has several minutes for all.
class SeededAppsListSequence : public AppsListSequences, public ::testing::WithParamInterface<unsigned> {};

constexpr unsigned sequences = 25;

TEST_P(SeededAppsListSequence, LeavesDocumentAndScreenAsAPlainModelDoes) {
    constexpr int steps = 40;
    for (unsigned seed = GetParam(); seed < GetParam() + sequences; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        begin(seed);
        ASSERT_NO_FATAL_FAILURE(compare());
        for (int i = 0; i < steps; ++i) {
            SCOPED_TRACE("step " + std::to_string(i));
            step();
            ASSERT_NO_FATAL_FAILURE(compare());
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, SeededAppsListSequence, ::testing::Range(0U, 8 * sequences, sequences),
                         seedName);

} // namespace
} // namespace wardlock::test
