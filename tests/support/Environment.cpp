#include "tests/support/Environment.h"

#include <cstdlib>

namespace wardlock::test {

Environment::~Environment() {
    for (const auto& [name, value] : before_) {
        if (value)
            ::setenv(name.c_str(), value->c_str(), 1);
        else
            ::unsetenv(name.c_str());
    }
}

void Environment::set(const std::string& name, const std::string& value) {
    remember(name);
    ::setenv(name.c_str(), value.c_str(), 1);
}

void Environment::unset(const std::string& name) {
    remember(name);
    ::unsetenv(name.c_str());
}

void Environment::remember(const std::string& name) {
    const char* value = std::getenv(name.c_str());
    before_.try_emplace(name, value ? std::optional<std::string>(value) : std::nullopt);
}

} // namespace wardlock::test
