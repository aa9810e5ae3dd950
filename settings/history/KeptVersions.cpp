#include "settings/history/KeptVersions.h"

#include "platform/base/Translation.h"

namespace wardlock {

using platform::filledIn;
using platform::translated;

std::string reasonAgainst(const platform::VersionFolder& folder) {
    using State = platform::VersionFolder::State;
    const std::string& path = folder.path();
    switch (folder.state()) {
    case State::NotAFolder:
        return filledIn(translated("Undo", "%1 is a link or a file, not a folder"), {path});
    case State::OfAnotherUser:
        return filledIn(translated("Undo", "%1 belongs to another user"), {path});
    case State::OpenToOthers:
        return filledIn(translated("Undo", "%1 is open to other users; chmod 700 closes it"), {path});
    case State::Unknown:
        return filledIn(translated("Undo", "%1 cannot be read"), {path});
    case State::Missing:
        return filledIn(translated("Undo", "there is no %1 yet; the first change creates it"), {path});
    case State::Usable:
        break;
    }
    return "";
}

} // namespace wardlock
