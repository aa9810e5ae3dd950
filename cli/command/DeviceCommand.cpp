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

constexpr Option demoOption{"--demo", "", "add some forty applications and an outbox for mails"};
constexpr std::array deviceOptions{demoOption};

/// The folder becomes the device root of this process, and of the bus's messages with it.
void useDeviceRoot(std::string_view folder) {
    std::error_code error;
    const fs::path root = fs::absolute(fs::path(folder), error).lexically_normal();
    if (folder.empty() || error)
        throw CommandError(ExitCode::WrongUsage, "DIR is no folder's name");
    if (root == root.root_path())
        throw CommandError(ExitCode::WrongUsage, "the machine's own root is not made by this command");
    // NOLINTNEXTLINE(concurrency-mt-unsafe): there is one thread yet
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
    "make a device root to use as WARDLOCK_DEVICE_ROOT",
    "Makes in DIR what a device root lacks: its folders, the links to the settings\n"
    "bundle and the application list of this installation, and, where there is no\n"
    "preferences document, the one of a first start. What stands there stays as it\n"
    "is. Prints the root.\n"
    "\n"
    "With --demo the device also gets invented applications with icons, and an\n"
    "outbox in which support mails are saved.\n",
    deviceOptions,
    1,
    1,
    initialise,
};

} // namespace wardlock::cli
