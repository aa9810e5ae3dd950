#include "tests/unit/cli/VerbsFixture.h"

namespace wardlock::test {
namespace {

class UsageErrors : public VerbsFixture {};

TEST_F(UsageErrors, NameAnUnknownOptionBeforeTheVerb) {
    const ProcessResult unknown = run({"-x"});
    EXPECT_EQ(unknown.exitCode, 2);
    EXPECT_EQ(unknown.errors, "wardlock: unknown option '-x' (see wardlock --help)\n");
    EXPECT_EQ(run({"--verison"}).errors,
              "wardlock: unknown option '--verison'; did you mean '--version'? (see wardlock --help)\n");
}

TEST_F(UsageErrors, SuggestAVerbOfTheFamily) {
    expectRefuses(
        {"account", "enabel", "Ada"}, 2,
        "account: unexpected argument 'Ada'; did you mean 'account enable'? (see wardlock account --help)");
    expectRefuses(
        {"history", "shwo", "1"}, 2,
        "history: unexpected argument 'shwo'; did you mean 'history show'? (see wardlock history --help)");
    expectRefuses({"status", "sett"}, 2, "status: unexpected argument 'sett' (see wardlock status --help)");
}

TEST_F(UsageErrors, ExplainThatASettingIsNotOfAnAccount) {
    expectRefuses({"get", "--account", "Ben", "kEnabled"}, 1,
                  "get: kEnabled is a setting of all accounts; leave out --account");
}

} // namespace
} // namespace wardlock::test
