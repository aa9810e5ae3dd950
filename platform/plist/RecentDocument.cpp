#include "platform/plist/RecentDocument.h"

#include "platform/plist/PropertyList.h"

namespace platform {

std::optional<Dictionary> dictionaryWithData(std::string_view bytes) {
    const std::optional<Value> root = propertyListWithData(bytes);
    return root && root->is(Value::Kind::Dictionary) ? std::optional(root->dictionary()) : std::nullopt;
}

RecentDocument& RecentDocument::shared() {
    // Never destroyed: documents may still be read while the process ends.
    static RecentDocument& recent = *new RecentDocument;
    return recent;
}

std::shared_ptr<const RecentDocument::File> RecentDocument::unchanged(FileSystem& files,
                                                                      const std::string& path) {
    std::shared_ptr<const File> last;
    {
        const std::lock_guard lock(mutex_);
        if (!file_ || file_->path != path)
            return nullptr;
        last = file_;
    }
    bool same = false;
    const std::error_code error = uninterrupted([&] { return files.compareFile(path, last->bytes, same); });
    return !error && same ? last : nullptr;
}

void RecentDocument::remember(std::shared_ptr<const File> file) {
    const std::lock_guard lock(mutex_);
    // What was remembered is freed with the parameter, after the lock.
    file_.swap(file);
}

} // namespace platform
