#include "cli/command/Commands.h"
#include "cli/io/Output.h"
#include "platform/files/DeviceRoot.h"
#include "shell/device/DemonstrationDevice.h"
#include "shell/device/Provision.h"

#include <array>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

namespace wardlock::cli {

namespace {

namespace fs = std::filesystem;

constexpr Option demoOption{"--demo", "", "add about forty sample applications, and an outbox for mail"};
constexpr std::array deviceOptions{demoOption};

/// Makes the folder the device root of this process and of the notifications it sends.
void useDeviceRoot(std::string_view folder) {
    std::error_code error;
    const fs::path root = fs::absolute(fs::path(folder), error).lexically_normal();
    if (folder.empty() || error)
        throw CommandError(ExitCode::WrongUsage, "'" + std::string(folder) + "' is not a folder name");
    if (root == root.root_path())
        throw CommandError(ExitCode::WrongUsage, "cannot create a device root in '/'");
    // NOLINTNEXTLINE(concurrency-mt-unsafe): no other thread runs yet
    setenv("WARDLOCK_DEVICE_ROOT", root.c_str(), 1);
}

ExitCode initialise(const Arguments& arguments) {
    useDeviceRoot(arguments.operand(0));
    std::vector<std::string> problems;
    const auto furnish = [&] {
        if (arguments.has(demoOption.name))
            problems = shell::furnishDemonstration();
    };
    const shell::Provision provision(furnish);
    problems.insert(problems.begin(), provision.problems().begin(), provision.problems().end());
    for (const std::string& problem : problems)
        Output::error("wardlock device init: " + problem);
    if (!problems.empty())
        return ExitCode::Failed;
    Output::foreignLine(platform::deviceRoot());
    return ExitCode::Done;
}

} // namespace

const Verb deviceInitVerb{
    "device init",
    "DIR",
    "create a device root for WARDLOCK_DEVICE_ROOT",
    "Creates in DIR what a device root needs: its folders, links to the installed\n"
    "settings bundle and application list, and the default preferences document.\n"
    "Existing files are not changed. Prints the path of the root.\n"
    "\n"
    "With --demo, also adds sample applications with icons, and an outbox that\n"
    "receives support mail.\n",
    deviceOptions,
    1,
    1,
    initialise,
};

} // namespace wardlock::cli
