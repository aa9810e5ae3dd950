#include "settings/history/Difference.h"

#include "settings/Accounts.h"
#include "settings/Keys.h"

#include <string_view>
#include <utility>

namespace wardlock {

namespace {

using platform::Array;
using platform::Dictionary;
using platform::Value;

std::optional<Value> copyOf(const Value* value) {
    return value ? std::optional<Value>(*value) : std::nullopt;
}

bool differ(const Value* one, const Value* other) {
    return one && other ? !(*one == *other) : one != other;
}

/// Calls `found` for each key whose value differs: those of `before`, then those that are new.
template <class Found>
void forEachDifferentKey(const Dictionary& before, const Dictionary& after, Found found) {
    for (const auto& [key, value] : before)
        if (const Value* now = after.find(key); differ(&value, now))
            found(key, &value, now);
    for (const auto& [key, value] : after)
        if (!before.find(key))
            found(key, nullptr, &value);
}

void addAccountValues(const Accounts& before, std::size_t old, const Accounts& after, std::size_t now,
                      std::vector<Change>& changes) {
    const Dictionary* oldRecord = before.record(old);
    const Dictionary* newRecord = after.record(now);
    // Elements that are not records are the same account only where they are equal.
    if (!oldRecord || !newRecord)
        return;
    forEachDifferentKey(*oldRecord, *newRecord,
                        [&](std::string_view key, const Value* from, const Value* to) {
                            changes.push_back({.kind = Change::Kind::AccountValue,
                                               .key = std::string(key),
                                               .account = before.name(old),
                                               .before = old,
                                               .after = now,
                                               .old = copyOf(from),
                                               .now = copyOf(to)});
                        });
}

using Matches = std::vector<std::optional<std::size_t>>;
using Matching = Matches (*)(const Array& before, const Array& after);

Matches matchAccountsBackwards(const Array& before, const Array& after) {
    Matches matches(before.size());
    const Matches backwards = matchAccounts(after, before);
    for (std::size_t i = 0; i < backwards.size(); ++i)
        if (backwards[i])
            matches[*backwards[i]] = i;
    return matches;
}

void addAccounts(const Array& before, const Array& after, Matching match, std::vector<Change>& changes) {
    const Accounts older(before);
    const Accounts newer(after);
    const Matches matches = match(before, after);
    std::vector<bool> known(after.size());
    for (std::size_t i = 0; i < before.size(); ++i) {
        if (!matches[i]) {
            changes.push_back({.kind = Change::Kind::AccountDeleted,
                               .account = older.name(i),
                               .before = i,
                               .old = before.at(i)});
            continue;
        }
        known[*matches[i]] = true;
        addAccountValues(older, i, newer, *matches[i], changes);
    }
    for (std::size_t i = 0; i < after.size(); ++i)
        if (!known[i])
            changes.push_back({.kind = Change::Kind::AccountAdded,
                               .account = newer.name(i),
                               .after = i,
                               .now = after.at(i)});
}

std::vector<Change> differenceBy(Matching match, const Dictionary& before, const Dictionary& after) {
    std::vector<Change> changes;
    forEachDifferentKey(before, after, [&](std::string_view key, const Value* from, const Value* to) {
        const Array* older = platform::arrayValue(from);
        const Array* newer = platform::arrayValue(to);
        if (key == kAccounts && older && newer)
            addAccounts(*older, *newer, match, changes);
        else
            changes.push_back({.key = std::string(key), .old = copyOf(from), .now = copyOf(to)});
    });
    return changes;
}

} // namespace

std::vector<Change> difference(const Dictionary& before, const Dictionary& after) {
    return differenceBy(&matchAccounts, before, after);
}

std::vector<Change> differenceOfUndo(const Dictionary& before, const Dictionary& after) {
    return differenceBy(&matchAccountsBackwards, before, after);
}

} // namespace wardlock
