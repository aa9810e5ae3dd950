#pragma once

#include <functional>
#include <string>

namespace wardlock::test {

/// A process with mounts of its own, for tests of files that only the system could otherwise change, and of
/// file systems that keep owners in another way. Takes root, with the right to mount: elsewhere such a test
/// is skipped, saying why.
class OwnMounts {
public:
    /// Why mounts are impossible here; empty where they are possible.
    static const std::string& whyNot();

    /// What the work returns, an exit code, in a process whose mounts end with it; -1 when it did not return.
    static int does(const std::function<int()>& work);

    // For the work: whether it was done.

    /// The file has these bytes.
    static bool putInPlace(const std::string& file, const std::string& bytes, const std::string& spare);
    /// Mounts an empty disk of another machine at the folder: its files belong to that user and group.
    static bool insertDisk(const std::string& folder, unsigned user, unsigned group, unsigned mode);
};

} // namespace wardlock::test

/// Skips the test where there are no such mounts.
#define SKIP_WITHOUT_OWN_MOUNTS()                                                                            \
    if (!wardlock::test::OwnMounts::whyNot().empty())                                                        \
    GTEST_SKIP() << wardlock::test::OwnMounts::whyNot()
