// Wardlock's window, measured from within.
//
//   bench-settings-window picker    10,000 rows, from the ready model until they are painted
//   bench-settings-window scroll    frames of the picker while it scrolls
//   bench-settings-window pages     resident memory when every page but the web page was open

#include "bench/InstalledApplications.h"
#include "bench/ProvisionedDevice.h"
#include "bench/SampleDocument.h"
#include "bench/SimulatedUser.h"
#include "bench/window/FrameWatch.h"
#include "platform/files/DeviceRoot.h"
#include "platform/plist/PropertyList.h"
#include "platform/services/ALApplicationList.h"
#include "settings/Keys.h"
#include "shell/input/ManualClock.h"
#include "window/WindowHost.h"

#include <QGuiApplication>

#include <cstdio>
#include <filesystem>
#include <string_view>

using namespace wardlock;
using namespace wardlock::bench;

namespace {

constexpr int times = 15;

/// Restarts the clock when the pages are ready and the window is about to show one more.
class FromReadyModel final {
public:
    FromReadyModel(window::SettingsWindow& window, FrameWatch& watch) {
        QObject::connect(window.pages(), &QAbstractItemModel::rowsAboutToBeInserted, &connection_,
                         [&watch] { watch.start(); });
    }

private:
    QObject connection_;
};

/// Returns one account that restricts as many applications as the default one, all of them installed: every
/// row of the picker has a name.
platform::Dictionary document() {
    constexpr std::size_t restricted = 9;
    platform::MutableDictionary document(sampleDocument(1));
    platform::MutableDictionary account(platform::arrayValue(document.find(kAccounts))->at(0).dictionary());
    platform::MutableArray identifiers;
    for (std::size_t i = 0; i < restricted; ++i)
        identifiers.append(sampleIdentifier(i));
    account.set(kAppsRestricted, identifiers.copy());
    document.set(kAccounts, platform::Array{account.copy()});
    return document.copy();
}

/// The window, with the pages of a device of its own.
struct Opened {
    ProvisionedDevice device{platform::dataWithPropertyList(document())};
    shell::ManualClock clock;
    window::WindowHost host{clock, 0};
    SimulatedUser user{host.settings().application()};
};

/// The rows come from the benchmark, not from the machine.
void goToAccount(SimulatedUser& user) {
    std::filesystem::remove(platform::pathOnDevice(platform::appListLibraryPath));
    user.tap("Wardlock");
    user.tap({1, 0});
}

void measurePicker(Opened& opened) {
    FrameWatch watch(*opened.host.window());
    const InstalledApplications installed(pickerRows);
    goToAccount(opened.user);
    const auto apps = opened.user.find("Apps");
    Samples samples;
    for (int i = 0; i <= times; ++i) {
        watch.settle();
        {
            const FromReadyModel ready(opened.host.settings(), watch);
            opened.user.tap(apps);
        }
        watch.finish(samples);
        watch.settle();
        opened.user.goBack();
        if (i == 0)
            samples = {};
    }
    report({"picker", "project", "wardlock"}, "ns", std::move(samples));
}

void measureScroll(Opened& opened) {
    const InstalledApplications installed(pickerRows);
    goToAccount(opened.user);
    opened.user.tap("Apps");
    FrameWatch watch(*opened.host.window());
    watch.settle();
    watch.measureScrolling({"scroll", "project", "wardlock"});
}

/// Stays open until the process is ended, so that other programs can measure it.
int visitPages(Opened& opened) {
    FrameWatch watch(*opened.host.window());
    SimulatedUser& user = opened.user;
    const auto look = [&](std::string_view label) {
        user.tap(label);
        watch.settle();
    };
    look("Wardlock");
    look("Change Log");
    user.goBack();
    look("Account 0 & family");
    look("Apps");
    user.goBack();
    user.goBack();
    watch.settle();
    std::puts("ready");
    std::fflush(stdout);
    return QGuiApplication::exec();
}

} // namespace

int main(int count, char** words) {
    QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
    const QGuiApplication application(count, words);
    const std::string_view verb = count > 1 ? words[1] : "";
    Opened opened;
    if (!opened.host.window())
        return 1;
    opened.host.window()->show();
    if (verb == "pages")
        return visitPages(opened);
    if (verb == "picker")
        measurePicker(opened);
    else if (verb == "scroll")
        measureScroll(opened);
    else
        return notOffered;
    return 0;
}
