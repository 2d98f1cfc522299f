#include "kxgui/controls/StyleCombos.h"

#include "kxgui/controls/RecordItems.h"
#include "platform/drawing/OdDbDictionary.h"
#include "platform/drawing/OdDbScale.h"
#include "platform/text/Collation.h"
#include "platform/text/ResourceString.h"
#include "platform/text/Unicode.h"

#include <algorithm>

using kx::controls::RecordKind;
using tv::dwg::Value;

namespace {

// In the order readers expect, digits as numbers.
void sortByText(std::vector<tv::ui::ListItem>& items) {
    const tv::text::Collator order({.digitsAsNumbers = true, .ignoreCase = true});
    std::stable_sort(items.begin(), items.end(),
                     [&](const auto& a, const auto& b) { return order(a.text, b.text); });
}

std::vector<tv::ui::ListItem> namedObjects(OdDbObjectId dictionaryId) {
    std::vector<tv::ui::ListItem> items;
    const auto dictionary = dictionaryId.open<OdDbDictionary>();
    if (!dictionary) return items;
    for (const auto it = dictionary->newIterator(); !it->done(); it->next())
        items.push_back({it->name().wstr(), kx::controls::itemData(it->objectId()), nullptr});
    sortByText(items);
    return items;
}

// --- plot styles: how they are called in drawings, and here ---

constexpr std::uintptr_t byColor = 1, byLayer = 2, byBlock = 3, named = 4;

std::wstring_view plotStyleOf(std::uintptr_t data) {
    switch (data) {
    case byColor:
        return L"ByColor";
    case byLayer:
        return L"ByLayer";
    case byBlock:
        return L"ByBlock";
    default:
        return {};
    }
}

} // namespace

// --- table records -------------------------------------------------------------------------------------------

void CCobxTextStyle::Fill(const OdDbDatabasePtr& database) {
    SetItems(kx::controls::recordItems(*database, RecordKind::textStyles));
}

std::wstring CCobxTextStyle::UndoName() const {
    return VORD_ResourceString("IDS_TAVO_COBX_UNDO_TEXTSTYLE", L"문자 스타일 변경").c_str();
}

void CCobxDimStyle::Fill(const OdDbDatabasePtr& database) {
    SetItems(kx::controls::recordItems(*database, RecordKind::dimStyles));
}

std::wstring CCobxDimStyle::UndoName() const {
    return VORD_ResourceString("IDS_NARVO_COMMANDGUI_TAVODIMSTYLE_ONSELCHANGE_MSG0", L"치수스타일 변경")
        .c_str();
}

// --- plot styles ---------------------------------------------------------------------------------------------

void CCobxPrintStyle::Fill(const OdDbDatabasePtr& database) {
    const auto mode = database->headerVar(L"PSTYLEMODE");
    const bool followsColors = !mode || mode->asInteger().value_or(1) != 0;
    EnableWindow(!followsColors);
    if (followsColors) {
        SetItems(std::vector<tv::ui::ListItem>{
            {VORD_ResourceString("IDS_TAVO_PLOTSTYLE_BYCOLOR", L"색상별").c_str(), byColor, nullptr}});
        return;
    }
    std::vector<tv::ui::ListItem> items = namedObjects(database->getPlotStyleNameDictionaryId());
    for (tv::ui::ListItem& item : items)
        item.data = named;
    items.insert(items.begin(), {{VORD_ResourceString("IDC_TBMNU_513", L"ByLayer").c_str(), byLayer, nullptr},
                                 {VORD_ResourceString("IDC_TBMNU_515", L"ByBlock").c_str(), byBlock, nullptr}});
    SetItems(std::move(items));
}

int CCobxPrintStyle::EntryOf(const Value& value) {
    if (GetCount() > 0 && GetItemData(0) == byColor) return 0;
    const auto* name = std::get_if<OdString>(&value);
    for (int i = 0; name && i < GetCount(); ++i) {
        const std::wstring_view special = plotStyleOf(GetItemData(i));
        if (tv::text::equalNoCase(special.empty() ? items().at(i).text : special, name->view())) return i;
    }
    return -1;
}

std::optional<Value> CCobxPrintStyle::ValueOf(int index) const {
    if (index < 0 || index >= GetCount()) return std::nullopt;
    const std::wstring_view special = plotStyleOf(GetItemData(index));
    return kx::controls::nameValue(special.empty() ? std::wstring_view(items().at(index).text) : special);
}

std::wstring CCobxPrintStyle::UndoName() const {
    return VORD_ResourceString("IDS_TAVO_COBX_UNDO_PLOTSTYLE", L"플롯 스타일 변경").c_str();
}

// --- dictionaries --------------------------------------------------------------------------------------------

void CCobxDictionaryBase::RefillList() {
    const OdDbDatabasePtr current = prepareUpdateList();
    const OdDbDatabasePtr database = m_database ? m_database : current;
    // What was chosen in another drawing, perhaps a closed one, stands for nothing in this one.
    if (!m_asked && database != m_filledFrom.lock()) m_chosen = {};
    m_filledFrom = database;
    if (!database) return;
    m_asked = false;
    SetItems(Entries(*database));
    showChosen();
}

void CCobxDictionaryBase::showChosen() {
    const bool listed = !m_chosen.isNull() && m_chosen.database() == m_filledFrom.lock().get();
    SetCurSel(listed ? FindItemData(kx::controls::itemData(m_chosen)) : -1);
}

void CCobxDictionaryBase::OnSelChange() {
    m_chosen = GetSelectedId();
    m_asked = false;
    VORDCobxBase::OnSelChange();
}

OdDbObjectId CCobxDictionaryBase::GetSelectedId() const {
    if (GetCurSel() < 0) return {};
    const OdDbObjectId id = kx::controls::objectOfItem(m_filledFrom.lock().get(), GetItemData(GetCurSel()));
    return id.isNull() || id.isErased() ? OdDbObjectId() : id;
}

void CCobxDictionaryBase::SelectId(OdDbObjectId id) {
    m_chosen = id;
    m_asked = true;
    showChosen();
}

std::vector<tv::ui::ListItem> CCobxScaleList::Entries(const OdDbDatabase& database) const {
    std::vector<tv::ui::ListItem> items;
    for (const OdDbObjectId id : tv::dwg::scalesOf(database))
        if (const auto scale = id.open<OdDbScale>(); scale && !scale->isTemporary())
            items.push_back({scale->scaleName().wstr(), kx::controls::itemData(id), nullptr});
    return items;
}

std::vector<tv::ui::ListItem> CCobxMLeaderStyle::Entries(const OdDbDatabase& database) const {
    return namedObjects(database.getMLeaderStyleDictionaryId());
}

std::vector<tv::ui::ListItem> CCobxILeaderStyle::Entries(const OdDbDatabase& database) const {
    constexpr std::wstring_view ending = L"ILEADERSTYLE";
    const auto root = database.getNamedObjectsDictionaryId().open<OdDbDictionary>();
    if (!root) return {};
    for (const auto& entry : root->entries()) {
        const std::wstring name = tv::text::toUpper(entry.name.view());
        if (name.ends_with(ending)) return namedObjects(root->getAt(entry.name.view()));
    }
    return {};
}
