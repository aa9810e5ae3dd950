#include "cli/doctor/FontFolders.h"

#include "cli/doctor/FontCharacters.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <system_error>

namespace wardlock::cli {

namespace fs = std::filesystem;

namespace {

constexpr int mostEntries = 50'000;

bool isLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool isFont(const fs::path& file) {
    static constexpr std::array types{".otf", ".ttf", ".ttc"};
    return std::ranges::find(types, file.extension().string()) != types.end();
}

/// Returns true for "Inter-Bold" and "Inter" of the family "Inter", and false for "Interstate".
bool isOfFamily(const fs::path& file, std::string_view family) {
    const std::string stem = file.stem().string();
    return stem.starts_with(family) && (stem.size() == family.size() || !isLetter(stem[family.size()]));
}

/// Returns the first font file below the folders for which `wanted` returns true; empty when there is none.
template <class Wanted>
std::string findFont(const std::vector<std::string>& folders, Wanted wanted) {
    int left = mostEntries;
    for (const std::string& folder : folders) {
        std::error_code error;
        const auto options = fs::directory_options::skip_permission_denied;
        fs::recursive_directory_iterator it(folder, options, error);
        for (const fs::recursive_directory_iterator end; !error && it != end && left > 0; it.increment(error))
            if (--left; isFont(it->path()) && wanted(it->path()))
                return it->path().string();
    }
    return {};
}

void addBelow(const char* variable, const char* folder, std::vector<std::string>& folders) {
    if (const char* value = std::getenv(variable); value && *value == '/')
        folders.push_back(std::string(value) + folder);
}

} // namespace

std::vector<std::string> fontFolders() {
    std::vector<std::string> folders{"/usr/share/fonts", "/usr/local/share/fonts"};
    addBelow("XDG_DATA_HOME", "/fonts", folders);
    addBelow("HOME", "/.local/share/fonts", folders);
    addBelow("HOME", "/.fonts", folders);
    return folders;
}

std::string fontFile(std::string_view family, const std::vector<std::string>& folders) {
    return findFont(folders, [&](const fs::path& file) { return isOfFamily(file, family); });
}

std::string fontFileFor(char32_t character, const std::vector<std::string>& folders) {
    return findFont(folders, [&](const fs::path& file) { return fontShows(file.string(), character); });
}

} // namespace wardlock::cli
