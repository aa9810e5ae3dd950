#pragma once

#include "platform/services/TextWebEngine.h"

#include <memory>

namespace wardlock::cli {

/// While this exists, pages that show a web page get its text.
class TextWeb {
public:
    TextWeb() { platform::WebEngine::setCurrent(engine_.get()); }
    ~TextWeb() { platform::WebEngine::setCurrent(nullptr); }
    TextWeb(const TextWeb&) = delete;
    TextWeb& operator=(const TextWeb&) = delete;

private:
    std::shared_ptr<platform::WebEngine> engine_ = platform::makeTextWebEngine();
};

} // namespace wardlock::cli
