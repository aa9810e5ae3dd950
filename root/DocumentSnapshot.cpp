#include "root/DocumentSnapshot.h"

#include "platform/plist/PropertyListFile.h"
#include "settings/Constants.h"
#include "settings/DocumentPath.h"

#include <string>

namespace wardlock {
namespace {

// Formatted once, when the bundle is loaded.
const std::string pathOfDocument = documentPath(BundleIdentifier);

} // namespace

std::optional<platform::MutableDictionary> documentSnapshot;

void readDocumentSnapshot() {
    documentSnapshot.reset();
    if (const auto document = platform::dictionaryWithContentsOfFile(pathOfDocument))
        documentSnapshot.emplace(*document);
}

} // namespace wardlock
