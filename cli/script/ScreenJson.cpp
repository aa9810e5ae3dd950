#include "cli/script/ScreenJson.h"

#include "platform/ui/UIActivityIndicatorView.h"
#include "platform/ui/UITextView.h"
#include "platform/ui/UIWebView.h"

#include <algorithm>

namespace wardlock::cli {

namespace {

std::string_view buttonName(platform::UIBarButtonSystemItem item) {
    switch (item) {
    case platform::UIBarButtonSystemItem::Done:
        return "Done";
    case platform::UIBarButtonSystemItem::Cancel:
        return "Cancel";
    case platform::UIBarButtonSystemItem::Edit:
        return "Edit";
    case platform::UIBarButtonSystemItem::Save:
        return "Save";
    case platform::UIBarButtonSystemItem::Add:
        break;
    }
    return "Add";
}

void addField(Json& json, const shell::Row& row) {
    json["text"] = row.text;
    json["placeholder"] = row.placeholder;
    if (row.numberPad)
        json["numberPad"] = true;
    if (row.editing)
        json["editing"] = true;
}

void addSlider(Json& json, const shell::Row& row) {
    json["value"] = row.position();
    json["min"] = row.min;
    json["max"] = row.max;
    if (row.showsValue)
        json["text"] = row.text;
}

Json rowJson(const shell::Row& row) {
    Json json;
    json["kind"] = shell::name(row.kind);
    json["label"] = row.label;
    if (!row.key.empty())
        json["key"] = row.key;
    if (row.kind == shell::RowKind::Switch)
        json["on"] = row.isOn();
    else if (row.kind == shell::RowKind::Slider)
        addSlider(json, row);
    else if (row.isTextField())
        addField(json, row);
    else if (row.kind == shell::RowKind::LinkList) {
        json["text"] = row.text;
        json["choices"] = row.choices;
    }
    if (row.marked)
        json["marked"] = true;
    if (row.icon && !row.icon->isEmpty())
        json["icon"] = true;
    if (!row.enabled)
        json["enabled"] = false;
    return json;
}

Json rowJson(const shell::TableRow& row) {
    Json json;
    json["label"] = row.title();
    json["key"] = row.key();
    if (!row.detail().empty())
        json["detail"] = row.detail();
    if (row.switchControl())
        json["on"] = row.isOn();
    if (row.icon() && !row.icon()->isEmpty())
        json["icon"] = true;
    return json;
}

Json listJson(shell::Page& page) {
    Json sections = Json::array();
    for (std::size_t index = 0; index < page.sectionCount(); ++index) {
        const auto section = page.section(index);
        Json json;
        if (!section.header.empty())
            json["header"] = section.header;
        if (!section.footer.empty())
            json["footer"] = section.footer;
        json["rows"] = Json::array();
        for (std::size_t row = 0; row < section.rowCount; ++row)
            json["rows"].push_back(rowJson(page.row({index, row})));
        sections.push_back(std::move(json));
    }
    return sections;
}

Json tableJson(shell::Table& table, const TableExtent& extent) {
    Json sections = Json::array();
    for (std::size_t index = 0; index < table.sectionCount(); ++index) {
        const std::size_t count = table.rowCount(index);
        const std::size_t first = std::min(extent.first, count);
        const std::size_t end = first + std::min(extent.count.value_or(count), count - first);
        Json json;
        json["count"] = count;
        json["first"] = first;
        json["rows"] = Json::array();
        for (std::size_t row = first; row < end; ++row)
            if (const auto shown = table.show({index, row}))
                json["rows"].push_back(rowJson(*shown));
        sections.push_back(std::move(json));
    }
    return sections;
}

Json webJson(const platform::UIWebView& web) {
    Json json = {{"url", web.url()}, {"text", web.text()}};
    for (std::size_t index = 0; index < web.links().size(); ++index) {
        const platform::WebLink& link = web.links()[index];
        json["links"].push_back({{"number", index + 1}, {"text", link.text}, {"url", link.url}});
    }
    return json;
}

void addContent(Json& json, shell::Page& page, const TableExtent& extent) {
    if (const auto table = page.table())
        json["table"] = tableJson(*table, extent);
    for (const auto& view : page.content()) {
        if (const auto* text = dynamic_cast<platform::UITextView*>(view.get()))
            json["text"] = text->text();
        else if (const auto* web = dynamic_cast<platform::UIWebView*>(view.get()))
            json["web"] = webJson(*web);
        else if (const auto* spinner = dynamic_cast<platform::UIActivityIndicatorView*>(view.get()))
            json["loading"] = spinner->isAnimating();
    }
}

Json pageJson(const shell::Screen& screen, const TableExtent& extent) {
    shell::Page& page = *screen.page();
    Json json;
    json["title"] = page.title();
    if (const std::string back = screen.backTitle(); !back.empty())
        json["back"] = back;
    if (const auto button = page.barButton())
        json["button"] = buttonName(button->systemItem());
    if (screen.isInTransition())
        json["moving"] = true;
    if (page.isList())
        json["sections"] = listJson(page);
    else
        addContent(json, page, extent);
    return json;
}

Json keypadJson(const shell::Overlay& overlay) {
    Json json;
    json["status"] = overlay.keypad->shownText();
    if (!overlay.keypad->shownSubtitle().empty())
        json["subtitle"] = overlay.keypad->shownSubtitle();
    json["digits"] = overlay.keypad->passcode().size();
    json["failures"] = overlay.keypad->failures();
    json["emergency"] = overlay.keypad->showsEmergencyCallButton();
    json["takesInput"] = overlay.keypad->takesInput();
    json["alpha"] = overlay.keypad->presentationAlpha();
    if (overlay.blur)
        json["blur"] = overlay.blur->presentationAlpha();
    return json;
}

std::string_view styleName(platform::UIAlertActionStyle style) {
    switch (style) {
    case platform::UIAlertActionStyle::Cancel:
        return "cancel";
    case platform::UIAlertActionStyle::Destructive:
        return "destructive";
    case platform::UIAlertActionStyle::Default:
        break;
    }
    return "default";
}

Json alertJson(const platform::UIAlertController& alert) {
    Json json;
    json["title"] = alert.title();
    if (!alert.message().empty())
        json["message"] = alert.message();
    for (const auto& field : alert.textFields())
        json["fields"].push_back({{"text", field->text()}, {"placeholder", field->placeholder()}});
    json["actions"] = Json::array();
    for (const auto& action : alert.actions())
        json["actions"].push_back({{"title", action->title()},
                                   {"style", styleName(action->style())},
                                   {"enabled", action->isEnabled()}});
    return json;
}

std::string_view offerAction(shell::Offer::Kind kind) {
    return kind == shell::Offer::Kind::Undo ? "undo" : "restore";
}

Json mailJson(const platform::MFMailComposeViewController& composer) {
    const auto& message = composer.message();
    Json json;
    json["to"] = message.recipients;
    json["subject"] = message.subject;
    json["body"] = message.body;
    json["attachments"] = Json::array();
    for (const auto& attachment : message.attachments)
        json["attachments"].push_back(
            {{"name", attachment.fileName}, {"type", attachment.mimeType}, {"size", attachment.data.size()}});
    if (composer.isSending())
        json["sending"] = true;
    return json;
}

} // namespace

Json screenJson(shell::Screen& screen, const TableExtent& extent) {
    Json json;
    json["page"] = pageJson(screen, extent);
    if (const auto alert = screen.alert())
        json["alert"] = alertJson(*alert);
    if (const auto composer = screen.composer())
        json["mail"] = mailJson(*composer);
    if (const auto overlay = screen.overlay())
        json["keypad"] = keypadJson(*overlay);
    if (!screen.notice().empty())
        json["notice"] = screen.notice();
    if (screen.offer())
        json["offer"] = {{"text", screen.offer()->text}, {"action", offerAction(screen.offer()->kind)}};
    return json;
}

} // namespace wardlock::cli
