#pragma once

#include <string>

namespace platform {

/// Makes the folder where it is missing. True: it is a real folder, of this user, and nobody else may look
/// into it. False also for a symbolic link, which somebody else may have laid.
bool preparePrivateFolder(const std::string& path);

} // namespace platform
