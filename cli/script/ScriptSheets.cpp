#include "cli/script/ScriptSheets.h"

#include "cli/script/ScriptError.h"

#include <algorithm>

namespace wardlock::cli {

namespace {

std::size_t actionIndex(const platform::UIAlertController& alert, const std::string& title) {
    const auto& actions = alert.actions();
    const auto found = std::ranges::find(actions, title, [](const auto& action) { return action->title(); });
    if (found == actions.end())
        throw ScriptError("the alert has no button '" + title + '\'');
    return static_cast<std::size_t>(found - actions.begin());
}

} // namespace

void ScriptSheets::typeIntoAlert(const ScriptFields& fields) {
    expectDone(
        settings_.sheets().typeIntoAlert(fields.optionalIndex("field").value_or(0), fields.text("text")));
}

void ScriptSheets::choose(const ScriptFields& fields) {
    fields.allowOnly({"action"});
    const auto alert = settings_.screen().alert();
    if (!alert)
        throw ScriptError("no alert is shown");
    expectDone(settings_.sheets().chooseAlertAction(actionIndex(*alert, fields.text("action"))));
}

void ScriptSheets::keypad(const ScriptFields& fields) {
    fields.allowOnly({"digits", "passcode", "press"});
    shell::SheetInput& sheets = settings_.sheets();
    if (const auto digits = fields.optionalText("digits")) {
        if (!std::ranges::all_of(*digits, [](char digit) { return digit >= '0' && digit <= '9'; }))
            throw ScriptError("'digits' must contain only the digits 0 to 9");
        for (const char digit : *digits)
            expectDone(sheets.pressDigit(digit - '0'));
    } else if (const auto passcode = fields.optionalText("passcode")) {
        expectDone(sheets.enterPasscode(*passcode));
    } else if (const std::string key = fields.text("press"); key == "delete") {
        expectDone(sheets.pressDelete());
    } else if (key == "cancel") {
        expectDone(sheets.cancelKeypad());
    } else if (key == "emergency") {
        expectDone(sheets.pressEmergency());
    } else {
        throw ScriptError("the keypad has no key '" + key + '\'');
    }
}

void ScriptSheets::mail(const ScriptFields& fields) {
    fields.allowOnly({"to", "subject", "body", "remove", "press"});
    if (!settings_.screen().composer())
        throw ScriptError("no mail sheet is shown");
    editMail(fields);
    const auto press = fields.optionalText("press");
    if (!press)
        return;
    if (*press != "send" && *press != "cancel")
        throw ScriptError("the mail sheet has no button '" + *press + '\'');
    expectDone(*press == "send" ? settings_.sheets().sendMail() : settings_.sheets().cancelMail());
}

void ScriptSheets::editMail(const ScriptFields& fields) {
    shell::SheetInput& sheets = settings_.sheets();
    if (fields.has("to"))
        expectDone(sheets.setRecipients(fields.texts("to")));
    if (fields.has("subject"))
        expectDone(sheets.setSubject(fields.text("subject")));
    if (fields.has("body"))
        expectDone(sheets.setBody(fields.text("body")));
    if (fields.has("remove"))
        expectDone(sheets.removeAttachment(attachmentIndex(fields)));
}

std::size_t ScriptSheets::attachmentIndex(const ScriptFields& fields) const {
    const Json* which = fields.find("remove");
    if (!which->is_string())
        return *fields.optionalIndex("remove");
    const auto& attachments = settings_.screen().composer()->message().attachments;
    const auto found =
        std::ranges::find(attachments, fields.text("remove"), &platform::MailAttachment::fileName);
    if (found == attachments.end())
        throw ScriptError("the mail has no such attachment");
    return static_cast<std::size_t>(found - attachments.begin());
}

} // namespace wardlock::cli
