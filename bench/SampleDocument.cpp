#include "bench/SampleDocument.h"

#include "settings/DefaultSettings.h"
#include "settings/Keys.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>

namespace wardlock::bench {

using platform::Value;

platform::Dictionary sampleDocument(std::size_t accounts) {
    platform::MutableDictionary document(DefaultSettings());
    const platform::Dictionary model = platform::arrayValue(document.find(kAccounts))->at(0).dictionary();
    platform::MutableArray records;
    for (std::size_t i = 0; i < accounts; ++i) {
        platform::MutableDictionary record(model);
        record.set(kAccountName, Value("Account " + std::to_string(i) + " & family"));
        record.set(kAccountEnabled, Value(i == 0));
        records.append(record.copy());
    }
    document.set(kAccounts, Value(records.copy()));
    return document.copy();
}

std::string fileBytes(const std::string& path) {
    std::FILE* file = std::fopen(path.c_str(), "rb");
    if (!file) {
        std::perror(path.c_str());
        std::exit(1);
    }
    // As cheap as the system calls themselves: some of the compared programs read their file with this.
    std::setvbuf(file, nullptr, _IONBF, 0);
    std::string bytes(std::filesystem::file_size(path), '\0');
    bytes.resize(std::fread(bytes.data(), 1, bytes.size(), file));
    std::fclose(file);
    return bytes;
}

std::vector<std::string> booleanKeys(const platform::Dictionary& document) {
    std::vector<std::string> keys;
    for (const auto& [key, value] : platform::arrayValue(document.find(kAccounts))->at(0).dictionary())
        if (value.kind() == Value::Kind::Boolean)
            keys.emplace_back(key);
    return keys;
}

std::string changedKey(const platform::Dictionary& document) {
    const std::vector<std::string> keys = booleanKeys(document);
    return keys.at(keys.size() * 2 / 3 - 1);
}

void setFirstAccount(platform::MutableDictionary& document, std::string_view key, bool value) {
    platform::MutableArray accounts(*platform::arrayValue(document.find(kAccounts)));
    platform::MutableDictionary record(accounts.at(0).dictionary());
    record.set(key, Value(value));
    accounts.replace(0, record.copy());
    document.set(kAccounts, Value(accounts.copy()));
}

bool firstAccountBool(const Value* accounts, std::string_view key) {
    return platform::boolValue(platform::arrayValue(accounts)->at(0).dictionary().find(key));
}

} // namespace wardlock::bench
