#include "platform/text/NameCollator.h"

#include "platform/text/CaseFolding.h"
#include "platform/text/Collation.h"

#include <algorithm>

namespace platform {
namespace {

constexpr std::size_t prefixBytes = sizeof(std::uint64_t);
/// Bytes of a usual name's key; the buffer grows when a name needs more.
constexpr std::size_t usualKey = 24;

std::uint64_t prefixOf(std::string_view key) {
    std::uint64_t prefix = 0;
    for (std::size_t i = 0; i < prefixBytes; ++i)
        prefix = (prefix << 8) | (i < key.size() ? static_cast<unsigned char>(key[i]) : 0u);
    return prefix;
}

} // namespace

NameCollator::NameCollator(Comparison comparison, std::size_t expected) : comparison_(comparison) {
    keys_.reserve(expected * usualKey);
    ends_.reserve(expected);
    entries_.reserve(expected);
}

void NameCollator::add(std::optional<std::string_view> name) {
    const std::size_t start = keys_.size();
    if (name && comparison_ == Comparison::CaseInsensitive)
        appendCaseFolded(*name, keys_);
    else if (name)
        appendLocalizedKey(*name, keys_);
    ends_.push_back(keys_.size());
    const auto position = static_cast<std::uint32_t>(entries_.size());
    entries_.push_back({prefixOf(std::string_view(keys_).substr(start)), position, !name});
}

std::vector<std::uint32_t> NameCollator::sorted() const {
    std::vector<Entry> order = entries_;
    std::sort(order.begin(), order.end(), [this](const Entry& a, const Entry& b) { return before(a, b); });
    std::vector<std::uint32_t> positions;
    positions.reserve(order.size());
    for (const Entry& entry : order)
        positions.push_back(entry.position);
    return positions;
}

std::string_view NameCollator::key(std::uint32_t position) const {
    const std::size_t start = position == 0 ? 0 : ends_[position - 1];
    return std::string_view(keys_).substr(start, ends_[position] - start);
}

bool NameCollator::before(const Entry& a, const Entry& b) const {
    if (a.missing != b.missing)
        return b.missing;
    if (a.prefix != b.prefix)
        return a.prefix < b.prefix;
    const int compared = key(a.position).compare(key(b.position));
    return compared != 0 ? compared < 0 : a.position < b.position;
}

} // namespace platform
