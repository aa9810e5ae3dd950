#pragma once

/// Texts of the application itself, as opposed to those of a bundle, in the user's language. In the source
/// they are English literals, which tools/update-translations finds by the name of translated(). Any thread.

#include "platform/base/Export.h"

#include <functional>
#include <initializer_list>
#include <string>
#include <string_view>

namespace platform {

/// Returns the text in another language; empty where it is not known. Called on any thread.
using Translator = std::function<std::string(const char* context, const char* english)>;
/// Sets the translator that a front end offers. Null, the state at the start, leaves every text in English.
WARDLOCK_API void setTranslator(Translator translator);
/// Returns whether texts are in English.
WARDLOCK_API bool speaksEnglish();

/// Returns the English text in the user's language; itself where there is no translation. The context is
/// where the text is shown: translations of equal texts may differ.
WARDLOCK_API std::string translated(const char* context, const char* english);
/// Returns the text with the arguments in place of "%1" to "%9". What looks so in an argument stays.
WARDLOCK_API std::string filledIn(std::string_view text, std::initializer_list<std::string_view> arguments);

} // namespace platform
