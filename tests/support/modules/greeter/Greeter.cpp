#include "platform/runtime/Class.h"
#include "platform/values/NSException.h"
#include "tests/support/modules/Greeting.h"

using platform::Class;
using wardlock::test::GreetingObject;

namespace {

class Greeter : public GreetingObject {
public:
    std::string greeting() const override { return "hello"; }
    void refuse() const override {
        throw platform::NSException(platform::NSInvalidArgumentException, "will not greet");
    }
};

class GreeterMeta : public GreetingObject {
public:
    std::string greeting() const override { return "hello from the class"; }
};

platform::Object& meta() {
    static GreeterMeta object;
    return object;
}

constexpr Class greeter("Greeter", &platform::makeInstance<Greeter>, &meta);
constexpr Class abstractGreeter("AbstractGreeter", nullptr);
constexpr const Class* classes[] = {&greeter, &abstractGreeter};

} // namespace

extern "C" WARDLOCK_API platform::ClassTable wardlock_classes();

platform::ClassTable wardlock_classes() {
    return classes;
}
