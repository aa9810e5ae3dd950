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

std::optional<RecentDocument::File> RecentDocument::unchanged(FileSystem& files, const std::string& path) {
    File last;
    {
        const std::lock_guard lock(mutex_);
        if (!file_.bytes || file_.path != path)
            return std::nullopt;
        last = file_;
    }
    bool same = false;
    const std::error_code error = uninterrupted([&] { return files.compareFile(path, *last.bytes, same); });
    return !error && same ? std::optional(std::move(last)) : std::nullopt;
}

void RecentDocument::remember(File file) {
    const std::lock_guard lock(mutex_);
    // What was remembered is freed with the parameter, after the lock.
    std::swap(file_, file);
}

} // namespace platform
