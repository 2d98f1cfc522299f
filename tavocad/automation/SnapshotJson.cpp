#include "tavocad/automation/SnapshotJson.h"

#include "platform/text/Unicode.h"

using Json = nlohmann::ordered_json;
using tv::text::toUtf8;

namespace {

Json texts(const std::vector<std::wstring>& values) {
    Json array = Json::array();
    for (const std::wstring& value : values)
        array.push_back(toUtf8(value));
    return array;
}

Json control(const tv::ui::ControlSnapshot& from) {
    Json to = {{"name", from.name},           {"kind", tv::ui::kindName(from.kind)},
               {"label", toUtf8(from.label)}, {"text", toUtf8(from.text)},
               {"enabled", from.enabled},     {"visible", from.visible}};
    if (from.checked) to["checked"] = *from.checked;
    if (from.icon) to["icon"] = *from.icon;
    if (from.items) to["items"] = texts(*from.items);
    if (from.selection) to["selection"] = *from.selection;
    if (from.selectedCount) {
        to["selectedCount"] = *from.selectedCount;
        to["selectedRanges"] = Json::array();
        for (const auto& range : from.selectedRanges)
            to["selectedRanges"].push_back({range.first, range.last});
    }
    if (from.columns) to["columns"] = texts(*from.columns);
    if (from.columnsShown) to["columnsShown"] = *from.columnsShown;
    if (from.sorted) to["sorted"] = {{"column", from.sorted->first}, {"ascending", from.sorted->second}};
    if (from.focusCell) to["focusCell"] = {from.focusCell->first, from.focusCell->second};
    if (from.rowCount) {
        to["rowCount"] = *from.rowCount;
        to["first"] = from.firstRow;
        to["rows"] = Json::array();
        for (const auto& row : from.rows)
            to["rows"].push_back(texts(row));
    }
    if (!from.children.empty()) {
        to["controls"] = Json::array();
        for (const auto& child : from.children)
            to["controls"].push_back(control(child));
    }
    return to;
}

Json entries(const std::vector<tv::ui::MenuSnapshot>& from) {
    Json out = Json::array();
    for (const auto& entry : from) {
        if (entry.text.empty()) {
            out.push_back({{"separator", true}});
            continue;
        }
        Json& to = out.emplace_back(Json{{"text", toUtf8(entry.text)}, {"enabled", entry.enabled}});
        if (entry.checked) to["checked"] = *entry.checked;
        if (!entry.keys.empty()) to["keys"] = toUtf8(entry.keys);
        if (!entry.items.empty()) to["items"] = entries(entry.items);
    }
    return out;
}

} // namespace

Json toJson(const tv::ui::DialogSnapshot& snapshot) {
    Json out = {{"template", snapshot.templateName},
                {"title", toUtf8(snapshot.title)},
                {"size", {snapshot.size.cx, snapshot.size.cy}},
                {"controls", Json::array()}};
    for (const auto& from : snapshot.controls)
        out["controls"].push_back(control(from));
    if (snapshot.menu) out["menu"] = {{"control", snapshot.menuOwner}, {"items", entries(*snapshot.menu)}};
    return out;
}
