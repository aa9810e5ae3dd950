#include "platform/values/NSException.h"

#include "platform/runtime/ExceptionBoundary.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <dlfcn.h>
#include <stdexcept>
#include <string>
#include <thread>

using namespace platform;

namespace {

[[gnu::noinline]] NSException exceptionMadeHere() {
    return NSException(NSRangeException, "beyond the end", Dictionary{{"index", 3}});
}

void reportException(const NSException& exception) {
    std::fprintf(stderr, "[handler: %s, addresses %s]\n", exception.what(),
                 exception.callStackReturnAddresses().empty() ? "none" : "some");
}

void reportEnd() {
    std::fprintf(stderr, "[termination hook]\n");
}

template <class Exception>
void throwOne(const Exception& exception) {
    throw exception;
}

/// A host that calls what throws.
template <class Exception>
void throwToHost(const Exception& exception) {
    callOrTerminate([&] { throwOne(exception); });
}

struct WithoutMessage : std::exception {
    const char* what() const noexcept override { return nullptr; }
};

} // namespace

TEST(ExceptionBoundary, ReturnsWhatTheCallReturns) {
    int counted = 7;
    EXPECT_EQ(callOrTerminate([&] { return counted; }), 7);
    EXPECT_EQ(&callOrTerminate([&]() -> int& { return counted; }), &counted);
    callOrTerminate([&] { ++counted; });
    EXPECT_EQ(counted, 8);
}

TEST(ExceptionBoundary, LetsTheCallCatchItsOwnExceptions) {
    EXPECT_TRUE(callOrTerminate([] {
        try {
            throwOne(42);
            return false;
        } catch (int) {
            return true;
        }
    }));
}

TEST(NSException, KeepsNameReasonAndUserInfo) {
    const NSException exception = exceptionMadeHere();
    EXPECT_EQ(exception.name(), "NSRangeException");
    EXPECT_EQ(exception.reason(), "beyond the end");
    ASSERT_TRUE(exception.userInfo());
    EXPECT_EQ(*exception.userInfo(), (Dictionary{{"index", 3}}));
    EXPECT_STREQ(exception.what(), "NSRangeException: beyond the end");
}

TEST(NSException, HasNoUserInfoUnlessGiven) {
    EXPECT_FALSE(NSException(NSGenericException, "x").userInfo());
}

TEST(NSException, BeginsItsStackInTheFunctionThatCreatedIt) {
    const NSException exception = exceptionMadeHere();
    const Array& addresses = exception.callStackReturnAddresses();
    ASSERT_GT(addresses.size(), 1U);
    const std::uint64_t function = reinterpret_cast<std::uintptr_t>(&exceptionMadeHere);
    EXPECT_GT(addresses[0].unsignedInteger(), function);
    EXPECT_LT(addresses[0].unsignedInteger(), function + 4096);
}

TEST(NSException, NamesOneSymbolForEachReturnAddress) {
    const NSException exception = exceptionMadeHere();
    EXPECT_EQ(exception.callStackSymbols().size(), exception.callStackReturnAddresses().size());
}

TEST(NSException, NamesTheModuleAndTheAddressInASymbol) {
    const NSException exception = exceptionMadeHere();
    const std::string first(exception.callStackSymbols()[0].string());
    EXPECT_EQ(first.find("values-tests "), 0U);
    EXPECT_NE(first.find(" 0x"), std::string::npos);
}

TEST(NSException, NamesFunctionsThatAModuleExports) {
    // Thrown inside the platform's library, whose own functions are known by name.
    try {
        Array().at(5);
        FAIL() << "nothing was thrown";
    } catch (const NSException& exception) {
        const std::string first(exception.callStackSymbols()[0].string());
        EXPECT_EQ(first.find("libwardlock-platform"), 0U);
        bool named = false;
        const Array symbols = exception.callStackSymbols();
        for (const Value& symbol : symbols)
            named = named || symbol.string().find("platform::Array::at") != std::string_view::npos;
        EXPECT_TRUE(named);
    }
}

TEST(NSException, KeepsItsStackInACopy) {
    const NSException exception = exceptionMadeHere();
    const NSException copy = exception;
    EXPECT_TRUE(copy.callStackReturnAddresses().isSameObject(exception.callStackReturnAddresses()));
}

TEST(UncaughtException, HasNoHandlerAtFirst) {
    EXPECT_EQ(NSGetUncaughtExceptionHandler(), nullptr);
}

TEST(UncaughtException, ReturnsTheHandlerThatWasSetLast) {
    NSSetUncaughtExceptionHandler(reportException);
    NSSetUncaughtExceptionHandler(reportException);
    EXPECT_EQ(NSGetUncaughtExceptionHandler(), &reportException);
    NSSetUncaughtExceptionHandler(nullptr);
    EXPECT_EQ(NSGetUncaughtExceptionHandler(), nullptr);
}

