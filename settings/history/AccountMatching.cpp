#include "settings/Accounts.h"
#include "settings/Keys.h"
#include "settings/history/Difference.h"

#include <algorithm>

namespace wardlock {

namespace {

using platform::Array;
using platform::Dictionary;
using Matches = std::vector<std::optional<std::size_t>>;

/// Of a comparison that counts differences. A rename is one change rather than a deletion and an addition,
/// but two renames are not likelier than these.
constexpr unsigned costOfMissing = 10;
constexpr unsigned costOfName = 15;
constexpr unsigned costOfKey = 1;
constexpr unsigned mostCostOfOneName = costOfMissing;
/// More pairs than this are matched by position: a document of that size was not written by a person.
constexpr std::size_t mostPairs = 10'000;

unsigned costOfPair(const platform::Value& one, const platform::Value& other) {
    constexpr unsigned never = 2 * costOfMissing + 1;
    if (one == other)
        return 0;
    const Dictionary* before = platform::dictionaryValue(&one);
    const Dictionary* after = platform::dictionaryValue(&other);
    if (!before || !after)
        return never;
    unsigned cost = 0;
    const auto count = [&](std::string_view key, const platform::Value* a, const platform::Value* b) {
        if (!a || !b || !(*a == *b))
            cost += key == kAccountName ? costOfName : costOfKey;
    };
    for (const auto& [key, value] : *before)
        count(key, &value, after->find(key));
    for (const auto& [key, value] : *after)
        if (!before->find(key))
            count(key, nullptr, &value);
    // An account of the same name is the same one, however much of it changed.
    const platform::Value* name = before->find(kAccountName);
    const bool sameName = name && after->find(kAccountName) && *name == *after->find(kAccountName);
    return std::min(cost, sameName ? mostCostOfOneName : never);
}

/// The cheapest way to make one part of a list from a part of another.
class Alignment {
public:
    Alignment(const Array& before, const Array& after, std::size_t first, std::size_t rows,
              std::size_t columns)
        : before_(before), after_(after), first_(first), rows_(rows), columns_(columns),
          costs_((rows + 1) * (columns + 1)) {
        for (std::size_t row = rows + 1; row-- > 0;)
            for (std::size_t column = columns + 1; column-- > 0;)
                cost(row, column) = cheapest(row, column);
    }

    void addTo(Matches& matches) const {
        std::size_t row = 0;
        std::size_t column = 0;
        while (row < rows_ && column < columns_) {
            if (costs_[index(row, column)] == pair(row, column) + costs_[index(row + 1, column + 1)])
                matches[first_ + row++] = first_ + column++;
            else if (costs_[index(row, column)] == costOfMissing + costs_[index(row + 1, column)])
                ++row;
            else
                ++column;
        }
    }

private:
    std::size_t index(std::size_t row, std::size_t column) const { return row * (columns_ + 1) + column; }
    unsigned& cost(std::size_t row, std::size_t column) { return costs_[index(row, column)]; }
    unsigned pair(std::size_t row, std::size_t column) const {
        return costOfPair(before_.at(first_ + row), after_.at(first_ + column));
    }
    unsigned cheapest(std::size_t row, std::size_t column) {
        if (row == rows_ || column == columns_)
            return costOfMissing * static_cast<unsigned>(rows_ - row + columns_ - column);
        return std::min({pair(row, column) + cost(row + 1, column + 1), costOfMissing + cost(row + 1, column),
                         costOfMissing + cost(row, column + 1)});
    }

    const Array& before_;
    const Array& after_;
    std::size_t first_;
    std::size_t rows_;
    std::size_t columns_;
    std::vector<unsigned> costs_;
};

/// Returns whether the last account was deleted, so that the default ones replaced it. One value of the
/// default account that becomes the default is a change of that value: an account of that name that differed
/// in no more leaves the same document when it is deleted.
bool isDeletionOfTheLast(const Array& before, const Array& after) {
    if (before.size() != 1 || !(after == Accounts::defaults().records()))
        return false;
    if (Accounts(before).name(0) != Accounts(after).name(0))
        return true;
    const Dictionary* record = Accounts(before).record(0);
    if (!record)
        return true;
    std::size_t differing = 0;
    for (const auto& [key, value] : *Accounts(after).record(0)) {
        const platform::Value* old = record->find(key);
        differing += !old || !(*old == value);
    }
    for (const auto& [key, value] : *record)
        differing += !Accounts(after).record(0)->find(key);
    return differing > 1;
}

} // namespace

Matches matchAccounts(const Array& before, const Array& after) {
    Matches matches(before.size());
    if (isDeletionOfTheLast(before, after))
        return matches;
    const std::size_t shorter = std::min(before.size(), after.size());
    std::size_t first = 0;
    while (first < shorter && before.at(first) == after.at(first)) {
        matches[first] = first;
        ++first;
    }
    std::size_t last = 0;
    while (last < shorter - first &&
           before.at(before.size() - 1 - last) == after.at(after.size() - 1 - last)) {
        matches[before.size() - 1 - last] = after.size() - 1 - last;
        ++last;
    }
    const std::size_t rows = before.size() - first - last;
    const std::size_t columns = after.size() - first - last;
    if (rows > 0 && columns > mostPairs / rows) {
        for (std::size_t i = 0; i < std::min(rows, columns); ++i)
            matches[first + i] = first + i;
        return matches;
    }
    Alignment(before, after, first, rows, columns).addTo(matches);
    return matches;
}

} // namespace wardlock
