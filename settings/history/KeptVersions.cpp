#include "settings/history/KeptVersions.h"

namespace wardlock {

std::string reasonAgainst(const platform::VersionFolder& folder) {
    using State = platform::VersionFolder::State;
    const std::string& path = folder.path();
    switch (folder.state()) {
    case State::NotAFolder:
        return path + " is a link or a file, not a folder";
    case State::OfAnotherUser:
        return path + " belongs to another user";
    case State::OpenToOthers:
        return path + " is open to other users; chmod 700 closes it";
    case State::Unknown:
        return path + " cannot be read";
    case State::Missing:
        return "there is no " + path + " yet; the first change creates it";
    case State::Usable:
        break;
    }
    return "";
}

} // namespace wardlock