TEST(UncaughtException, RunsTheHandlerAndEndsTheProcess) {
    EXPECT_EXIT(
        {
            NSSetUncaughtExceptionHandler(reportException);
            throwToHost(NSException(NSRangeException, "beyond the end"));
        },
        testing::KilledBySignal(SIGABRT), "\\[handler: NSRangeException: beyond the end, addresses some\\]");
}

TEST(UncaughtException, ReachesTheHandlerAsAGenericOneWhereItIsOfAnotherType) {
    EXPECT_EXIT(
        {
            NSSetUncaughtExceptionHandler(reportException);
            throwToHost(std::runtime_error("disk gone"));
        },
        testing::KilledBySignal(SIGABRT), "\\[handler: NSGenericException: disk gone, addresses some\\]");
}

TEST(UncaughtException, ReachesTheHandlerEvenWhenItIsNotAnException) {
    EXPECT_EXIT(
        {
            NSSetUncaughtExceptionHandler(reportException);
            throwToHost(42);
        },
        testing::KilledBySignal(SIGABRT), "\\[handler: NSGenericException: an exception of an unknown type");
}

TEST(UncaughtException, ReachesTheHandlerWithoutAMessageAndEndsTheProcess) {
    EXPECT_EXIT(
        {
            NSSetUncaughtExceptionHandler(reportException);
            throwToHost(WithoutMessage());
        },
        testing::KilledBySignal(SIGABRT), "\\[handler: NSGenericException: an exception without a message");
}

TEST(UncaughtException, ReachesTheHandlerThroughANoexceptFunctionWithCleanUps) {
    EXPECT_EXIT(
        {
            NSSetUncaughtExceptionHandler(reportException);
            const auto timer = [](const std::string& name) noexcept {
                const std::string copy = name + " of a length that needs memory of its own";
                callOrTerminate([&] { throwOne(NSException(NSRangeException, copy)); });
            };
            timer("a timer");
        },
        testing::KilledBySignal(SIGABRT), "\\[handler: NSRangeException: a timer of a length");
}

TEST(UncaughtException, ReportsATerminationWithoutAnException) {
    EXPECT_EXIT(
        {
            NSSetUncaughtExceptionHandler(reportException);
            std::terminate();
        },
        testing::KilledBySignal(SIGABRT),
        "\\[handler: NSGenericException: terminated without an exception, addresses some\\]");
}

TEST(UncaughtException, RunsTheHandlerInAnyThread) {
    EXPECT_EXIT(
        {
            NSSetUncaughtExceptionHandler(reportException);
            std::thread([] { throw NSException(NSRangeException, "elsewhere"); }).join();
        },
        testing::KilledBySignal(SIGABRT), "\\[handler: NSRangeException: elsewhere");
}

TEST(UncaughtException, RunsTheTerminationHookAfterTheHandler) {
    EXPECT_EXIT(
        {
            NSSetUncaughtExceptionHandler(reportException);
            setTerminationHook(reportEnd);
            throwToHost(NSException(NSRangeException, "x"));
        },
        testing::KilledBySignal(SIGABRT), "\\[handler: [^]]*\\]\n\\[termination hook\\]");
}

TEST(UncaughtException, RunsTheTerminationHookWithoutAHandler) {
    EXPECT_EXIT(
        {
            setTerminationHook(reportEnd);
            throwToHost(NSException(NSRangeException, "x"));
        },
        testing::KilledBySignal(SIGABRT), "\\[termination hook\\]");
}

TEST(UncaughtException, RunsTheTerminationHookWhenTheHandlerThrows) {
    EXPECT_EXIT(
        {
            NSSetUncaughtExceptionHandler(+[](const NSException&) { throw std::runtime_error("handler"); });
            setTerminationHook(reportEnd);
            throwToHost(NSException(NSRangeException, "x"));
        },
        testing::KilledBySignal(SIGABRT), "\\[termination hook\\]");
}

TEST(UncaughtException, RunsTheTerminationHookOnce) {
    EXPECT_EXIT(
        {
            setTerminationHook(+[]() {
                reportEnd();
                std::terminate();
            });
            throwToHost(NSException(NSRangeException, "x"));
        },
        testing::KilledBySignal(SIGABRT), "\\[termination hook\\]\n[^[]*$");
}

TEST(UncaughtException, EndsTheProcessAfterTheHandlerWasRemoved) {
    EXPECT_EXIT(
        {
            NSSetUncaughtExceptionHandler(reportException);
            NSSetUncaughtExceptionHandler(nullptr);
            throwToHost(NSException(NSRangeException, "x"));
        },
        testing::KilledBySignal(SIGABRT), "NSRangeException: x");
}
