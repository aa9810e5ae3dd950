#pragma once

#include <functional>
#include <string>
#include <system_error>

namespace wardlock::test {

/// Another ordinary user of this machine, for tests of what others may do. Only root can act for one:
/// elsewhere such a test is skipped, saying why.
class OtherUser {
public:
    /// Why a test cannot act for another user here; empty where it can.
    static const std::string& whyNot();
    static unsigned id();
    static unsigned group();

    /// What the work returns, an errno value or 0, in a process of that user; -1 when the process returned
    /// nothing.
    static int does(const std::function<int()>& work);

    // What that user gets, an errno value or 0, from:
    static int reads(const std::string& path);
    static int lists(const std::string& folder);
    static int writes(const std::string& path);
    static int makes(const std::string& path);

    /// A symbolic link that belongs to that user, in any folder.
    static void createLink(const std::string& target, const std::string& path);
    static void give(const std::string& path);
};

} // namespace wardlock::test

/// Skips the test where there is no other user to act for.
#define SKIP_WITHOUT_OTHER_USER()                                                                            \
    if (!wardlock::test::OtherUser::whyNot().empty())                                                        \
    GTEST_SKIP() << wardlock::test::OtherUser::whyNot()
