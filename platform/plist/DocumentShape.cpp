#include "platform/plist/DocumentShape.h"

#include <algorithm>
#include <mutex>
#include <utility>

namespace platform {

namespace {

struct Memory {
    std::mutex mutex;
    std::shared_ptr<const DocumentShape> latest =
        std::make_shared<DocumentShape>(std::vector<DocumentShape::Level>());
};

Memory& memory() {
    // Never destroyed: documents may still be read while the process ends.
    static Memory& only = *new Memory;
    return only;
}

bool isShort(const DocumentShape::Level& level) {
    std::size_t text = level.run.objects.size();
    for (const std::string_view leadIn : level.leadIns)
        text += leadIn.size();
    return level.keys && level.keys->size() <= DocumentShape::mostKeys && text <= DocumentShape::mostText;
}

} // namespace

DocumentShape::DocumentShape(const std::vector<Level>& levels) {
    const std::size_t count = std::min(levels.size(), mostLevels);
    texts_.reserve(count);
    levels_.reserve(count);
    for (std::size_t i = 0; i < count; ++i)
        levels_.push_back(isShort(levels[i]) ? copied(levels[i]) : Level());
}

DocumentShape::Level DocumentShape::copied(const Level& level) {
    std::string& text = texts_.emplace_back();
    for (const std::string_view leadIn : level.leadIns)
        text += leadIn;
    Level copy{level.keys, {}, level.run};
    copy.leadIns.resize(level.keys->size());
    std::size_t at = 0;
    for (std::size_t i = 0; i < std::min(copy.leadIns.size(), level.leadIns.size()); ++i) {
        copy.leadIns[i] = std::string_view(text).substr(at, level.leadIns[i].size());
        at += level.leadIns[i].size();
    }
    return copy;
}

std::shared_ptr<const DocumentShape> DocumentShape::latest() {
    const std::lock_guard lock(memory().mutex);
    return memory().latest;
}

void DocumentShape::remember(std::shared_ptr<const DocumentShape> shape) {
    const std::lock_guard lock(memory().mutex);
    // The old shape is freed with the parameter, after the lock.
    memory().latest.swap(shape);
}

} // namespace platform
