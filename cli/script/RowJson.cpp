#include "cli/script/RowJson.h"

namespace wardlock::cli {

using shell::Row;
using shell::RowKind;

namespace {

void addField(Json& json, const Row& row) {
    json["text"] = row.text;
    json["placeholder"] = row.placeholder;
    if (row.numberPad)
        json["numberPad"] = true;
    if (row.editing)
        json["editing"] = true;
}

void addSlider(Json& json, const Row& row) {
    json["value"] = row.position();
    json["min"] = row.min;
    json["max"] = row.max;
    if (row.showsValue)
        json["text"] = row.text;
}

} // namespace

Json rowJson(const Row& row) {
    Json json;
    json["kind"] = shell::name(row.kind);
    json["label"] = row.label;
    if (!row.key.empty())
        json["key"] = row.key;
    if (row.kind == RowKind::Switch)
        json["on"] = row.isOn();
    else if (row.kind == RowKind::Slider)
        addSlider(json, row);
    else if (row.isTextField())
        addField(json, row);
    else if (row.kind == RowKind::LinkList) {
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

} // namespace wardlock::cli
