// Calls upon names.

#include "tests/robustness/faults/shim/Calls.h"

#include <dirent.h>
#include <sys/stat.h>

using namespace wardlock::test::shim;

extern "C" {
int shimStat(const char* path, struct stat* found) WARDLOCK_STANDS_FOR("stat");
int shimLstat(const char* path, struct stat* found) WARDLOCK_STANDS_FOR("lstat");
char* shimRealpath(const char* path, char* room) WARDLOCK_STANDS_FOR("realpath");
int shimRename(const char* from, const char* to) WARDLOCK_STANDS_FOR("rename");
int shimLink(const char* file, const char* name) WARDLOCK_STANDS_FOR("link");
int shimSymlink(const char* target, const char* path) WARDLOCK_STANDS_FOR("symlink");
int shimRemove(const char* path) WARDLOCK_STANDS_FOR("remove");
int shimUnlink(const char* path) WARDLOCK_STANDS_FOR("unlink");
int shimMkdir(const char* path, mode_t mode) WARDLOCK_STANDS_FOR("mkdir");
DIR* shimOpendir(const char* path) WARDLOCK_STANDS_FOR("opendir");
dirent* shimReaddir(DIR* folder) WARDLOCK_STANDS_FOR("readdir");
int shimClosedir(DIR* folder) WARDLOCK_STANDS_FOR("closedir");
}

int shimStat(const char* path, struct stat* found) {
    static auto* const next = behind<int(const char*, struct stat*)>("stat");
    return conduct(path, {"stat", Room::None, path, {path}}, -1, [&](Fate) { return next(path, found); });
}

int shimLstat(const char* path, struct stat* found) {
    static auto* const next = behind<int(const char*, struct stat*)>("lstat");
    return conduct(path, {"lstat", Room::None, path, {path}}, -1, [&](Fate) { return next(path, found); });
}

char* shimRealpath(const char* path, char* room) {
    static auto* const next = behind<char*(const char*, char*)>("realpath");
    return conduct(path, {"realpath", Room::None, path, {path}}, static_cast<char*>(nullptr),
                   [&](Fate) { return next(path, room); });
}

int shimRename(const char* from, const char* to) {
    static auto* const next = behind<int(const char*, const char*)>("rename");
    return conduct(to, {"rename", Room::Needed, to, {from, to}}, -1, [&](Fate) { return next(from, to); });
}

int shimLink(const char* file, const char* name) {
    static auto* const next = behind<int(const char*, const char*)>("link");
    return conduct(name, {"link", Room::Needed, name, {file, name}}, -1,
                   [&](Fate) { return next(file, name); });
}

int shimSymlink(const char* target, const char* path) {
    static auto* const next = behind<int(const char*, const char*)>("symlink");
    return conduct(path, {"symlink", Room::Needed, path, {target, path}}, -1,
                   [&](Fate) { return next(target, path); });
}

int shimRemove(const char* path) {
    static auto* const next = behind<int(const char*)>("remove");
    return conduct(path, {"remove", Room::None, path, {path}}, -1, [&](Fate) { return next(path); });
}

int shimUnlink(const char* path) {
    static auto* const next = behind<int(const char*)>("unlink");
    return conduct(path, {"remove", Room::None, path, {path}}, -1, [&](Fate) { return next(path); });
}

int shimMkdir(const char* path, mode_t mode) {
    static auto* const next = behind<int(const char*, mode_t)>("mkdir");
    return conduct(path, {"mkdir", Room::Needed, path, {path, octal(mode)}}, -1,
                   [&](Fate) { return next(path, mode); });
}

DIR* shimOpendir(const char* path) {
    static auto* const next = behind<DIR*(const char*)>("opendir");
    const std::lock_guard guard(FaultInjector::shared().mutex());
    DIR* const opened = conduct(path, {"opendir", Room::None, path, {path}}, static_cast<DIR*>(nullptr),
                                [&](Fate) { return next(path); });
    if (opened)
        FaultInjector::shared().opened(opened, path);
    return opened;
}

dirent* shimReaddir(DIR* folder) {
    static auto* const next = behind<dirent*(DIR*)>("readdir");
    const std::lock_guard guard(FaultInjector::shared().mutex());
    return conduct(folder, {"readdir", Room::None, FaultInjector::shared().pathOf(folder), {}},
                   static_cast<dirent*>(nullptr), [&](Fate) { return next(folder); });
}

int shimClosedir(DIR* folder) {
    static auto* const next = behind<int(DIR*)>("closedir");
    const std::lock_guard guard(FaultInjector::shared().mutex());
    FaultInjector::shared().closed(folder);
    return next(folder);
}
