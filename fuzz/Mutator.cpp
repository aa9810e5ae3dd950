#include "fuzz/Mutator.h"

#include <algorithm>
#include <utility>

namespace wardlock::fuzz {

Mutator::Mutator(std::uint64_t seed, std::vector<std::string> seeds, std::vector<std::string> words)
    : random_(seed), seeds_(std::move(seeds)), words_(std::move(words)) {
    if (seeds_.empty())
        seeds_.emplace_back();
}

std::string Mutator::next() {
    std::string input = seeds_[below(seeds_.size())];
    for (std::size_t changes = 1 + below(6); changes > 0; --changes)
        change(input);
    input.resize(std::min(input.size(), longest));
    return input;
}

void Mutator::change(std::string& input) {
    switch (below(6)) {
    case 0:
        return insert(input, partOf(seeds_[below(seeds_.size())]));
    case 1:
        return insert(input, partOf(input));
    case 2:
        if (!words_.empty())
            return insert(input, words_[below(words_.size())]);
        return changeByte(input);
    case 3:
        if (!input.empty())
            input.erase(below(input.size()), 1 + below(16));
        return;
    default:
        return changeByte(input);
    }
}

void Mutator::changeByte(std::string& input) {
    static constexpr unsigned char edges[] = {0, 1, 0x0A, 0x20, 0x7F, 0x80, 0xC0, 0xFE, 0xFF};
    if (input.empty())
        return input.push_back(static_cast<char>(below(256)));
    char& byte = input[below(input.size())];
    switch (below(3)) {
    case 0:
        byte = static_cast<char>(byte ^ (1 << below(8)));
        return;
    case 1:
        byte = static_cast<char>(edges[below(std::size(edges))]);
        return;
    default:
        byte = static_cast<char>(below(256));
    }
}

void Mutator::insert(std::string& input, const std::string& part) {
    input.insert(below(input.size() + 1), part);
}

std::string Mutator::partOf(const std::string& input) {
    const std::size_t from = below(input.size() + 1);
    return input.substr(from, below(input.size() - from + 1));
}

} // namespace wardlock::fuzz
