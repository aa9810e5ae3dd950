#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace wardlock::test {

/// A binary property list put together from ready-made objects, right or wrong. One-byte references and
/// two-byte offsets; the first object is the top one.
struct BinaryPropertyList {
    std::vector<std::string> objects;
    std::uint64_t topObject = 0;

    std::string bytes() const;
};

/// The number's low bytes, the highest first.
std::string bigEndian(std::uint64_t number, int length);

/// A document of that one object.
std::string binaryOf(std::string_view object);

} // namespace wardlock::test
