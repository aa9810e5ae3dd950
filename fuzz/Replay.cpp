// Runs a fuzz target without libFuzzer: every input of a corpus, then random mutations of them, the same ones
// in every run. An input that ends the process is printed in hexadecimal first.
// usage: fuzz-TARGET [--inputs N] [--seed N] [--dictionary FILE] FOLDER-OR-FILE...

#include "fuzz/Mutator.h"

#include <algorithm>
#include <charconv>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <string_view>
#include <unistd.h>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

namespace fs = std::filesystem;

struct Options {
    std::size_t inputs = 0;
    std::uint64_t seed = 1;
    std::string dictionary;
    std::vector<fs::path> corpora;
};

std::string current;

/// Only calls that a signal handler may make.
void printInput(int signal) {
    static constexpr char digits[] = "0123456789abcdef";
    static constexpr std::string_view title = "the input, in hexadecimal: ";
    [[maybe_unused]] ssize_t ignored = write(STDERR_FILENO, title.data(), title.size());
    for (const char byte : current) {
        const auto code = static_cast<unsigned char>(byte);
        const char pair[] = {digits[code >> 4], digits[code & 15]};
        ignored = write(STDERR_FILENO, pair, sizeof pair);
    }
    ignored = write(STDERR_FILENO, "\n", 1);
    std::signal(signal, SIG_DFL);
    raise(signal);
}

std::string contentsOf(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        std::fprintf(stderr, "cannot read %s\n", path.c_str());
        std::exit(2);
    }
    return {std::istreambuf_iterator<char>(file), {}};
}

std::string unescaped(const std::string& text) {
    std::string word;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] != '\\' || at + 1 == text.size()) {
            word += text[at];
            continue;
        }
        unsigned code = 0;
        const char* const digits = text.data() + at + 2;
        if (text[at + 1] == 'x' && at + 3 < text.size() &&
            std::from_chars(digits, digits + 2, code, 16).ptr == digits + 2) {
            word += static_cast<char>(code);
            at += 3;
        } else {
            word += text[++at];
        }
    }
    return word;
}

/// Returns the words of a libFuzzer dictionary: a text in double quotes a line, with \\, \" and \xHH.
/// Comments and lines of another form are skipped.
std::vector<std::string> wordsOf(const std::string& dictionary) {
    std::vector<std::string> words;
    std::istringstream lines(dictionary);
    for (std::string line; std::getline(lines, line);) {
        const std::size_t first = line.find('"');
        const std::size_t last = line.rfind('"');
        if (!line.starts_with('#') && first < last && last != std::string::npos)
            words.push_back(unescaped(line.substr(first + 1, last - first - 1)));
    }
    return words;
}

Options parse(int count, char** words) {
    Options options;
    for (int i = 1; i < count; ++i) {
        const std::string_view word = words[i];
        const bool last = i + 1 == count;
        if (!word.starts_with("--"))
            options.corpora.emplace_back(word);
        else if (!last && word == "--inputs")
            options.inputs = std::strtoull(words[++i], nullptr, 10);
        else if (!last && word == "--seed")
            options.seed = std::strtoull(words[++i], nullptr, 10);
        else if (!last && word == "--dictionary")
            options.dictionary = words[++i];
        else
            std::exit(2);
    }
    return options;
}

std::vector<std::string> seedsOf(const std::vector<fs::path>& corpora) {
    std::vector<fs::path> paths;
    for (const fs::path& corpus : corpora) {
        if (!fs::is_directory(corpus)) {
            paths.push_back(corpus);
            continue;
        }
        for (const auto& entry : fs::directory_iterator(corpus))
            paths.push_back(entry.path());
    }
    std::ranges::sort(paths);
    std::vector<std::string> seeds;
    std::ranges::transform(paths, std::back_inserter(seeds), contentsOf);
    return seeds;
}

void run(std::string input) {
    current = std::move(input);
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(current.data()), current.size());
}

} // namespace

int main(int count, char** words) {
    const Options options = parse(count, words);
    const std::vector<std::string> seeds = seedsOf(options.corpora);
    if (seeds.empty()) {
        std::fputs("no inputs to begin with\n", stderr);
        return 2;
    }
    for (const int signal : {SIGABRT, SIGSEGV, SIGBUS, SIGFPE, SIGILL})
        std::signal(signal, printInput);
    for (const std::string& seed : seeds)
        run(seed);
    wardlock::fuzz::Mutator mutator(options.seed, seeds,
                                    options.dictionary.empty() ? std::vector<std::string>()
                                                               : wordsOf(contentsOf(options.dictionary)));
    for (std::size_t i = 0; i < options.inputs; ++i)
        run(mutator.next());
    std::printf("%zu known inputs and %zu made of them, seed %llu: no finding\n", seeds.size(),
                options.inputs, static_cast<unsigned long long>(options.seed));
    return 0;
}
