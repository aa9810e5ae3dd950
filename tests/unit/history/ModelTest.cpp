// Random changes, taken back and made again at random, against models that know nothing of versions: a stack
// of documents, and accounts that have numbers of their own.

#include "platform/plist/PropertyList.h"
#include "tests/support/ParameterNames.h"
#include "tests/unit/history/HistoryFixture.h"

#include <map>
#include <random>

namespace wardlock::test {
namespace {

using platform::Array;
using platform::Dictionary;
using platform::MutableArray;
using platform::MutableDictionary;
using platform::Value;

/// Draws changes of a document.
class Changes {
public:
    explicit Changes(unsigned seed) : random_(seed) {}

    std::size_t below(std::size_t bound) {
        return std::uniform_int_distribution<std::size_t>(0, bound - 1)(random_);
    }
    Dictionary changed(const Dictionary& document) {
        MutableDictionary entries(document);
        MutableArray accounts(document.find(kAccounts)->array());
        switch (below(8)) {
        case 0:
            entries.set(kPasscode, std::to_string(1000 + below(9000)));
            break;
        case 1:
            entries.set(kEnabled, !entries.find(kEnabled)->boolean());
            break;
        case 2:
            entries.set("kOther" + std::to_string(below(3)), static_cast<std::int64_t>(below(1000)));
            break;
        case 3:
            accounts.append(numbered(account("account " + std::to_string(next_))));
            break;
        case 4:
            if (accounts.size() > 1) {
                accounts.remove(below(accounts.size()));
                break;
            }
            [[fallthrough]];
        default:
            const std::size_t index = below(accounts.size());
            accounts.replace(index, changedAccount(accounts.at(index).dictionary()));
        }
        entries.set(kAccounts, accounts.copy());
        return entries.copy();
    }
    /// The identity that the product does not have.
    Dictionary numbered(const Dictionary& record) {
        MutableDictionary entries(record);
        entries.set("kNumber", next_++);
        return entries.copy();
    }

private:
    Dictionary changedAccount(const Dictionary& record) {
        static const std::vector<std::string_view> switches = {kAccountEnabled, kRestrictSiri,
                                                               kRestrictCamera, kHideApps, kRestrictVolume};
        MutableDictionary entries(record);
        if (below(6) == 0) {
            entries.set(kAppsRestricted, Array{std::to_string(below(100))});
        } else {
            const std::string_view key = switches[below(switches.size())];
            entries.set(key, !platform::boolValue(entries.find(key)));
        }
        return entries.copy();
    }

    std::mt19937 random_;
    std::int64_t next_ = 1;
};

class UndoModel : public HistoryFixture, public ::testing::WithParamInterface<unsigned> {};

TEST_P(UndoModel, HasTheBytesOfAStackOfDocuments) {
    Changes changes(GetParam());
    writeDocument(Dictionary{{kEnabled, true},
                             {kPasscode, ""},
                             {kAccounts, Array{changes.numbered(account("Tom"))}},
                             {"kForeign", 1.5}});
    std::vector<std::string> undone;
    std::vector<std::string> done = {readFile(documentPath)};
    for (int step = 0; step < 150; ++step) {
        SCOPED_TRACE("step " + std::to_string(step));
        const std::size_t choice = changes.below(10);
        if (choice < 5) {
            change([&](MutableDictionary& entries) {
                entries = MutableDictionary(changes.changed(entries.copy()));
            });
            const std::string bytes = readFile(documentPath);
            if (bytes == done.back())
                continue;
            done.push_back(bytes);
            undone.clear();
        } else if (choice < 8) {
            const bool possible = done.size() > 1;
            ASSERT_EQ(undo(Whose::Anyones).outcome,
                      possible ? UndoResult::Outcome::Done : UndoResult::Outcome::Nothing);
            if (possible) {
                undone.push_back(done.back());
                done.pop_back();
            }
        } else {
            const bool possible = !undone.empty();
            ASSERT_EQ(redo(Whose::Anyones).outcome,
                      possible ? UndoResult::Outcome::Done : UndoResult::Outcome::Nothing);
            if (possible) {
                done.push_back(undone.back());
                undone.pop_back();
            }
        }
        ASSERT_EQ(readFile(documentPath), done.back());
    }
}
INSTANTIATE_TEST_SUITE_P(Seeds, UndoModel, ::testing::Range(1U, 9U), seedName);

/// The accounts of a document by their numbers, and the numbers in their order.
struct NumberedAccounts {
    explicit NumberedAccounts(const Dictionary& document) {
        for (const Value& record : document.find(kAccounts)->array()) {
            const Value* number = record.dictionary().find("kNumber");
            const std::int64_t key = number ? number->integer() : 0;
            order.push_back(key);
            records[key] = record.dictionary();
        }
    }

