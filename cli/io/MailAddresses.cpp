#include "cli/io/MailAddresses.h"

#include <algorithm>
#include <utility>

namespace wardlock::cli {

std::vector<std::string> addressesIn(const std::string& text) {
    std::vector<std::string> addresses;
    for (std::size_t begin = 0; begin < text.size();) {
        const std::size_t end = std::min(text.find(',', begin), text.size());
        std::string address = text.substr(begin, end - begin);
        std::erase(address, ' ');
        if (!address.empty())
            addresses.push_back(std::move(address));
        begin = end + 1;
    }
    return addresses;
}

std::string joinedAddresses(const std::vector<std::string>& addresses) {
    std::string all;
    for (const auto& address : addresses)
        all += (all.empty() ? "" : ", ") + address;
    return all;
}

} // namespace wardlock::cli
