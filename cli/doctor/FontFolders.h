#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace wardlock::cli {

/// Where the machine and the user keep fonts, as fontconfig's own configuration has it.
std::vector<std::string> fontFolders();

/// A font file of the family below the folders, told by its name ("Inter-Bold.otf" is one of "Inter"); empty
/// when there is none. Bounded: of huge folders only a part is looked through.
std::string fontFile(std::string_view family, const std::vector<std::string>& folders);

} // namespace wardlock::cli
