#include "cli/fullscreen/CharacterLocale.h"

namespace wardlock::cli {

CharacterLocale::CharacterLocale(bool utf8) : before_(uselocale(nullptr)) {
    const locale_t rest = duplocale(before_);
    own_ = newlocale(LC_CTYPE_MASK, utf8 ? "C.UTF-8" : "C", rest);
    if (own_)
        uselocale(own_);
    else
        freelocale(rest);
}

CharacterLocale::~CharacterLocale() {
    uselocale(before_);
    if (own_)
        freelocale(own_);
}

} // namespace wardlock::cli
