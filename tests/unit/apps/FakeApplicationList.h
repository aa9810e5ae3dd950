#pragma once

#include "platform/runtime/Class.h"
#include "platform/services/ALApplicationList.h"

#include <memory>
#include <string>
#include <vector>

namespace wardlock::test {

/// An AppList library without a module: during its life, the class "ALApplicationList" is found by name and
/// offers what the test says.
class FakeApplicationList {
public:
    FakeApplicationList();
    ~FakeApplicationList();
    FakeApplicationList(const FakeApplicationList&) = delete;
    FakeApplicationList& operator=(const FakeApplicationList&) = delete;

    /// Display identifier to display name.
    void setApplications(platform::Dictionary applications);
    /// The one icon that this application has.
    std::shared_ptr<platform::UIImage> setIcon(std::string_view identifier);
    /// How often the list was asked for, and the sizes of the icons asked for.
    int listings() const;
    std::vector<int> iconSizes() const;
};

} // namespace wardlock::test
