#include "window/Translation.h"

#include "platform/base/Translation.h"
#include "window/models/Text.h"

#include <QCoreApplication>

#include <cstdlib>
#include <sstream>

namespace wardlock::window {

namespace {

std::string variable(const char* name) {
    const char* value = std::getenv(name);
    return value ? value : "";
}

/// Adds "de_AT" and "de" of "de_AT.UTF-8@euro".
void addNames(const std::string& locale, std::vector<std::string>& names) {
    const std::string name = locale.substr(0, locale.find_first_of(".@"));
    const std::string language = name.substr(0, name.find('_'));
    if (language.empty())
        return;
    names.push_back(name);
    if (language != name)
        names.push_back(language);
}

/// Null where a language that comes first is English, or none is known.
std::shared_ptr<QTranslator> translatorOf(const std::vector<std::string>& languages) {
    for (const std::string& language : languages) {
        auto translator = std::make_shared<QTranslator>();
        if (language == "en")
            return nullptr;
        if (translator->load(QStringLiteral(":/translations/") + toQt(language) + QStringLiteral(".qm")))
            return translator;
    }
    return nullptr;
}

} // namespace

std::vector<std::string> userLanguages() {
    std::string locale;
    for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"})
        if (locale.empty())
            locale = variable(name);
    std::vector<std::string> names;
    if (locale.empty() || locale == "C" || locale == "POSIX" || locale.starts_with("C."))
        return names;
    std::istringstream languages(variable("LANGUAGE"));
    for (std::string language; std::getline(languages, language, ':');)
        addNames(language, names);
    if (names.empty())
        addNames(locale, names);
    return names;
}

Translation::Translation() : translator_(translatorOf(userLanguages())) {
    if (!translator_)
        return;
    QCoreApplication::installTranslator(translator_.get());
    platform::setTranslator([translator = translator_](const char* context, const char* english) {
        return translator->translate(context, english).toStdString();
    });
}

Translation::~Translation() {
    if (!translator_)
        return;
    platform::setTranslator(nullptr);
    QCoreApplication::removeTranslator(translator_.get());
}

} // namespace wardlock::window
