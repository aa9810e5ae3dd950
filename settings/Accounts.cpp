#include "settings/Accounts.h"

#include "settings/Constants.h"
#include "settings/Document.h"
#include "settings/Keys.h"

namespace wardlock {

namespace {

using platform::Array;

/// Returns whether the record at `index` of `list` is at a position of `other` where it was not before. A
/// record that stayed where it was is merely equal; that does not show a move.
bool standsElsewhere(const Array& list, std::size_t index, const Array& other) {
    for (std::size_t i = 0; i < other.size(); ++i)
        if (i != index && other.at(i) == list.at(index) && (i >= list.size() || !(list.at(i) == other.at(i))))
            return true;
    return false;
}

} // namespace

Accounts Accounts::onDisk() {
    const auto entries = document(BundleIdentifier);
    const auto* records = entries ? platform::arrayValue(entries->find(kAccounts)) : nullptr;
    return records ? Accounts(*records) : Accounts();
}

std::string Accounts::name(std::size_t index) const {
    const auto* record = index < size() ? platform::dictionaryValue(&records_.at(index)) : nullptr;
    return std::string(platform::stringValue(record ? record->find(kAccountName) : nullptr).value_or(""));
}

std::vector<std::string> Accounts::names() const {
    std::vector<std::string> names;
    for (std::size_t i = 0; i < size(); ++i)
        names.push_back(name(i));
    return names;
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

} // namespace wardlock
