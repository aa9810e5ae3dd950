// Settings for scripts, on any lines. The first byte chooses the number of accounts.

#include "fuzz/ScriptedSettings.h"

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static wardlock::fuzz::ScriptedSettings settings;
    if (size == 0)
        return 0;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    constexpr std::size_t mostAccounts = 3;
    settings.run(bytes.substr(1), 1 + static_cast<unsigned char>(bytes.front()) % mostAccounts);
    return 0;
}
