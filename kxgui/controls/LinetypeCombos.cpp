#include "kxgui/controls/LinetypeCombos.h"

#include "kxgui/controls/RecordItems.h"
#include "kxgui/frame/LinetypeDlg.h"
#include "platform/text/ResourceString.h"
#include "platform/text/Unicode.h"

using tv::dwg::Value;

namespace {

// The data of entries that are no records.
constexpr std::uintptr_t byLayer = ~std::uintptr_t{0}, byBlock = byLayer - 1, addLinetypes = byLayer - 2;

std::wstring byLayerText() { return VORD_ResourceString("IDC_TBMNU_513", L"ByLayer").c_str(); }
std::wstring byBlockText() { return VORD_ResourceString("IDC_TBMNU_515", L"ByBlock").c_str(); }

bool is(const Value& value, std::wstring_view name) {
    const auto* text = std::get_if<OdString>(&value);
    return text && tv::text::equalNoCase(text->view(), name);
}

} // namespace

void CCobxLineType::SetType(ControlType type) {
    if (GetType() == type) return;
    CCobxNameBase::SetType(type);
    if (IsWindow()) ScheduleUpdate();
}

void CCobxLineType::Fill(const OdDbDatabasePtr& database) {
    const auto records = kx::controls::recordItems(*database, kx::controls::RecordKind::linetypes);
    std::vector<tv::ui::ListItem> items;
    items.reserve(records->size() + 3);
    if (hasByLayer()) {
        items.push_back({byLayerText(), byLayer, nullptr});
        items.push_back({byBlockText(), byBlock, nullptr});
    }
    items.insert(items.end(), records->begin(), records->end());
    if (hasAddEntry())
        items.push_back(
            {VORD_ResourceString("IDC_TBMNU_482", L"Add Linetypes...").c_str(), addLinetypes, nullptr});
    SetItems(std::move(items));
}

int CCobxLineType::EntryOf(const Value& value) {
    if (is(value, L"BYLAYER")) return FindItemData(byLayer);
    if (is(value, L"BYBLOCK")) return FindItemData(byBlock);
    const auto* name = std::get_if<OdString>(&value);
    if (!name || name->isEmpty()) return -1;
    // Records may be called like the other entries.
    for (int i = 0; i < GetCount(); ++i)
        if (GetItemData(i) < addLinetypes && tv::text::equalNoCase(items().at(i).text, name->view())) return i;
    return -1;
}

std::optional<Value> CCobxLineType::ValueOf(int index) const {
    switch (GetItemData(index)) {
    case byLayer:
        return kx::controls::nameValue(L"ByLayer");
    case byBlock:
        return kx::controls::nameValue(L"ByBlock");
    case addLinetypes:
        return std::nullopt;
    default:
        return CCobxNameBase::ValueOf(index);
    }
}

std::wstring CCobxLineType::TextOf(const Value& value) const {
    if (is(value, L"BYLAYER")) return byLayerText();
    if (is(value, L"BYBLOCK")) return byBlockText();
    return CCobxNameBase::TextOf(value);
}

void CCobxLineType::OnSpecialEntry(int) {
    const OdDbDatabasePtr database = filledFrom();
    if (!database) return;
    std::wstring chosen;
    if (onAddLinetypes) {
        chosen = onAddLinetypes(database);
    } else {
        CLinetypeDlg dialog(database, hasByLayer(), this);
        dialog.SetName(GetName());
        if (dialog.DoModal() == IDOK) chosen = dialog.GetName();
    }
    if (chosen.empty() || database != filledFrom()) return;
    RefillList(); // it may be new
    ChooseValue(kx::controls::nameValue(chosen));
}

std::wstring CCobxLineType::UndoName() const {
    return VORD_ResourceString("IDS_TAVO_COBX_UNDO_LINETYPE", L"선종류 변경").c_str();
}
