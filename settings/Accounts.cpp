#include "settings/Accounts.h"

#include "platform/base/Translation.h"
#include "platform/plist/UnsavedChange.h"
#include "settings/Constants.h"
#include "settings/DefaultSettings.h"
#include "settings/Document.h"
#include "settings/DocumentPath.h"
#include "settings/Keys.h"

namespace wardlock {

namespace {

using platform::Array;
using platform::Dictionary;
using platform::MutableArray;
using platform::Value;

/// Returns whether the record at `index` of `list` is at a position of `other` where it was not before. A
/// record that stayed where it was is merely equal; that does not show a move.
bool standsElsewhere(const Array& list, std::size_t index, const Array& other) {
    for (std::size_t i = 0; i < other.size(); ++i)
        if (i != index && other.at(i) == list.at(index) && (i >= list.size() || !(list.at(i) == other.at(i))))
            return true;
    return false;
}

} // namespace

std::optional<Accounts> Accounts::of(const Value* list) {
    const Array* records = platform::arrayValue(list);
    return records ? std::optional<Accounts>(*records) : std::nullopt;
}

Accounts Accounts::defaults() {
    return Accounts(DefaultSettings().find(kAccounts)->array());
}

Accounts Accounts::onDisk() {
    const auto entries = document(BundleIdentifier);
    return of(entries ? entries->find(kAccounts) : nullptr).value_or(Accounts());
}

std::optional<Accounts> Accounts::onDiskIfReadable() {
    bool isUnreadable = false;
    const auto entries = document(BundleIdentifier, isUnreadable);
    if (isUnreadable)
        return std::nullopt;
    return of(entries ? entries->find(kAccounts) : nullptr).value_or(Accounts());
}

const Dictionary* Accounts::record(std::size_t index) const {
    return platform::dictionaryValue(&records_.at(index));
}

std::optional<std::size_t> Accounts::firstEnabled() const {
    for (std::size_t index = 0; index < size(); ++index)
        if (const Dictionary* found = record(index))
            if (platform::boolValue(found->find(kAccountEnabled)))
                return index;
    return std::nullopt;
}

std::string Accounts::name(std::size_t index) const {
    const Dictionary* found = index < size() ? record(index) : nullptr;
    return std::string(platform::stringValue(found ? found->find(kAccountName) : nullptr).value_or(""));
}

std::vector<std::string> Accounts::names() const {
    std::vector<std::string> names;
    for (std::size_t i = 0; i < size(); ++i)
        names.push_back(name(i));
    return names;
}

void Accounts::append(const Dictionary& record) {
    MutableArray changed(records_);
    changed.append(record);
    records_ = changed.copy();
}

bool Accounts::set(std::size_t index, std::string_view key, const Value* value) {
    const Dictionary* old = record(index);
    if (!old)
        return false;
    platform::MutableDictionary account(*old);
    account.set(key, value);
    MutableArray changed(records_);
    changed.replace(index, account.copy());
    records_ = changed.copy();
    return true;
}

void Accounts::remove(std::size_t index) {
    MutableArray changed(records_);
    changed.remove(index);
    *this = changed.empty() ? defaults() : Accounts(changed.copy());
}

AccountFate Accounts::fate(std::size_t index, const Accounts& later) const {
    if (index >= size())
        return AccountFate::Removed;
    if (index < later.size() && records_.at(index) == later.records_.at(index))
        return AccountFate::Same;
    if (standsElsewhere(records_, index, later.records_))
        return AccountFate::Moved;
    if (index >= later.size() || standsElsewhere(later.records_, index, records_))
        return AccountFate::Removed;
    return later.size() < size() && name(index) != later.name(index) ? AccountFate::Removed
                                                                     : AccountFate::Same;
}

platform::Update updateAccounts(std::string_view documentPath, const std::function<bool(Accounts&)>& change) {
    bool found = false;
    platform::Update update = platform::updateFile(documentPath, [&](platform::MutableDictionary& entries) {
        auto accounts = Accounts::of(entries.find(kAccounts));
        found = accounts.has_value();
        if (!found || !change(*accounts))
            return false;
        entries.set(kAccounts, accounts->records());
        return true;
    });
    if (!found && !update.error)
        platform::reportUnsavedChange(platform::translated("Notice", "there is no list of accounts"));
    return update;
}

} // namespace wardlock
