// A program that enforces the settings. What a home screen would ask it comes as lines on standard input:
//
//     camera | siri | volume     may the child use it?
//     open IDENTIFIER            may the child open this application?
//     fail                       what happens after a mistake in this program?
//
// It replies with "yes" or "no". It prints each change when it arrives, and what is restricted then. It ends
// at the end of its input, or by SIGTERM. README.md beside this file explains it step by step.

#include "Restrictions.h"

#include <csignal>
#include <iostream>
#include <iterator>
#include <poll.h>
#include <string>
#include <sys/signalfd.h>
#include <unistd.h>
#include <wardlock/platform/runtime/ExceptionBoundary.h>
#include <wardlock/platform/runtime/MainLoop.h>
#include <wardlock/platform/runtime/NSOperationQueue.h>
#include <wardlock/platform/text/Format.h>
#include <wardlock/platform/values/NSException.h>
#include <wardlock/settings/Constants.h>
#include <wardlock/settings/ExceptionReport.h>
#include <wardlock/settings/Log.h>
#include <wardlock/settings/Settings.h>

namespace {

std::string reply(const std::string& question) {
    constexpr std::string_view open = "open ";
    if (question.starts_with(open))
        return restrictions::allowsApplication(std::string_view(question).substr(open.size())) ? "yes" : "no";
    if (const auto* feature = restrictions::feature(question))
        return restrictions::allows(*feature) ? "yes" : "no";
    if (question == "fail")
        platform::Array().at(1); // An index beyond the end: a typical mistake.
    return "?";
}

/// Called from MainLoop::process() after the settings have been read again: every look-up already returns the
/// new state. `key` and `value` are what was changed, and are valid during the call only.
void settingsChanged(const platform::Value* key, const platform::Value* value) {
    std::cout << platform::stringWithFormat("changed: %@ = %@", key, value) << std::endl;
}

/// Does what a change asks for: a real program would close the camera that has just been restricted. It
/// compares the restrictions with the earlier ones instead of using the callback's key and value. After a
/// lost bus has come back the settings are read again without that call.
void enforce() {
    static std::string inForce;
    const std::string now = restrictions::summary();
    if (now != inForce)
        std::cout << "restricted: " << now << std::endl;
    inForce = now;
}

/// When an exception ends the process, its report waits in the main queue, which would not run again. This
/// function is called after the report is made and before the end. The queue belongs to the main thread.
void writeWhatIsQueued() {
    if (platform::NSOperationQueue::isMainThread())
        platform::NSOperationQueue::mainQueue().drain();
}

void start() {
    // A mistake in this program ends it. These two calls write a report of it into the log on the device,
    // /var/mobile/com.tavix.wardlock_log, which the parent can mail to the maker.
    platform::NSSetUncaughtExceptionHandler(wardlock::TweakExceptionHandler);
    platform::setTerminationHook(writeWhatIsQueued);
    // Once per process. It registers the observer first and reads then, so no change is missed. Where there
    // is no document yet, this call creates the default one.
    wardlock::InitSettingsWithUpdateNameAndCallback(wardlock::PostName, settingsChanged);
    wardlock::jLog("enforcer started");
}

/// Replies to each whole line that has arrived. Returns false at the end of the input.
bool replyToQuestions(std::string& pending) {
    char bytes[4096];
    const ssize_t count = read(STDIN_FILENO, bytes, sizeof bytes);
    if (count <= 0)
        return false;
    pending.append(bytes, static_cast<std::size_t>(count));
    for (std::size_t end; (end = pending.find('\n')) != std::string::npos; pending.erase(0, end + 1))
        std::cout << reply(pending.substr(0, end)) << std::endl;
    return true;
}

/// Returns a descriptor that is readable when a signal has arrived that asks the program to end.
int signalsToEnd() {
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGTERM);
    sigaddset(&signals, SIGINT);
    sigprocmask(SIG_BLOCK, &signals, nullptr);
    return signalfd(-1, &signals, SFD_CLOEXEC);
}

void obeyUntilTheEnd() {
    auto& settings = platform::MainLoop::shared();
    pollfd watched[] = {
        {settings.descriptor(), POLLIN, 0}, {signalsToEnd(), POLLIN, 0}, {STDIN_FILENO, POLLIN, 0}};
    std::string pending;
    while (true) {
        enforce();
        if (poll(watched, std::size(watched), -1) < 0)
            continue;
        // The library needs nothing else: no thread, no timer. It needs one descriptor, and this call when it
        // is readable.
        if (watched[0].revents)
            settings.process();
        if (watched[1].revents || (watched[2].revents && !replyToQuestions(pending)))
            return;
    }
}

} // namespace

int main() {
    // An exception that is thrown in here and not caught ends the program, with its report.
    platform::callOrTerminate([] {
        start();
        std::cout << "ready" << std::endl;
        obeyUntilTheEnd();
        // There is nothing to close: the settings are never written back, and the bus notices the end. Only
        // the log may have entries that the loop has not written yet.
        platform::NSOperationQueue::mainQueue().drain();
    });
}
