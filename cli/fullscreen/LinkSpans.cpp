#include "cli/fullscreen/LinkSpans.h"

#include <charconv>

namespace wardlock::cli {

std::vector<LinkSpan> linkSpans(std::string_view line, const std::vector<platform::WebLink>& links) {
    std::vector<LinkSpan> spans;
    for (std::size_t open = line.find('['); open != std::string_view::npos; open = line.find('[', open + 1)) {
        std::size_t number = 0;
        const auto [end, error] = std::from_chars(line.data() + open + 1, line.data() + line.size(), number);
        const std::size_t close = static_cast<std::size_t>(end - line.data());
        if (error != std::errc() || close == line.size() || line[close] != ']' || number == 0 ||
            number > links.size())
            continue;
        const std::string_view before = line.substr(0, open);
        const std::string label = links[number - 1].text + ' ';
        const bool hasLabel = label.size() > 1 && before.ends_with(label);
        spans.push_back({number, hasLabel ? open - label.size() : open, close + 1});
    }
    return spans;
}

} // namespace wardlock::cli
