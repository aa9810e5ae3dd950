#pragma once

#include <sys/resource.h>

namespace wardlock::test {

/// While it lives, the process can open only so many more files.
class FewDescriptors {
public:
    explicit FewDescriptors(rlim_t left);
    ~FewDescriptors();
    FewDescriptors(const FewDescriptors&) = delete;
    FewDescriptors& operator=(const FewDescriptors&) = delete;

private:
    rlimit before_{};
};

} // namespace wardlock::test
