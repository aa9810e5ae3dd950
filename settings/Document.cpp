#include "settings/Document.h"

#include "settings/DocumentPath.h"

namespace wardlock {

std::optional<platform::Dictionary> document(std::string_view identifier) {
    return platform::dictionaryWithContentsOfFile(documentPath(identifier));
}

platform::Update updateDocument(std::string_view identifier,
                                const std::function<bool(platform::MutableDictionary&)>& change) {
    return platform::updateFile(documentPath(identifier), change);
}

} // namespace wardlock
