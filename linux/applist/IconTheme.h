#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace platform::applist {

/// Icons by name, for one size at a time. They come from the user's icon theme, the themes it inherits from,
/// "hicolor" and the folders of icons without a theme. This is the order of every free desktop. Themes are
/// read once. Main thread only.
class IconTheme {
public:
    /// Returns the user's theme, as the desktop's settings files name it.
    static IconTheme& current();

    /// Returns the file of the icon for a square of `pixels`; empty when no theme has it.
    std::string find(const std::string& name, int pixels);

private:
    /// A folder of a theme, for icons of about one size.
    struct Folder {
        std::string path;
        int pixels;
        int least;
        int most;
        bool scalable;
    };

    IconTheme();

    void addTheme(const std::string& name);
    static std::vector<Folder> foldersOf(const std::string& theme, std::vector<std::string>& inherits);
    static int distance(const Folder& folder, int pixels);

    std::vector<std::string> names_;
    /// One list per theme, in the order in which themes are searched.
    std::vector<std::vector<Folder>> themes_;
    std::map<int, std::vector<std::vector<Folder>>> ordered_;

    const std::vector<std::vector<Folder>>& orderedFor(int pixels);
};

} // namespace platform::applist
