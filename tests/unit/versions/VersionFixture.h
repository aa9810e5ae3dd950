#pragma once

#include "platform/files/FileSystem.h"
#include "platform/plist/PropertyList.h"
#include "platform/plist/PropertyListFile.h"
#include "platform/versions/VersionFolder.h"
#include "tests/support/Environment.h"
#include "tests/support/doubles/FaultyFileSystem.h"
#include "tests/support/doubles/MemoryFileSystem.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace wardlock::test {

/// A document "/d/a.plist" of user 1000 in memory, the versions beside it, and a clock that a test sets.
class VersionFixture : public ::testing::Test {
protected:
    static constexpr const char* document = "/d/a.plist";
    static constexpr const char* history = "/d/a.plist.history";
    static constexpr std::uint32_t parent = 1000;

    VersionFixture() {
        memory.actAs(parent, parent);
        memory.addFolder("/d");
        // Device paths are paths of this machine.
        environment.set("WARDLOCK_DEVICE_ROOT", "/");
        platform::FileSystem::setCurrent(&files);
        now = 1'700'000'000'000;
        platform::setVersionClock([] { return now; });
        platform::setVersionPlace("settings");
    }
    ~VersionFixture() override {
        platform::setVersionPlace(platform::programPlace);
        platform::setVersionClock(nullptr);
        platform::FileSystem::setCurrent(nullptr);
    }

    static std::string bytesOf(int value) {
        return platform::dataWithPropertyList(platform::Dictionary{{"value", value}});
    }
    /// A read-modify-write by the product.
    static platform::Update write(int value, const platform::Versions& versions = {}) {
        const auto set = [value](platform::MutableDictionary& entries) {
            entries.set("value", value);
            return true;
        };
        ++now;
        return platform::updateFileOfMachine(document, set, platform::Sync::Full, versions);
    }
    void writeMany(int first, int last) {
        for (int value = first; value <= last; ++value)
            write(value);
    }
    /// A program without this library replaces the document by another file.
    void replaceAsAnotherProgram(const std::string& bytes) {
        memory.addFile(document, bytes, 0600, parent, parent);
    }

    /// A program with this library meets the document, on this disk.
    static void meet(platform::FileSystem& disk, const std::string& path = document) {
        platform::FileSystem& used = platform::FileSystem::current();
        platform::FileSystem::setCurrent(&disk);
        platform::keepVersionOfFile(path);
        platform::FileSystem::setCurrent(&used);
    }
    void meet() { meet(memory); }

    platform::VersionFolder folder() { return {memory, document}; }
    std::vector<platform::Version> versions() {
        std::vector<platform::Version> found;
        folder().list(found);
        return found;
    }
    /// The values of the versions, from the oldest to the youngest; -1 for one that cannot be read.
    std::vector<int> values() {
        std::vector<int> found;
        for (const platform::Version& version : versions()) {
            const auto bytes = folder().read(version, 10000);
            const auto root = bytes ? platform::propertyListWithData(*bytes) : std::nullopt;
            found.push_back(root ? static_cast<int>(root->dictionary().find("value")->integer()) : -1);
        }
        return found;
    }

    Environment environment;
    MemoryFileSystem memory;
    FaultyFileSystem files{memory};
    inline static std::int64_t now = 0;
};

} // namespace wardlock::test
