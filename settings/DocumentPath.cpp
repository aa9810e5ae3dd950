#include "settings/DocumentPath.h"

#include "platform/text/Format.h"
#include "settings/Constants.h"

namespace wardlock {

std::string documentPath(std::string_view identifier) {
    return platform::stringWithFormat(DocumentPathFormat, identifier);
}

} // namespace wardlock
