#include "platform/runtime/Class.h"
#include "tests/support/modules/Greeting.h"

using platform::Class;
using wardlock::test::GreetingObject;

namespace {

class Rival : public GreetingObject {
public:
    std::string greeting() const override { return "goodbye"; }
};

// The other module's name: the one opened last hides it.
constexpr Class rival("Greeter", &platform::makeInstance<Rival>);
constexpr const Class* classes[] = {&rival};

} // namespace

extern "C" WARDLOCK_API platform::ClassTable wardlock_classes();

platform::ClassTable wardlock_classes() {
    return classes;
}
