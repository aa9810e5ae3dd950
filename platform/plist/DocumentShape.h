#pragma once

#include "platform/plist/BinaryKeyRun.h"
#include "platform/values/IntrusivePointer.h"
#include "platform/values/KeySet.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

/// What documents of one kind have in common: the keys of the last dictionary of each depth, and the text in
/// front of each of its values, or its keys' place in the binary form. A process reads the same document
/// again and again. A reader that expects the shape of the last one takes half the time for a short document.
/// What is read does not depend on it.
///
/// Immutable; any thread.
class DocumentShape {
public:
    struct Level {
        /// Null where nothing is known.
        IntrusivePointer<KeySet> keys;
        /// As many as keys; empty where they are not known.
        std::vector<std::string_view> leadIns;
        /// Without references where the keys were not read from the binary form.
        BinaryKeyRun run;
    };

    /// Copies the texts. Only what is worth remembering is kept: the outer levels, and short ones.
    explicit DocumentShape(const std::vector<Level>& levels);
    DocumentShape(const DocumentShape&) = delete;
    DocumentShape& operator=(const DocumentShape&) = delete;

    const std::vector<Level>& levels() const { return levels_; }

    /// Returns the process's latest shape; at first one without levels.
    static std::shared_ptr<const DocumentShape> latest();
    static void remember(std::shared_ptr<const DocumentShape> shape);
    /// The most levels, keys of a level and bytes of its texts that are remembered.
    static constexpr std::size_t mostLevels = 4;
    static constexpr std::size_t mostKeys = 64;
    static constexpr std::size_t mostText = 8192;

private:
    Level copied(const Level& level);

    /// One for each level.
    std::vector<std::string> texts_;
    std::vector<Level> levels_;
};

} // namespace platform
