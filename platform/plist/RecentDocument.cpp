#include "platform/plist/RecentDocument.h"

#include "platform/plist/PropertyList.h"

#include <utility>

namespace platform {

std::optional<Dictionary> dictionaryWithData(std::string_view bytes) {
    const std::optional<Value> root = propertyListWithData(bytes);
    return root && root->is(Value::Kind::Dictionary) ? std::optional(root->dictionary()) : std::nullopt;
}

RecentDocument& RecentDocument::shared() {
    static RecentDocument recent;
    return recent;
}

std::optional<Dictionary> RecentDocument::dictionaryOf(const std::string& path,
                                                       const std::shared_ptr<const std::string>& bytes) {
    if (auto dictionary = known(path, *bytes))
        return dictionary;
    auto dictionary = dictionaryWithData(*bytes);
    if (dictionary)
        remember({path, bytes, *dictionary});
    return dictionary;
}

std::optional<Dictionary> RecentDocument::known(const std::string& path, const std::string& bytes) {
    const std::lock_guard lock(mutex_);
    const bool same = file_.bytes && file_.path == path && *file_.bytes == bytes;
    return same ? std::optional(file_.dictionary) : std::nullopt;
}

void RecentDocument::remember(File file) {
    const std::lock_guard lock(mutex_);
    // What was remembered is freed with the parameter, after the lock.
    std::swap(file_, file);
}

} // namespace platform
