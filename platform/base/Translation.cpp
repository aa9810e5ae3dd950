#include "platform/base/Translation.h"

#include <cstddef>
#include <mutex>
#include <utility>

namespace platform {

namespace {

struct Current {
    std::mutex guard;
    Translator translator;
};

Current& current() {
    // Never destroyed: other threads may still report something while the process ends.
    static auto* const only = new Current;
    return *only;
}

/// A copy: it may be replaced while it runs.
Translator currentTranslator() {
    const std::lock_guard lock(current().guard);
    return current().translator;
}

} // namespace

void setTranslator(Translator translator) {
    const std::lock_guard lock(current().guard);
    current().translator = std::move(translator);
}

bool speaksEnglish() {
    return !currentTranslator();
}

std::string translated(const char* context, const char* english) {
    const Translator translator = currentTranslator();
    std::string text = translator ? translator(context, english) : std::string();
    return text.empty() ? english : text;
}

std::string filledIn(std::string_view text, std::initializer_list<std::string_view> arguments) {
    std::string filled;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool isPlace = text[i] == '%' && i + 1 < text.size() && text[i + 1] > '0' &&
                             std::size_t(text[i + 1] - '0') <= arguments.size();
        if (isPlace)
            filled += arguments.begin()[text[++i] - '1'];
        else
            filled += text[i];
    }
    return filled;
}

} // namespace platform
