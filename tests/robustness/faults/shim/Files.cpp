// Calls upon open files.

#include "tests/robustness/faults/shim/Calls.h"

#include <algorithm>
#include <cstdarg>
#include <cstring>
#include <fcntl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/uio.h>

using namespace wardlock::test::shim;

extern "C" {
int shimOpen(const char* path, int flags, ...) WARDLOCK_STANDS_FOR("open");
int shimOpenat(int folder, const char* path, int flags, ...) WARDLOCK_STANDS_FOR("openat");
int shimFstat(int file, struct stat* found) WARDLOCK_STANDS_FOR("fstat");
ssize_t shimReadlinkat(int file, const char* path, char* room, size_t size) WARDLOCK_STANDS_FOR("readlinkat");
ssize_t shimRead(int file, void* room, size_t size) WARDLOCK_STANDS_FOR("read");
ssize_t shimWrite(int file, const void* bytes, size_t size) WARDLOCK_STANDS_FOR("write");
ssize_t shimPwrite(int file, const void* bytes, size_t size, off_t at) WARDLOCK_STANDS_FOR("pwrite");
int shimFtruncate(int file, off_t size) WARDLOCK_STANDS_FOR("ftruncate");
int shimFlock(int file, int operation) WARDLOCK_STANDS_FOR("flock");
int shimFchmod(int file, mode_t mode) WARDLOCK_STANDS_FOR("fchmod");
int shimFchown(int file, uid_t owner, gid_t group) WARDLOCK_STANDS_FOR("fchown");
int shimFsync(int file) WARDLOCK_STANDS_FOR("fsync");
int shimFdatasync(int file) WARDLOCK_STANDS_FOR("fdatasync");
int shimClose(int file) WARDLOCK_STANDS_FOR("close");
ssize_t shimSendmsg(int socket, const msghdr* message, int flags) WARDLOCK_STANDS_FOR("sendmsg");
}

namespace {

constexpr std::string_view announcement = "com.tavix.wardlock/update";

Call upon(int file, const char* function, Room room = Room::None, std::vector<std::string> more = {}) {
    more.insert(more.begin(), std::to_string(file));
    return {function, room, FaultInjector::shared().pathOf(file), std::move(more)};
}

/// A path that is not whole is taken for one of no interest: the product's are whole.
int openThrough(const char* path, int flags, mode_t mode) {
    static auto* const next = behind<int(const char*, int, mode_t)>("open");
    const std::lock_guard guard(FaultInjector::shared().mutex());
    const bool creates = (flags & O_CREAT) != 0;
    const Call call{creates ? "create" : "open",
                    creates ? Room::Needed : Room::None,
                    path,
                    {path, octal(static_cast<unsigned>(flags)), octal(mode)}};
    const int opened = conduct(path, call, -1, [&](Fate) { return next(path, flags, mode); });
    if (opened >= 0)
        FaultInjector::shared().opened(opened, path);
    return opened;
}

bool announces(const msghdr& message) {
    std::string bytes;
    for (std::size_t part = 0; part < message.msg_iovlen; ++part)
        bytes.append(static_cast<const char*>(message.msg_iov[part].iov_base), message.msg_iov[part].iov_len);
    return bytes.find(announcement) != std::string::npos;
}

} // namespace

int shimOpen(const char* path, int flags, ...) {
    va_list more;
    va_start(more, flags);
    const mode_t mode = (flags & (O_CREAT | O_TMPFILE)) ? va_arg(more, mode_t) : 0;
    va_end(more);
    return openThrough(path, flags, mode);
}

int shimOpenat(int folder, const char* path, int flags, ...) {
    static auto* const next = behind<int(int, const char*, int, mode_t)>("openat");
    va_list more;
    va_start(more, flags);
    const mode_t mode = (flags & (O_CREAT | O_TMPFILE)) ? va_arg(more, mode_t) : 0;
    va_end(more);
    return *path == '/' ? openThrough(path, flags, mode) : next(folder, path, flags, mode);
}

int shimFstat(int file, struct stat* found) {
    static auto* const next = behind<int(int, struct stat*)>("fstat");
    const std::lock_guard guard(FaultInjector::shared().mutex());
    return conduct(file, upon(file, "fstat"), -1, [&](Fate) { return next(file, found); });
}

ssize_t shimReadlinkat(int file, const char* path, char* room, size_t size) {
    static auto* const next = behind<ssize_t(int, const char*, char*, size_t)>("readlinkat");
    const std::lock_guard guard(FaultInjector::shared().mutex());
    return conduct(file, upon(file, "readlinkat"), ssize_t(-1),
                   [&](Fate) { return next(file, path, room, size); });
}

