#include "platform/runtime/DynamicLibrary.h"

#include "platform/runtime/Class.h"
#include "platform/values/NSException.h"
#include "tests/support/ModuleFixture.h"
#include "tests/support/OtherUser.h"
#include "tests/support/modules/Greeting.h"

#include <filesystem>
#include <thread>
#include <unistd.h>

namespace wardlock::test {
namespace {

namespace fs = std::filesystem;
using platform::objc_getClass;

constexpr const char* library = "/Library/MobileSubstrate/DynamicLibraries/Greeter.dylib";

class DynamicLibrary : public ModuleFixture {
protected:
    void* open(std::string_view path = library) { return platform::dlopen(path, platform::RTLD_Lazy); }
    /// Expects the module at the path refused for a reason with these words in it.
    void expectRefused(std::string_view path, std::string_view words) {
        EXPECT_EQ(open(path), nullptr);
        EXPECT_NE(platform::dlerror().find(words), std::string::npos) << platform::dlerror();
        EXPECT_EQ(platform::dlerror().find('\n'), std::string::npos);
        EXPECT_EQ(objc_getClass("Greeter"), nullptr);
    }
    static std::string greeting(const std::shared_ptr<platform::Object>& object) {
        const auto* greeter = dynamic_cast<Greeting*>(object.get());
        return greeter ? greeter->greeting() : "no greeter";
    }
};

TEST_F(DynamicLibrary, RegistersItsClassesWhileItIsOpen) {
    putModule("greeter", library);
    EXPECT_EQ(objc_getClass("Greeter"), nullptr);
    void* handle = open();
    ASSERT_NE(handle, nullptr) << platform::dlerror();
    EXPECT_EQ(platform::dlerror(), "");
    ASSERT_NE(objc_getClass("Greeter"), nullptr);
    EXPECT_EQ(greeting(objc_getClass("Greeter")->create()), "hello");
    platform::dlclose(handle);
    EXPECT_EQ(objc_getClass("Greeter"), nullptr);
}

TEST_F(DynamicLibrary, KeepsItsClassesUntilTheLastHandleGoes) {
    putModule("greeter", library);
    void* first = open();
    void* second = open();
    EXPECT_EQ(first, second);
    platform::dlclose(first);
    EXPECT_NE(objc_getClass("Greeter"), nullptr);
    platform::dlclose(second);
    EXPECT_EQ(objc_getClass("Greeter"), nullptr);
}

TEST_F(DynamicLibrary, OpensAgainAfterItWasClosed) {
    putModule("greeter", library);
    platform::dlclose(open());
    void* handle = open();
    EXPECT_NE(objc_getClass("Greeter"), nullptr);
    platform::dlclose(handle);
}

TEST_F(DynamicLibrary, StaysMappedForObjectsReleasedLate) {
    putModule("greeter", library);
    void* handle = open();
    auto object = objc_getClass("Greeter")->create();
    platform::dlclose(handle);
    EXPECT_EQ(greeting(object), "hello");
    object.reset();
}

TEST_F(DynamicLibrary, IsTheSameThroughALinkAndByItsOwnName) {
    putModule("greeter", "/usr/lib/real.so");
    fs::create_symlink(onDisk("/usr/lib/real.so"), onDisk(library));
    void* linked = open();
    ASSERT_NE(linked, nullptr) << platform::dlerror();
    EXPECT_EQ(open("/usr/lib/real.so"), linked);
    platform::dlclose(linked);
    platform::dlclose(linked);
    EXPECT_EQ(objc_getClass("Greeter"), nullptr);
}

TEST_F(DynamicLibrary, HidesTheClassesOfALibraryOpenedEarlier) {
    putModule("greeter", library);
    putModule("rival", "/usr/lib/rival.so");
    void* greeter = open();
    void* rival = open("/usr/lib/rival.so");
    EXPECT_EQ(greeting(objc_getClass("Greeter")->create()), "goodbye");
    platform::dlclose(rival);
    EXPECT_EQ(greeting(objc_getClass("Greeter")->create()), "hello");
    platform::dlclose(greeter);
}

TEST_F(DynamicLibrary, ReturnsClassMethodsAcrossItsBoundary) {
    putModule("greeter", library);
    void* handle = open();
    const auto* methods = objc_getClass("Greeter")->classMethods<Greeting>();
    ASSERT_NE(methods, nullptr);
    EXPECT_EQ(methods->greeting(), "hello from the class");
    EXPECT_EQ(objc_getClass("AbstractGreeter")->create(), nullptr);
    platform::dlclose(handle);
}

TEST_F(DynamicLibrary, ThrowsThePlatformsExceptionAcrossItsBoundary) {
    putModule("greeter", library);
    void* handle = open();
    const auto object = objc_getClass("Greeter")->create();
    EXPECT_THROW(dynamic_cast<Greeting&>(*object).refuse(), platform::NSException);
    platform::dlclose(handle);
}

TEST_F(DynamicLibrary, ClosesNothingForNullOrAHandleThatIsNotOpen) {
    putModule("greeter", library);
    platform::dlclose(nullptr);
    void* handle = open();
    int other = 0;
    platform::dlclose(&other);
    EXPECT_NE(objc_getClass("Greeter"), nullptr);
    platform::dlclose(handle);
    platform::dlclose(handle);
    void* again = open();
    EXPECT_NE(objc_getClass("Greeter"), nullptr) << "a handle too many was given back";
    platform::dlclose(again);
}

TEST_F(DynamicLibrary, IsRefusedWithItsPathWhenMissing) {
    expectRefused(library, onDisk(library));
}

TEST_F(DynamicLibrary, IsRefusedUnlessItIsALibrary) {
    putModule("greeter", library);
    writeFile(library, "no library");
    expectRefused(library, onDisk(library));
}

TEST_F(DynamicLibrary, IsRefusedWithoutAClassTable) {
    putModule("classless", library);
    expectRefused(library, "wardlock_classes");
}

TEST_F(DynamicLibrary, IsRefusedWhenItIsAFolder) {
    makeFolder("/usr/lib/folder");
    expectRefused("/usr/lib/folder", "not a file");
}

TEST_F(DynamicLibrary, IsRefusedWhenEveryUserCanChangeIt) {
    putModule("greeter", library);
    setMode(library, 0757);
    expectRefused(library, "can be changed by every user");
}

TEST_F(DynamicLibrary, IsRefusedInAFolderThatEveryUserCanChange) {
    putModule("greeter", library);
    setMode("/Library/MobileSubstrate/DynamicLibraries", 01777);
    expectRefused(library, "can be changed by every user");
}

TEST_F(DynamicLibrary, IsRefusedWhenEveryUserCanChangeTheFolderOfItsTarget) {
    putModule("greeter", "/tmp/open/real.so");
    setMode("/tmp/open", 0777);
    fs::create_symlink(onDisk("/tmp/open/real.so"), onDisk(library));
    expectRefused(library, "can be changed by every user");
}

TEST_F(DynamicLibrary, IsRefusedWhenAForeignGroupCanChangeIt) {
    SKIP_WITHOUT_OTHER_USER();
    putModule("greeter", library);
    ASSERT_EQ(::chown(onDisk(library).c_str(), 0, 65534), 0);
    setMode(library, 0770);
    expectRefused(library, "can be changed by a group of users");
}

TEST_F(DynamicLibrary, IsOpenedWhenTheUsersOwnGroupCanChangeIt) {
    // Root has a group alone everywhere; whether an ordinary user has one is the machine's affair.
    SKIP_WITHOUT_OTHER_USER();
    putModule("greeter", library);
    setMode(library, 0775);
    void* handle = open();
    EXPECT_NE(handle, nullptr) << platform::dlerror();
    platform::dlclose(handle);
}

TEST_F(DynamicLibrary, IsRefusedWhenItBelongsToAnotherUser) {
    SKIP_WITHOUT_OTHER_USER();
    putModule("greeter", library);
    ASSERT_EQ(::chown(onDisk(library).c_str(), 65534, 65534), 0);
    expectRefused(library, "belongs to another user");
}

TEST_F(DynamicLibrary, ReportsEachThreadItsOwnReason) {
    expectRefused(library, onDisk(library));
    std::string inThread = "unset";
    std::thread([&] { inThread = platform::dlerror(); }).join();
    EXPECT_EQ(inThread, "");
    putModule("greeter", library);
    platform::dlclose(open());
    EXPECT_EQ(platform::dlerror(), "");
}

} // namespace
} // namespace wardlock::test
