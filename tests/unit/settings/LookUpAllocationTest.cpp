// Look-ups are asked before every touch the enforcing half lets through: they allocate nothing once the cache
// is filled.

#include "settings/EnabledAccount.h"
#include "settings/Settings.h"
#include "tests/support/SettingsFixture.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<std::size_t> allocations = 0;

class LookUpAllocation : public wardlock::test::SettingsFixture {};

} // namespace

// Not inlined: the compiler must not see that what `new` gives was given by malloc.
[[gnu::noinline]] void* operator new(std::size_t size) {
    ++allocations;
    if (void* block = std::malloc(size > 0 ? size : 1))
        return block;
    throw std::bad_alloc();
}
[[gnu::noinline]] void operator delete(void* block) noexcept {
    std::free(block);
}
[[gnu::noinline]] void operator delete(void* block, std::size_t) noexcept {
    std::free(block);
}

using namespace wardlock;

TEST_F(LookUpAllocation, IsCounted) {
    const std::size_t before = allocations;
    InitSettings();
    EXPECT_GT(allocations, before);
}

TEST_F(LookUpAllocation, DoesNotHappenInAFilledCache) {
    writeDocument(documentWithAccounts({false, true}));
    InitSettings();
    const std::size_t before = allocations;
    objectForKey("kAccounts");
    const bool enabled = boolForKey("kEnabled");
    const float number = floatForKey("kPasscode");
    stringForKey("a key that is missing and longer than any small string");
    AccountObject("kAccountName");
    const bool accountEnabled = AccountBool("kAccountEnabled");
    const bool tweakEnabled = TweakEnabled();
    const std::size_t after = allocations;
    EXPECT_EQ(after, before);
    EXPECT_TRUE(enabled && accountEnabled && tweakEnabled);
    EXPECT_EQ(number, 1234.0F);
}

TEST_F(LookUpAllocation, DoesNotHappenWhileNoAccountIsEnabled) {
    writeDocument(documentWithAccounts({false, false}));
    InitSettings();
    const std::size_t before = allocations;
    const bool enabled = AccountEnabled();
    const platform::Value* name = AccountString("kAccountName");
    const std::size_t after = allocations;
    EXPECT_EQ(after, before);
    EXPECT_FALSE(enabled);
    EXPECT_EQ(name, nullptr);
}