ssize_t shimRead(int file, void* room, size_t size) {
    static auto* const next = behind<ssize_t(int, void*, size_t)>("read");
    // A thread that waits for input must not keep the injector locked.
    {
        const std::lock_guard guard(FaultInjector::shared().mutex());
        if (FaultInjector::shared().counts(file))
            return make(upon(file, "read"), ssize_t(-1),
                        [&](Fate fate) { return next(file, room, std::min(size, fate.most)); });
    }
    return next(file, room, size);
}

ssize_t shimWrite(int file, const void* bytes, size_t size) {
    static auto* const next = behind<ssize_t(int, const void*, size_t)>("write");
    const std::lock_guard guard(FaultInjector::shared().mutex());
    if (!FaultInjector::shared().counts(file))
        return next(file, bytes, size);
    Call call = upon(file, "write", Room::Needed);
    FaultInjector& injector = FaultInjector::shared();
    const Fate fate = injector.meet(call.function, call.room, call.path);
    const size_t taken = fate.torn ? size / 2 : std::min(size, fate.most);
    errno = fate.error;
    const ssize_t count = fate.error ? -1 : next(file, bytes, taken);
    const int error = count < 0 ? errno : 0;
    call.fields.push_back(hexadecimal(bytes, count > 0 ? static_cast<size_t>(count) : 0));
    injector.record(call.function, error, count, call.fields);
    if (fate.torn)
        FaultInjector::endProcess();
    errno = error;
    return count;
}

ssize_t shimPwrite(int file, const void* bytes, size_t size, off_t at) {
    static auto* const next = behind<ssize_t(int, const void*, size_t, off_t)>("pwrite");
    const std::lock_guard guard(FaultInjector::shared().mutex());
    return conduct(file, upon(file, "pwrite", Room::Needed, {std::to_string(at), hexadecimal(bytes, size)}),
                   ssize_t(-1), [&](Fate) { return next(file, bytes, size, at); });
}

int shimFtruncate(int file, off_t size) {
    static auto* const next = behind<int(int, off_t)>("ftruncate");
    const std::lock_guard guard(FaultInjector::shared().mutex());
    return conduct(file, upon(file, "ftruncate", Room::None, {std::to_string(size)}), -1,
                   [&](Fate) { return next(file, size); });
}

int shimFlock(int file, int operation) {
    static auto* const next = behind<int(int, int)>("flock");
    const std::lock_guard guard(FaultInjector::shared().mutex());
    return conduct(file, upon(file, "flock"), -1, [&](Fate) { return next(file, operation); });
}

int shimFchmod(int file, mode_t mode) {
    static auto* const next = behind<int(int, mode_t)>("fchmod");
    const std::lock_guard guard(FaultInjector::shared().mutex());
    return conduct(file, upon(file, "fchmod", Room::None, {octal(mode)}), -1,
                   [&](Fate) { return next(file, mode); });
}

int shimFchown(int file, uid_t owner, gid_t group) {
    static auto* const next = behind<int(int, uid_t, gid_t)>("fchown");
    const std::lock_guard guard(FaultInjector::shared().mutex());
    return conduct(file, upon(file, "fchown", Room::None, {std::to_string(owner), std::to_string(group)}), -1,
                   [&](Fate) { return next(file, owner, group); });
}

int shimFsync(int file) {
    static auto* const next = behind<int(int)>("fsync");
    const std::lock_guard guard(FaultInjector::shared().mutex());
    return conduct(file, upon(file, "fsync", Room::Needed), -1, [&](Fate) { return next(file); });
}

int shimFdatasync(int file) {
    static auto* const next = behind<int(int)>("fdatasync");
    const std::lock_guard guard(FaultInjector::shared().mutex());
    return conduct(file, upon(file, "fdatasync", Room::Needed), -1, [&](Fate) { return next(file); });
}

int shimClose(int file) {
    static auto* const next = behind<int(int)>("close");
    const std::lock_guard guard(FaultInjector::shared().mutex());
    FaultInjector& injector = FaultInjector::shared();
    if (!injector.counts(file)) {
        injector.closed(file);
        return next(file);
    }
    const Call call = upon(file, "close");
    const Fate fate = injector.meet(call.function, call.room, call.path);
    // Gone in any case, as the kernel has it.
    injector.closed(file);
    const int result = next(file);
    const int error = fate.error ? fate.error : result < 0 ? errno : 0;
    injector.record(call.function, error, error ? -1 : 0, call.fields);
    errno = error ? error : errno;
    return error ? -1 : 0;
}

ssize_t shimSendmsg(int socket, const msghdr* message, int flags) {
    static auto* const next = behind<ssize_t(int, const msghdr*, int)>("sendmsg");
    const ssize_t sent = next(socket, message, flags);
    const int error = errno;
    const std::lock_guard guard(FaultInjector::shared().mutex());
    if (sent > 0 && FaultInjector::shared().isArmed() && announces(*message))
        FaultInjector::shared().remark("announce");
    errno = error;
    return sent;
}
