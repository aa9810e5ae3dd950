#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace wardlock::cli {

/// Returns the font folders of the machine and the user, as in fontconfig's default configuration.
std::vector<std::string> fontFolders();

/// Returns a font file of the family below the folders, found by its name ("Inter-Bold.otf" is one of
/// "Inter"); empty when there is none. Bounded: only a part of huge folders is searched.
std::string fontFile(std::string_view family, const std::vector<std::string>& folders);
/// Returns a font file below the folders that shows the character, bounded in the same way; empty when there
/// is none.
std::string fontFileFor(char32_t character, const std::vector<std::string>& folders);

} // namespace wardlock::cli
