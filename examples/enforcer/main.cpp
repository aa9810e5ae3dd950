// A program that enforces the settings. What a home screen would ask it comes as lines on standard input,
//
//     camera | siri | volume     may the child use it?
//     open IDENTIFIER            may the child open this application?
//     fail                       what becomes of a mistake in this program?
//
// and is answered by "yes" or "no". Changes are told as they come, and what they leave restricted. It ends at
// the end of its input, or by SIGTERM. README.md beside this file walks through it.

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

std::string answer(const std::string& question) {
    constexpr std::string_view open = "open ";
    if (question.starts_with(open))
        return restrictions::allowsApplication(std::string_view(question).substr(open.size())) ? "yes" : "no";
    if (const auto* feature = restrictions::feature(question))
        return restrictions::allows(*feature) ? "yes" : "no";
    if (question == "fail")
        platform::Array().at(1); // An index beyond the end, as a mistake would have it.
    return "?";
}

/// Called from MainLoop::process() when the settings have been read anew: every look-up already answers with
/// the new state. Key and value say what was changed, and are valid during the call only.
void settingsChanged(const platform::Value* key, const platform::Value* value) {
    std::cout << platform::stringWithFormat("changed: %@ = %@", key, value) << std::endl;
}

/// Does what a change asks for: a real program would close the camera that has just been restricted. It
/// compares what is with what was, and leaves the callback's key and value to whoever tells people: after a
/// lost bus has come back the settings are read anew without that call.
void enforce() {
    static std::string inForce;
    const std::string now = restrictions::summary();
    if (now != inForce)
        std::cout << "restricted: " << now << std::endl;
    inForce = now;
}

/// When an exception ends the process, its report waits in the main queue, which would not run again. This is
/// called after the report is made and before the end. The queue belongs to the main thread.
void writeWhatIsQueued() {
    if (platform::NSOperationQueue::isMainThread())
        platform::NSOperationQueue::mainQueue().drain();
}

void start() {
    // A mistake in this program ends it; these two put a report of it into the log on the device,
    // /var/mobile/com.tavix.wardlock_log, which the parent can mail to the maker.
    platform::NSSetUncaughtExceptionHandler(wardlock::TweakExceptionHandler);
    platform::setTerminationHook(writeWhatIsQueued);
    // Once per process. It listens first and reads then, so no change falls between; where there is no
    // document yet, this is what makes the default one.
    wardlock::InitSettingsWithUpdateNameAndCallback(wardlock::PostName, settingsChanged);
    wardlock::jLog("enforcer started");
}

/// Answers the whole lines that have come; false at the end of the input.
bool answerQuestions(std::string& pending) {
    char bytes[4096];
    const ssize_t count = read(STDIN_FILENO, bytes, sizeof bytes);
    if (count <= 0)
        return false;
    pending.append(bytes, static_cast<std::size_t>(count));
    for (std::size_t end; (end = pending.find('\n')) != std::string::npos; pending.erase(0, end + 1))
        std::cout << answer(pending.substr(0, end)) << std::endl;
    return true;
}

/// A descriptor that is readable when one of the signals has come that ask the program to end.
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
        // The library needs nothing else: no thread, no timer. One descriptor, and this call when it is
        // readable.
        if (watched[0].revents)
            settings.process();
        if (watched[1].revents || (watched[2].revents && !answerQuestions(pending)))
            return;
    }
}

} // namespace

int main() {
    // Whatever is thrown in here and not caught ends the program, with its report.
    platform::callOrTerminate([] {
        start();
        std::cout << "ready" << std::endl;
        obeyUntilTheEnd();
        // There is nothing to close: the settings are never written back, and the bus notices. Only the log
        // may hold entries that the loop has not come to.
        platform::NSOperationQueue::mainQueue().drain();
    });
}
