#pragma once

#include <map>
#include <optional>
#include <string>

namespace wardlock::test {

/// Variables of the environment changed for the life of this object, and put back with it.
class Environment {
public:
    Environment() = default;
    ~Environment();
    Environment(const Environment&) = delete;
    Environment& operator=(const Environment&) = delete;

    void set(const std::string& name, const std::string& value);
    void unset(const std::string& name);

private:
    void remember(const std::string& name);

    std::map<std::string, std::optional<std::string>> before_;
};

} // namespace wardlock::test
