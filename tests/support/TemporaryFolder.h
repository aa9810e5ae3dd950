#pragma once

#include <string>
#include <string_view>

namespace wardlock::test {

/// A new private folder (0700) of a short name below the machine's temporary folder; removed with its
/// contents, folders without permissions included. Short, so that a socket inside fits its address.
class TemporaryFolder {
public:
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::string& path() const { return path_; }
    /// The path of `name` inside.
    std::string operator/(std::string_view name) const;

private:
    std::string path_;
};

} // namespace wardlock::test
