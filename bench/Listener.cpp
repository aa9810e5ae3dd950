#include "bench/Listener.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <poll.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <time.h>
#include <unistd.h>

namespace wardlock::bench {

namespace {

constexpr const char* pipeVariable = "WARDLOCK_BENCH_REPLIES";
constexpr std::uint64_t readyValue = UINT64_MAX;
constexpr int startMilliseconds = 10'000;
constexpr int replyMilliseconds = 2'000;
constexpr int warmUps = 20;
constexpr int toleratedLosses = 5;

int eventCount() {
    const char* events = std::getenv("BENCH_EVENTS");
    return events ? std::atoi(events) : 1000;
}

/// Waits until both processes are idle, so that one event's end is not part of the next.
void pauseBetweenEvents() {
    constexpr timespec millisecond{0, 1'000'000};
    nanosleep(&millisecond, nullptr);
}

} // namespace

Listener::Listener(const std::vector<std::string>& arguments) {
    int ends[2];
    if (pipe(ends) != 0)
        std::exit(1);
    std::vector<char*> words;
    char self[] = "/proc/self/exe";
    words.push_back(self);
    for (const std::string& argument : arguments)
        words.push_back(const_cast<char*>(argument.c_str()));
    words.push_back(nullptr);
    setenv(pipeVariable, std::to_string(ends[1]).c_str(), 1);
    process_ = fork();
    if (process_ == 0) {
        prctl(PR_SET_PDEATHSIG, SIGTERM);
        close(ends[0]);
        execv(self, words.data());
        _exit(127);
    }
    close(ends[1]);
    replies_ = ends[0];
    Reply reply;
    if (!receive(reply, startMilliseconds) || reply.value != readyValue) {
        std::fputs("the listener did not start\n", stderr);
        kill(process_, SIGTERM);
        std::exit(1);
    }
}

Listener::~Listener() {
    kill(process_, SIGTERM);
    waitpid(process_, nullptr, 0);
    close(replies_);
}

void Listener::measure(const Row& row, const std::function<void(bool)>& change) {
    const Measured measured{row, *this, change};
    Samples samples;
    int lost = 0;
    for (int i = -warmUps; i < eventCount() && lost < toleratedLosses; ++i)
        lost += !measureOnce(measured, i & 1, i < 0 ? nullptr : &samples);
    reportWith(measured, std::move(samples), lost);
}

void Listener::measureInterleaved(const Measured& one, const Measured& other) {
    Samples ofOne, ofOther;
    int lostByOne = 0, lostByOther = 0;
    for (int i = -warmUps; i < eventCount() && std::max(lostByOne, lostByOther) < toleratedLosses; ++i)
        for (const bool first : {i % 2 == 0, i % 2 != 0}) {
            Samples* const samples = first ? &ofOne : &ofOther;
            const bool arrived = measureOnce(first ? one : other, i & 1, i < 0 ? nullptr : samples);
            (first ? lostByOne : lostByOther) += !arrived;
        }
    reportWith(one, std::move(ofOne), lostByOne);
    reportWith(other, std::move(ofOther), lostByOther);
}

bool Listener::measureOnce(const Measured& measured, bool value, Samples* samples) {
    pauseBetweenEvents();
    const std::uint64_t start = wallNanoseconds();
    measured.change(value);
    const std::uint64_t seen = measured.listener.timeOf(value);
    if (seen != 0 && samples)
        samples->wall.push_back(static_cast<double>(seen - start));
    return seen != 0;
}

void Listener::reportWith(const Measured& measured, Samples samples, int lost) {
    const int stale = measured.listener.stale_;
    if (lost || stale)
        std::fprintf(stderr, "%s %s: %d lost, %d stale callbacks\n", measured.row.operation.c_str(),
                     measured.row.name.c_str(), lost, stale);
    if (lost < toleratedLosses)
        report(measured.row, "ns", std::move(samples));
}

std::uint64_t Listener::timeOf(bool value) const {
    Reply reply;
    while (receive(reply, replyMilliseconds)) {
        if (reply.value == static_cast<std::uint64_t>(value))
            return reply.time;
        ++stale_;
    }
    return 0;
}

bool Listener::receive(Reply& reply, int milliseconds) const {
    pollfd wait{replies_, POLLIN, 0};
    return poll(&wait, 1, milliseconds) == 1 &&
           read(replies_, &reply, sizeof reply) == static_cast<ssize_t>(sizeof reply);
}

void Listener::send(std::uint64_t value) {
    static const int descriptor = std::atoi(std::getenv(pipeVariable));
    const Reply reply{wallNanoseconds(), value};
    if (write(descriptor, &reply, sizeof reply) != static_cast<ssize_t>(sizeof reply))
        _exit(0);
}

void Listener::ready() {
    send(readyValue);
}

void Listener::saw(bool value) {
    send(value);
}

} // namespace wardlock::bench
