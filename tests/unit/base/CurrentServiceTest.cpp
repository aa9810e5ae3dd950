#include "platform/base/CurrentService.h"

#include <gtest/gtest.h>

namespace {

struct Service {};

Service& usual() {
    static Service service;
    return service;
}

} // namespace

TEST(CurrentService, IsTheDefaultUntilAnotherIsSet) {
    constinit static platform::CurrentService<Service> current(usual);
    EXPECT_EQ(&current.get(), &usual());
    Service other;
    current.set(&other);
    EXPECT_EQ(&current.get(), &other);
}

TEST(CurrentService, IsTheDefaultAgainAfterNullIsSet) {
    platform::CurrentService<Service> current(usual);
    Service other;
    current.set(&other);
    current.set(nullptr);
    EXPECT_EQ(&current.get(), &usual());
}
