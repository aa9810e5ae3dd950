#include "platform/runtime/Class.h"

#include <algorithm>
#include <mutex>
#include <vector>

namespace platform {

namespace {

/// The tables in use, the latest last. Never destroyed: pages are released late, and name classes then.
struct Tables {
    std::mutex guard;
    std::vector<ClassTable> inUse;
};

Tables& tables() {
    static Tables* const all = new Tables;
    return *all;
}

} // namespace

const Class* objc_getClass(std::string_view name) {
    const std::lock_guard lock(tables().guard);
    const auto& inUse = tables().inUse;
    for (auto table = inUse.rbegin(); table != inUse.rend(); ++table)
        if (const Class* found = classInTable(*table, name))
            return found;
    return nullptr;
}

const Class* classInTable(const ClassTable& table, std::string_view name) {
    const auto* found = std::ranges::find_if(table, [&](const Class* each) { return each->name() == name; });
    return found == table.end() ? nullptr : *found;
}

void registerClasses(ClassTable table) {
    const std::lock_guard lock(tables().guard);
    tables().inUse.push_back(table);
}

void withdrawClasses(ClassTable table) {
    const std::lock_guard lock(tables().guard);
    auto& inUse = tables().inUse;
    const auto latest = std::find_if(inUse.rbegin(), inUse.rend(), [&](const ClassTable& each) {
        return each.begin() == table.begin() && each.size() == table.size();
    });
    if (latest != inUse.rend())
        inUse.erase(std::next(latest).base());
}

} // namespace platform
