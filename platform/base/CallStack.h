#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace platform {

/// Returns the return addresses of the calling thread's frames, innermost first. Frames inside `from` (a
/// return address of the stack) are left out. Where `from` is not found, no frame is left out.
std::vector<std::uintptr_t> callStackReturnAddresses(const void* from);

/// Returns "module  address  symbol + offset" for a return address, as far as they are known.
std::string callStackSymbol(std::uintptr_t address);

} // namespace platform
