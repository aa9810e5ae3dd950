#pragma once

#include "linux/applist/Application.h"
#include "platform/services/ALApplicationList.h"

#include <map>
#include <memory>
#include <string>
#include <tuple>
#include <unordered_map>

namespace platform::applist {

/// The installed applications: the device root's .app folders and, where the device root is the machine's or
/// the user's default one, the entries of the desktop. Where both name an identifier the folder counts, and
/// of several folders the first.
///
/// Each call of applications() searches again. Icons are searched for on request and kept until their
/// application changes. Main thread only.
class ApplicationList : public ALApplicationList {
public:
    Dictionary applications() override;
    std::shared_ptr<UIImage> iconOfSize(int size, std::string_view displayIdentifier) override;

private:
    using Applications = std::unordered_map<std::string, Application>;
    struct Icon {
        int pixels;
        std::shared_ptr<UIImage> image;
    };

    void add(std::vector<Application>&& found, MutableDictionary& names);

    Applications applications_;
    std::unordered_map<std::string, std::vector<Icon>> icons_;
    bool isSearched_ = false;
};

} // namespace platform::applist
