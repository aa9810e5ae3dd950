#include "cli/fullscreen/GroundReply.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>

namespace wardlock::cli {

namespace {

constexpr std::string_view background = "\033]11;";
constexpr std::string_view kind = "\033[?";
constexpr std::size_t longest = 100;

bool isPrintable(char byte) {
    return byte >= ' ' && byte <= '~';
}

/// Returns what the text after the beginning of the background's reply makes of it.
Reply backgroundReply(std::string_view text) {
    const auto end = std::ranges::find_if_not(text, isPrintable);
    const std::string_view ending(end, text.end());
    if (ending == "\007" || ending == "\033\\")
        return Reply::Background;
    if ((ending.empty() || ending == "\033") && text.size() < longest)
        return Reply::Begun;
    return Reply::Broken;
}

Reply kindReply(std::string_view text) {
    const std::size_t end = std::min(text.find_first_not_of("0123456789;"), text.size());
    if (end == text.size())
        return text.size() < longest ? Reply::Begun : Reply::None;
    return end + 1 == text.size() && text[end] == 'c' ? Reply::Kind : Reply::None;
}

/// Returns the part of the largest number of that many digits, from 0 to 1.
std::optional<double> part(std::string_view digits) {
    constexpr std::size_t mostDigits = 4;
    unsigned number = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number, 16);
    if (error != std::errc() || end != digits.data() + digits.size() || digits.size() > mostDigits)
        return std::nullopt;
    return number / static_cast<double>((1U << (4 * digits.size())) - 1);
}

Ground groundOf(const std::array<std::string_view, 3>& channels) {
    constexpr std::array weights{0.299, 0.587, 0.114};
    double brightness = 0;
    for (std::size_t i = 0; i < channels.size(); ++i) {
        const auto value = part(channels[i]);
        if (!value)
            return Ground::Unknown;
        brightness += weights[i] * *value;
    }
    return brightness > 0.5 ? Ground::Light : Ground::Dark;
}

/// "RED/GREEN/BLUE", and perhaps "/OPACITY".
Ground groundOfNumbers(std::string_view text) {
    std::array<std::string_view, 3> channels;
    for (auto& channel : channels) {
        channel = text.substr(0, text.find('/'));
        text.remove_prefix(std::min(channel.size() + 1, text.size()));
    }
    return groundOf(channels);
}

/// "RRGGBB", or as many digits of each again.
Ground groundOfDigits(std::string_view text) {
    const std::size_t width = text.size() / 3;
    if (width * 3 != text.size())
        return Ground::Unknown;
    return groundOf({text.substr(0, width), text.substr(width, width), text.substr(2 * width)});
}

} // namespace

Reply replyOf(std::string_view bytes) {
    for (const std::string_view beginning : {background, kind})
        if (beginning.starts_with(bytes))
            return Reply::Begun;
    if (bytes.starts_with(background))
        return backgroundReply(bytes.substr(background.size()));
    return bytes.starts_with(kind) ? kindReply(bytes.substr(kind.size())) : Reply::None;
}

Ground groundOfReply(std::string_view reply) {
    std::string_view colour = reply.substr(std::min(background.size(), reply.size()));
    colour = colour.substr(0, colour.find_first_of("\007\033"));
    if (colour.starts_with('#'))
        return groundOfDigits(colour.substr(1));
    for (const std::string_view form : {"rgb:", "rgba:"})
        if (colour.starts_with(form))
            return groundOfNumbers(colour.substr(form.size()));
    return Ground::Unknown;
}

} // namespace wardlock::cli
