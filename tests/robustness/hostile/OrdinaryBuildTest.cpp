// A build in an ordinary user's folder stays of use: to that user, and to root, who runs it.

#include "tests/robustness/hostile/HostileFixture.h"
#include "tests/support/BuildPaths.h"
#include "tests/support/Process.h"

#include <filesystem>
#include <unistd.h>

namespace wardlock::test {
namespace {

namespace fs = std::filesystem;

/// Its output names the path of everything that it is asked for.
class OrdinaryBuild : public HostileFixture {
protected:
    /// Copies what a program needs of this build into a folder of the other user.
    void copyBuild() const {
        for (const char* part : {"/bin", "/lib/wardlock"})
            fs::create_directories(build() + part);
        fs::copy(programFolder() + "/wardlock", build() + "/bin");
        fs::copy(buildFolder() + "/lib/wardlock", build() + "/lib/wardlock", fs::copy_options::recursive);
        for (const char* library : {"/lib/libwardlock-platform.so.0", "/lib/libwardlock-settings.so.0"})
            fs::copy(buildFolder() + library, build() + library);
        letOthersIn();
        for (const auto& entry : fs::recursive_directory_iterator(build()))
            OtherUser::give(entry.path());
        OtherUser::give(build());
    }
    std::string build() const { return folder() / "build"; }

    /// What a copied program reports of the bundle and the module it loads.
    ProcessResult doctor() const {
        ProcessSetup setup;
        setup.environment["LD_LIBRARY_PATH"] = build() + "/lib";
        setup.environment["WARDLOCK_DEVICE_ROOT"] = build() + "/device";
        EXPECT_EQ(runProcess(program(), {"device", "init", build() + "/device"}, setup).exitCode, 0);
        return runProcess(program(), {"doctor"}, setup);
    }
    std::string program() const { return build() + "/bin/wardlock"; }
    static testing::AssertionResult loadsBoth(const ProcessResult& result) {
        const bool both = result.output.find("WardlockSettings.bundle loads") != std::string::npos &&
                          result.output.find("AppList.dylib loads") != std::string::npos;
        return both ? testing::AssertionSuccess() : testing::AssertionFailure() << result.output;
    }
};

TEST_F(OrdinaryBuild, ServesRootToo) {
    SKIP_WITHOUT_OTHER_USER();
    copyBuild();
    EXPECT_TRUE(loadsBoth(doctor()));
}

TEST_F(OrdinaryBuild, ServesBelowAFolderThatEveryUserCanChange) {
    SKIP_WITHOUT_OTHER_USER();
    copyBuild();
    letOthersWrite(folder().path());
    letOthersWrite(build());
    EXPECT_TRUE(loadsBoth(doctor()));
}

TEST_F(OrdinaryBuild, ServesItsUser) {
    SKIP_WITHOUT_OTHER_USER();
    copyBuild();
    EXPECT_EQ(OtherUser::does([&] { return loadsBoth(doctor()) ? 0 : 1; }), 0);
}

TEST_F(OrdinaryBuild, DoesNotMakeRootTrustThatUserElsewhere) {
    SKIP_WITHOUT_OTHER_USER();
    copyBuild();
    ASSERT_TRUE(loadsBoth(doctor()));
    // The same device, looked at by a program that is root's own.
    const ProcessSetup setup{{{"WARDLOCK_DEVICE_ROOT", build() + "/device"}}, "", false};
    const ProcessResult result = runProcess(programFolder() + "/wardlock", {"doctor"}, setup);
    EXPECT_NE(result.output.find("belongs to another user"), std::string::npos) << result.output;
}

} // namespace
} // namespace wardlock::test
