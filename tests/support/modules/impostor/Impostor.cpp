#include "platform/runtime/Class.h"
#include "tests/support/modules/Greeting.h"

using platform::Class;
using wardlock::test::GreetingObject;

namespace {

class Impostor : public GreetingObject {
public:
    std::string greeting() const override { return "no application"; }
};

platform::Object& meta() {
    static Impostor object;
    return object;
}

// The name of the application list, and nothing of what such a list does.
constexpr Class impostor("ALApplicationList", nullptr, &meta);
constexpr const Class* classes[] = {&impostor};

} // namespace

extern "C" WARDLOCK_API platform::ClassTable wardlock_classes();

platform::ClassTable wardlock_classes() {
    return classes;
}
