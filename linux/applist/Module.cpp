// The entry of the AppList library: the class "ALApplicationList".

#include "linux/applist/ApplicationList.h"
#include "platform/runtime/Class.h"

namespace platform::applist {
namespace {

/// The class methods. The list lives as long as the process, as the module does.
class ListClass final : public ALApplicationListClass {
public:
    ALApplicationList& sharedApplicationList() override { return *list_; }

private:
    std::shared_ptr<ApplicationList> list_ = std::make_shared<ApplicationList>();
};

Object& classMethods() {
    static const auto methods = std::make_shared<ListClass>();
    return *methods;
}

} // namespace
} // namespace platform::applist

extern "C" WARDLOCK_API platform::ClassTable wardlock_classes();

platform::ClassTable wardlock_classes() {
    static constexpr platform::Class list("ALApplicationList", nullptr, &platform::applist::classMethods);
    static const platform::Class* const classes[] = {&list};
    return classes;
}
