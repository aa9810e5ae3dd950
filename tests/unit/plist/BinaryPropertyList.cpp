#include "tests/unit/plist/BinaryPropertyList.h"

namespace wardlock::test {

std::string bigEndian(std::uint64_t number, int length) {
    std::string bytes;
    for (int shift = 8 * (length - 1); shift >= 0; shift -= 8)
        bytes += static_cast<char>(static_cast<unsigned char>(shift < 64 ? number >> shift : 0));
    return bytes;
}

std::string BinaryPropertyList::bytes() const {
    std::string result = "bplist00";
    std::string table;
    for (const std::string& object : objects) {
        table += bigEndian(result.size(), 2);
        result += object;
    }
    const std::size_t tableOffset = result.size();
    return result + table + std::string(6, '\0') + bigEndian(2, 1) + bigEndian(1, 1) +
           bigEndian(objects.size(), 8) + bigEndian(topObject, 8) + bigEndian(tableOffset, 8);
}

std::string binaryOf(std::string_view object) {
    return BinaryPropertyList{{std::string(object)}}.bytes();
}

} // namespace wardlock::test
