#pragma once

#include <string>

namespace wardlock::cli {

/// Returns whether the font in the file has a picture of the character, by the table of characters that fonts
/// of TrueType and OpenType have, and the first font of a collection. False for any other file, and for a
/// damaged one. Reads a few parts of the file only.
bool fontShows(const std::string& path, char32_t character);

} // namespace wardlock::cli
