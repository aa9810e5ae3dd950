#pragma once

#include "platform/ui/URLOpener.h"

#include <string>
#include <vector>

namespace wardlock::test {

/// Keeps the URLs that are to be opened. The process's opener while it lives.
class RecordingURLOpener final : public platform::URLOpener {
public:
    RecordingURLOpener() { setCurrent(this); }
    ~RecordingURLOpener() override { setCurrent(nullptr); }
    RecordingURLOpener(const RecordingURLOpener&) = delete;
    RecordingURLOpener& operator=(const RecordingURLOpener&) = delete;

    bool openURL(std::string_view url) override {
        opened.emplace_back(url);
        return hasHandler;
    }

    std::vector<std::string> opened;
    bool hasHandler = true;
};

} // namespace wardlock::test
