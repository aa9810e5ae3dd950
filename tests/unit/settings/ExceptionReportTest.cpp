#include "settings/ExceptionReport.h"

#include "platform/runtime/ExceptionBoundary.h"
#include "platform/runtime/NSOperationQueue.h"
#include "platform/text/Format.h"
#include "tests/support/SettingsFixture.h"

#include <gtest/gtest.h>

#include <csignal>
#include <string>

using namespace wardlock;
using platform::Dictionary;
using platform::NSException;
using platform::NSOperationQueue;

namespace {

class ExceptionReport : public test::SettingsFixture {
protected:
    std::string report(const NSException& exception) {
        TweakExceptionHandler(exception);
        NSOperationQueue::mainQueue().drain();
        return readFile(logPath);
    }
};

const std::string separator = "\n\n" + std::string(63, '-') + "\n\n";

} // namespace

TEST_F(ExceptionReport, IsOneEntryWithEveryDetail) {
    const NSException exception("SomeException", "some reason", Dictionary{{"index", 3}});
    EXPECT_EQ(report(exception),
              "\n" + separator +
                  "Exception Caught\n\nName: SomeException\nReason: some reason\nInfo: {\n    index = 3;\n}\n"
                  "Return Address: " +
                  platform::description(exception.callStackReturnAddresses()) +
                  "\nCall Stack: " + platform::description(exception.callStackSymbols()) + separator);
}

TEST_F(ExceptionReport, ShowsTheNullTextWithoutUserInfo) {
    const std::string text = report(NSException("N", "R"));
    const std::string beginning =
        "\n" + separator + "Exception Caught\n\nName: N\nReason: R\nInfo: (null)\nReturn Address: (\n";
    EXPECT_EQ(text.substr(0, beginning.size()), beginning);
    EXPECT_TRUE(text.ends_with(")" + separator));
}

TEST_F(ExceptionReport, KeepsConversionsInWhatItReports) {
    const std::string text = report(NSException("%@", "100%d"));
    EXPECT_NE(text.find("Name: %@\nReason: 100%d\n"), std::string::npos);
}

TEST_F(ExceptionReport, IsQueuedOnly) {
    TweakExceptionHandler(NSException("N", "R"));
    EXPECT_FALSE(exists(logPath));
    NSOperationQueue::mainQueue().drain();
    EXPECT_TRUE(exists(logPath));
}

using FinalExceptionReport = ExceptionReport;

TEST_F(FinalExceptionReport, ReachesTheLogWhenTheQueueRunsBeforeTheEnd) {
    EXPECT_EXIT(
        {
            platform::NSSetUncaughtExceptionHandler(TweakExceptionHandler);
            platform::setTerminationHook(+[]() { NSOperationQueue::mainQueue().drain(); });
            platform::callOrTerminate(+[]() { throw NSException("NSRangeException", "beyond the end"); });
        },
        testing::KilledBySignal(SIGABRT), "");
    EXPECT_NE(readFile(logPath).find("Name: NSRangeException\nReason: beyond the end\n"), std::string::npos);
}

TEST_F(FinalExceptionReport, IsLostWhenTheQueueDoesNotRun) {
    EXPECT_EXIT(
        {
            platform::NSSetUncaughtExceptionHandler(TweakExceptionHandler);
            platform::callOrTerminate(+[]() { throw NSException("NSRangeException", "beyond the end"); });
        },
        testing::KilledBySignal(SIGABRT), "NSRangeException: beyond the end");
    EXPECT_FALSE(exists(logPath));
}
