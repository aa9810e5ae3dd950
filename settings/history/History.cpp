#include "settings/history/History.h"

#include "platform/files/DeviceRoot.h"
#include "platform/plist/PropertyList.h"
#include "platform/plist/PropertyListBounds.h"
#include "platform/plist/PropertyListFile.h"
#include "settings/DocumentPath.h"

#include <algorithm>

namespace wardlock {

using platform::Version;
using platform::VersionFolder;

History::History(std::string_view identifier)
    : folder_(platform::FileSystem::current(), platform::pathOnDevice(documentPath(identifier))) {
    keepForeignVersion(identifier);
    if (folder_.state() == VersionFolder::State::Usable)
        folder_.list(versions_);
}

const Version* History::find(std::uint64_t number) const {
    for (std::size_t i = versions_.size(); i-- > 0;)
        if (versions_[i].number == number)
            return &versions_[i];
    return nullptr;
}

const Version* History::previous(const Version& version) const {
    const auto place = std::ranges::find(versions_, version);
    if (place == versions_.end())
        return nullptr;
    for (auto before = place; before != versions_.begin();)
        if (document(*--before))
            return &*before;
    return nullptr;
}

std::optional<platform::Dictionary> History::document(const Version& version) const {
    const auto bytes = folder_.read(version, platform::largestDocument);
    const auto root = bytes ? platform::propertyListWithData(*bytes) : std::nullopt;
    const platform::Dictionary* dictionary = platform::dictionaryValue(root ? &*root : nullptr);
    return dictionary ? std::optional(*dictionary) : std::nullopt;
}

const Version* History::lastReadable() const {
    for (std::size_t i = versions_.size(); i-- > 0;)
        if (document(versions_[i]))
            return &versions_[i];
    return nullptr;
}

std::optional<std::vector<Change>> History::changes(const Version& version) const {
    const Version* before = previous(version);
    const auto older = before ? document(*before) : std::nullopt;
    const auto newer = document(version);
    if (!older || !newer)
        return std::nullopt;
    return version.origin.action == platform::VersionAction::Undo ? differenceOfUndo(*older, *newer)
                                                                  : difference(*older, *newer);
}

void keepForeignVersion(std::string_view identifier) {
    platform::keepVersionOfFile(documentPath(identifier));
}

} // namespace wardlock
