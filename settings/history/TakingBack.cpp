#include "settings/history/TakingBack.h"

#include "platform/base/Translation.h"
#include "settings/Accounts.h"
#include "settings/Keys.h"
#include "settings/SettingLabels.h"

#include <utility>

namespace wardlock {

namespace {

using platform::Array;
using platform::Dictionary;
using platform::MutableArray;
using platform::MutableDictionary;
using platform::translated;
using platform::Value;
using Positions = std::vector<std::optional<std::size_t>>;

const Array& accountsOf(const Dictionary& document) {
    static const Array none;
    const Array* accounts = platform::arrayValue(document.find(kAccounts));
    return accounts ? *accounts : none;
}

bool equal(const Value* one, const std::optional<Value>& other) {
    return one && other ? *one == *other : !one && !other;
}

bool isEnabled(const Value& account) {
    const Dictionary* record = platform::dictionaryValue(&account);
    return record && platform::boolValue(record->find(kAccountEnabled));
}

/// Returns where the accounts of `after` are `now`.
Positions followAccounts(const Dictionary& after, const std::vector<Dictionary>& since,
                         const Dictionary& now) {
    Positions positions;
    for (std::size_t i = 0; i < accountsOf(after).size(); ++i)
        positions.emplace_back(i);
    const Dictionary* from = &after;
    const auto follow = [&](const Dictionary& to) {
        const Positions matches = matchAccounts(accountsOf(*from), accountsOf(to));
        for (auto& position : positions)
            position = position ? matches[*position] : std::nullopt;
        from = &to;
    };
    for (const Dictionary& document : since)
        follow(document);
    follow(now);
    return positions;
}

void setOrRemove(MutableDictionary& entries, std::string_view key, const std::optional<Value>& value) {
    if (value)
        entries.set(key, *value);
    else
        entries.remove(key);
}

/// One taking back: the document on its way, and where the accounts are in it.
class Work {
public:
    Work(const Dictionary& before, const Dictionary& after, const std::vector<Dictionary>& since,
         const Dictionary& now, LaterChanges later)
        : before_(accountsOf(before)), entries_(now), accounts_(accountsOf(now)), later_(later),
          fromBefore_(matchAccounts(accountsOf(before), accountsOf(after))),
          fromAfter_(followAccounts(after, since, now)) {
        // Positions of `before` become positions of the document on its way.
        for (auto& position : fromBefore_)
            position = position ? fromAfter_[*position] : std::nullopt;
    }

    void takeBack(const std::vector<Change>& changes) {
        for (const Change& change : changes)
            if (change.kind == Change::Kind::TopLevelValue)
                takeBackValue(change);
            else if (change.kind == Change::Kind::AccountValue)
                takeBackAccountValue(change);
        // Accounts return before others go, so that the list is not empty in between.
        for (const Change& change : changes)
            if (change.kind == Change::Kind::AccountDeleted)
                insert(change);
        for (const Change& change : changes)
            if (change.kind == Change::Kind::AccountAdded)
                remove(change);
        if (enabling_)
            disableLaterEnabled();
    }

    TakingBack result() const {
        if (!conflicts_.empty())
            return {std::nullopt, conflicts_};
        MutableDictionary entries = entries_;
        if (accountsChanged_) {
            const Array accounts = accounts_.copy();
            entries.set(kAccounts, accounts.empty() ? Accounts::defaults().records() : accounts);
        }
        return {entries.copy(), {}};
    }

private:
    void takeBackValue(const Change& change) {
        const Value* value = entries_.find(change.key);
        if (equal(value, change.old))
            return;
        if (!equal(value, change.now) && later_ == LaterChanges::Keep)
            return change.key == kPasscode
                       ? addConflict(translated("Undo", "the passcode was changed again"), {})
                       : addConflict(translated("Undo", "%1 was changed again"), {change.key});
        setOrRemove(entries_, change.key, change.old);
    }

    void takeBackAccountValue(const Change& change) {
        const auto position = fromAfter_[change.after];
        const Dictionary* record = position ? platform::dictionaryValue(&accounts_.at(*position)) : nullptr;
        if (!record)
            return addConflict(translated("Undo", "%1 was deleted since"), {change.account});
        const Value* value = record->find(change.key);
        if (equal(value, change.old))
            return;
        if (!equal(value, change.now) && later_ == LaterChanges::Keep)
            return addConflict(translated("Undo", "%1: %2 was changed again"),
                               {change.account, accountLabel(change.key)});
        MutableDictionary changed(*record);
        setOrRemove(changed, change.key, change.old);
        accounts_.replace(*position, changed.copy());
        accountsChanged_ = true;
        enabling_ = enabling_ || (change.key == kAccountEnabled && isEnabled(accounts_.at(*position)));
    }

    /// The account returns behind the one that was before it then.
    void insert(const Change& change) {
        std::size_t position = 0;
        for (std::size_t i = 0; i < change.before; ++i)
            if (fromBefore_[i])
                position = *fromBefore_[i] + 1;
        accounts_.insert(position, *change.old);
        accountsChanged_ = true;
        enabling_ = enabling_ || isEnabled(*change.old);
        for (Positions* positions : {&fromBefore_, &fromAfter_})
            for (auto& other : *positions)
                if (other && *other >= position)
                    ++*other;
        fromBefore_[change.before] = position;
    }

    void remove(const Change& change) {
        const auto position = fromAfter_[change.after];
        if (!position)
            return;
        if (!(accounts_.at(*position) == *change.now) && later_ == LaterChanges::Keep)
            return addConflict(translated("Undo", "%1 was changed since it was added"), {change.account});
        accounts_.remove(*position);
        accountsChanged_ = true;
        const std::size_t removed = *position;
        for (Positions* positions : {&fromBefore_, &fromAfter_})
            for (auto& other : *positions)
                if (other && *other > removed)
                    --*other;
        fromAfter_[change.after].reset();
    }

    /// An account is enabled again, and only one may be: another one that was enabled since is disabled in
    /// the same step, or is a reason against it.
    void disableLaterEnabled() {
        std::vector<bool> before(accounts_.size());
        for (std::size_t i = 0; i < fromBefore_.size(); ++i)
            if (fromBefore_[i] && isEnabled(before_.at(i)))
                before[*fromBefore_[i]] = true;
        for (std::size_t i = 0; i < accounts_.size(); ++i) {
            if (before[i] || !isEnabled(accounts_.at(i)))
                continue;
            const Array one{accounts_.at(i)};
            if (later_ == LaterChanges::Keep) {
                addConflict(translated("Undo", "%1 was enabled since"), {Accounts(one).name(0)});
                continue;
            }
            MutableDictionary disabled(accounts_.at(i).dictionary());
            disabled.set(kAccountEnabled, false);
            accounts_.replace(i, disabled.copy());
        }
    }

    void addConflict(std::string_view happened, std::initializer_list<std::string_view> names) {
        conflicts_.push_back(platform::filledIn(happened, names));
    }

    const Array& before_;
    MutableDictionary entries_;
    MutableArray accounts_;
    LaterChanges later_;
    Positions fromBefore_;
    Positions fromAfter_;
    std::vector<std::string> conflicts_;
    bool accountsChanged_ = false;
    /// Whether an account becomes enabled.
    bool enabling_ = false;
};

} // namespace

TakingBack takeBack(const Dictionary& before, const Dictionary& after, const std::vector<Dictionary>& since,
                    const Dictionary& now, LaterChanges later) {
    if (now == after)
        return {before, {}};
    Work work(before, after, since, now, later);
    work.takeBack(difference(before, after));
    return work.result();
}

} // namespace wardlock