    std::vector<std::int64_t> order;
    std::map<std::int64_t, Dictionary> records;
};

class TakingBackModel : public ::testing::TestWithParam<unsigned> {
protected:
    /// One key at a time: it has the value that the rule gives it.
    static void expectKeys(const Dictionary& before, const Dictionary& after, const Dictionary& now,
                           const Dictionary& taken) {
        MutableDictionary keys;
        for (const Dictionary* document : {&before, &after, &now, &taken})
            for (const auto& [key, value] : *document)
                keys.set(key, Value(true));
        for (const auto& [key, value] : keys) {
            if (key == kAccounts)
                continue;
            const auto get = [&key = key](const Dictionary& document) {
                const Value* found = document.find(key);
                return found ? std::optional<Value>(*found) : std::nullopt;
            };
            const bool touched = get(before) != get(after);
            EXPECT_EQ(get(taken), touched ? get(before) : get(now)) << key;
        }
    }
    static void expectAccounts(const Dictionary& before, const Dictionary& after, const Dictionary& now,
                               const Dictionary& taken) {
        const NumberedAccounts older(before);
        const NumberedAccounts newer(after);
        const NumberedAccounts current(now);
        const NumberedAccounts result(taken);
        for (const auto& [number, record] : result.records) {
            // The default account, where the list would be empty.
            if (number == 0)
                continue;
            const bool deleted = older.records.contains(number) && !newer.records.contains(number);
            if (current.records.contains(number) && older.records.contains(number) &&
                newer.records.contains(number))
                expectKeys(older.records.at(number), newer.records.at(number), current.records.at(number),
                           record);
            else
                EXPECT_EQ(record, deleted ? older.records.at(number) : current.records.at(number));
        }
        // Those that stay are in the order that they have now.
        std::vector<std::int64_t> expected;
        for (const std::int64_t number : current.order)
            if (older.records.contains(number) || !newer.records.contains(number))
                expected.push_back(number);
        std::vector<std::int64_t> found;
        for (const std::int64_t number : result.order)
            if (current.records.contains(number))
                found.push_back(number);
        EXPECT_EQ(found, expected);
        for (const std::int64_t number : older.order) {
            EXPECT_TRUE(newer.records.contains(number) || result.records.contains(number)) << number;
        }
    }
};

TEST_P(TakingBackModel, TakesAnyChangeBackAndLeavesEverythingElse) {
    Changes changes(GetParam());
    std::vector<Dictionary> documents = {
        {{kEnabled, true}, {kPasscode, ""}, {kAccounts, Array{changes.numbered(account("Tom"))}}}};
    for (int step = 0; step < 40; ++step)
        documents.push_back(changes.changed(documents.back()));
    const Dictionary& now = documents.back();
    std::size_t taken = 0;
    for (std::size_t i = 1; i < documents.size(); ++i) {
        SCOPED_TRACE("change " + std::to_string(i));
        const Dictionary& before = documents[i - 1];
        const Dictionary& after = documents[i];
        const TakingBack result =
            takeBack(before, after, {documents.begin() + static_cast<std::ptrdiff_t>(i) + 1, documents.end()},
                     now, LaterChanges::Keep);
        if (!result.document)
            continue;
        ++taken;
        if (i + 1 == documents.size()) {
            EXPECT_EQ(platform::dataWithPropertyList(*result.document),
                      platform::dataWithPropertyList(before));
        }
        expectKeys(before, after, now, *result.document);
        expectAccounts(before, after, now, *result.document);
    }
    EXPECT_GT(taken, 3u);
}
INSTANTIATE_TEST_SUITE_P(Seeds, TakingBackModel, ::testing::Range(1U, 33U), seedName);

} // namespace
} // namespace wardlock::test
