#include "cli/command/Commands.h"
#include "cli/command/DeviceRootChoice.h"
#include "cli/io/Output.h"
#include "platform/files/DeviceRoot.h"
#include "shell/device/DemonstrationDevice.h"
#include "shell/device/Provision.h"

#include <array>
#include <string>
#include <vector>

namespace wardlock::cli {

namespace {

constexpr Option demoOption{"--demo", "", "add about forty sample applications, and an outbox for mail"};
constexpr std::array deviceOptions{demoOption};

ExitCode initialise(const Arguments& arguments) {
    useDeviceRoot(arguments.operand(0));
    if (platform::deviceRoot() == "/")
        throw CommandError(ExitCode::WrongUsage, "cannot create a device root in '/'");
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
    "wardlock device init --demo ~/device\n",
};

} // namespace wardlock::cli
