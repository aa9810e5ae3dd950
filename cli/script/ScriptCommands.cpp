#include "cli/script/ScriptCommands.h"

#include "cli/io/Suggestion.h"
#include "cli/io/TypedJson.h"
#include "cli/script/RowAddress.h"
#include "cli/script/ScreenJson.h"
#include "cli/script/ScriptError.h"
#include "platform/ui/UIActivityIndicatorView.h"

#include <algorithm>
#include <cmath>

namespace wardlock::cli {

namespace {

constexpr double longestStep = 1e6;
constexpr double longestWait = 600;

double within(double seconds, double most) {
    if (!(seconds >= 0) || seconds > most)
        throw ScriptError("'seconds' must be from 0 to " + std::to_string(std::llround(most)));
    return seconds;
}

} // namespace

const std::vector<ScriptCommands::Entry>& ScriptCommands::table() {
    static const std::vector<Entry> table{
        {"see", &ScriptCommands::see},
        {"tap", &ScriptCommands::tap},
        {"set", &ScriptCommands::set},
        {"type", &ScriptCommands::type},
        {"return", &ScriptCommands::endTyping},
        {"drag", &ScriptCommands::drag},
        {"button", &ScriptCommands::pressButton},
        {"back", &ScriptCommands::back},
        {"undo", &ScriptCommands::undo},
        {"redo", &ScriptCommands::redo},
        {"restore", &ScriptCommands::restore},
        {"choose", &ScriptCommands::choose},
        {"keypad", &ScriptCommands::keypad},
        {"mail", &ScriptCommands::mail},
        {"follow", &ScriptCommands::follow},
        {"resign", &ScriptCommands::resign},
        {"dismiss", &ScriptCommands::dismiss},
        {"step", &ScriptCommands::step},
        {"transitions", &ScriptCommands::transitions},
        {"posts", &ScriptCommands::posts},
        {"wait", &ScriptCommands::wait},
        {"quit", &ScriptCommands::quit},
    };
    return table;
}

std::vector<std::string_view> ScriptCommands::names() {
    std::vector<std::string_view> names;
    for (const Entry& entry : table())
        names.push_back(entry.name);
    return names;
}

ScriptCommands::ScriptCommands(shell::SettingsApplication& settings, shell::ManualClock& clock,
                               SettingsLoop& loop)
    : settings_(settings), clock_(clock), loop_(loop), sheets_(settings),
      subscription_(settings.observe(*this)) {}

Json ScriptCommands::run(const Json& command) {
    Json reply = Json::object();
    if (command.is_object() && command.contains("id"))
        reply["id"] = command["id"];
    try {
        if (!command.is_object())
            throw ScriptError("a command must be an object");
        const ScriptFields fields(command);
        const std::string name = fields.text("do");
        const auto entry = std::ranges::find(table(), name, &Entry::name);
        if (entry == table().end())
            throw ScriptError("unknown command '" + name + '\'' + didYouMean(name, names()));
        reply["ok"] = true;
        (this->*entry->handler)(fields, reply);
    } catch (const ScriptError& error) {
        reply.erase("ok");
        reply["error"] = error.what();
    }
    if (!unsaved_.empty())
        reply["unsaved"] = std::exchange(unsaved_, {});
    return reply;
}

void ScriptCommands::changeAnnounced(const shell::Announcement& announcement) {
    announced_.push_back(announcement);
}

void ScriptCommands::see(const ScriptFields& fields, Json& reply) {
    fields.allowOnly({"first", "count"});
    const Json seen = screenJson(settings_.screen(),
                                 {fields.optionalIndex("first").value_or(0), fields.optionalIndex("count")});
    for (const auto& [name, value] : seen.items())
        reply[name] = value;
}

void ScriptCommands::tap(const ScriptFields& fields, Json&) {
    fields.allowOnly({"row", "key", "section"});
    shell::Page& page = *settings_.screen().page();
    const auto path = RowAddress(fields).find(page);
    expectDone(page.isList() ? settings_.page().tapRow(path) : settings_.page().flipTableSwitch(path));
}

void ScriptCommands::set(const ScriptFields& fields, Json&) {
    fields.allowOnly({"row", "key", "section", "to"});
    shell::Page& page = *settings_.screen().page();
    const auto path = RowAddress(fields).find(page);
    if (!page.isList())
        expectDone(settings_.page().setTableSwitch(path, fields.boolean("to")));
    else if (page.row(path).kind == shell::RowKind::Slider)
        expectDone(settings_.page().moveSlider(path, fields.number("to")));
    else
        expectDone(settings_.page().setSwitch(path, fields.boolean("to")));
}

void ScriptCommands::type(const ScriptFields& fields, Json&) {
    fields.allowOnly({"row", "key", "section", "field", "text"});
    if (fields.has("field") || (settings_.screen().alert() && !fields.has("row") && !fields.has("key")))
        return sheets_.typeIntoAlert(fields);
    const std::string text = fields.text("text");
    if (fields.has("row") || fields.has("key"))
        expectDone(settings_.page().beginEditing(RowAddress(fields).find(*settings_.screen().page())));
    expectDone(settings_.page().typeText(text));
}

void ScriptCommands::endTyping(const ScriptFields& fields, Json&) {
    fields.allowOnly({});
    if (!settings_.screen().page()->edit())
        throw ScriptError("no text field is being edited");
    settings_.page().endEditing();
}

void ScriptCommands::drag(const ScriptFields& fields, Json&) {
    fields.allowOnly({});
    expectDone(settings_.page().dragList());
}

void ScriptCommands::pressButton(const ScriptFields& fields, Json&) {
    fields.allowOnly({});
    expectDone(settings_.page().tapBarButton());
}

void ScriptCommands::back(const ScriptFields& fields, Json&) {
    fields.allowOnly({});
    expectDone(settings_.page().goBack());
}

void ScriptCommands::undo(const ScriptFields& fields, Json&) {
    fields.allowOnly({});
    expectDone(settings_.history().undo());
}

void ScriptCommands::redo(const ScriptFields& fields, Json&) {
    fields.allowOnly({});
    expectDone(settings_.history().redo());
}

void ScriptCommands::restore(const ScriptFields& fields, Json&) {
    fields.allowOnly({});
    expectDone(settings_.recovery().restore());
}

void ScriptCommands::choose(const ScriptFields& fields, Json&) {
    sheets_.choose(fields);
}

void ScriptCommands::keypad(const ScriptFields& fields, Json&) {
    sheets_.keypad(fields);
}

void ScriptCommands::mail(const ScriptFields& fields, Json&) {
    sheets_.mail(fields);
}

void ScriptCommands::follow(const ScriptFields& fields, Json&) {
    if (const auto number = fields.optionalIndex("link")) {
        fields.allowOnly({"link"});
        expectDone(settings_.page().followLink(*number));
    } else {
        fields.allowOnly({"url"});
        expectDone(settings_.page().followLink(fields.text("url")));
    }
}

void ScriptCommands::resign(const ScriptFields& fields, Json&) {
    fields.allowOnly({});
    settings_.resignActive();
}

void ScriptCommands::dismiss(const ScriptFields& fields, Json&) {
    fields.allowOnly({});
    if (settings_.screen().notice().empty())
        throw ScriptError("no notice is shown");
    settings_.dismissNotice();
}

void ScriptCommands::step(const ScriptFields& fields, Json&) {
    fields.allowOnly({"seconds"});
    clock_.step(within(fields.number("seconds"), longestStep));
}

void ScriptCommands::transitions(const ScriptFields& fields, Json&) {
    fields.allowOnly({"seconds"});
    settings_.setTransitionSeconds(within(fields.number("seconds"), longestStep));
}

void ScriptCommands::posts(const ScriptFields& fields, Json& reply) {
    fields.allowOnly({});
    reply["posts"] = Json::array();
    for (const auto& announcement : std::exchange(announced_, {}))
        reply["posts"].push_back(
            {{"key", announcement.key},
             {"object", typedJson(announcement.object ? &*announcement.object : nullptr)},
             {"own", announcement.own}});
}

void ScriptCommands::wait(const ScriptFields& fields, Json&) {
    fields.allowOnly({"for", "seconds"});
    constexpr double usualWait = 10;
    const std::string what = fields.text("for");
    if (what != "change" && what != "load" && what != "mail")
        throw ScriptError("'for' must be 'change', 'load' or 'mail'");
    const double seconds = within(fields.optionalNumber("seconds").value_or(usualWait), longestWait);
    const std::chrono::milliseconds timeout(std::llround(seconds * 1000));
    if (!loop_.waitUntil([&] { return hasHappened(what); }, timeout))
        throw ScriptError("timed out");
}

bool ScriptCommands::hasHappened(std::string_view what) {
    if (what == "change")
        return std::ranges::any_of(announced_, [](const auto& announcement) { return !announcement.own; });
    if (what == "mail") {
        const auto composer = settings_.screen().composer();
        return !composer || !composer->isSending();
    }
    const auto spinner = settings_.screen().page()->contentView<platform::UIActivityIndicatorView>();
    return !spinner || !spinner->isAnimating();
}

void ScriptCommands::quit(const ScriptFields& fields, Json&) {
    fields.allowOnly({});
    over_ = true;
}

} // namespace wardlock::cli
