#pragma once

#include <cstdint>
#include <random>
#include <string>
#include <vector>

namespace wardlock::fuzz {

/// Derives new inputs from known ones: the same ones for the same seed on every machine.
class Mutator {
public:
    static constexpr std::size_t longest = 4096;

    /// `seeds` are the inputs to change, `words` the texts to insert as a whole.
    Mutator(std::uint64_t seed, std::vector<std::string> seeds, std::vector<std::string> words);

    std::string next();

private:
    std::size_t below(std::size_t bound) { return static_cast<std::size_t>(random_() % bound); }
    void change(std::string& input);
    void changeByte(std::string& input);
    void insert(std::string& input, const std::string& part);
    std::string partOf(const std::string& input);

    std::mt19937_64 random_;
    std::vector<std::string> seeds_;
    std::vector<std::string> words_;
};

} // namespace wardlock::fuzz
