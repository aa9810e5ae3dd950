#include "linux/bus/BusText.h"

#include "platform/base/Utf8.h"

namespace platform::bus {

bool isBusText(std::string_view text) {
    return text.find('\0') == std::string_view::npos && isValidUtf8(text);
}

} // namespace platform::bus
