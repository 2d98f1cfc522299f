#include "kxgui/controls/PropertyCobx.h"

#include "kxgui/controls/RecordItems.h"
#include "platform/drawing/OdDbSymbolTable.h"
#include "platform/host/TavoCommandLine.h"
#include "platform/text/Numbers.h"
#include "platform/text/Unicode.h"

using kx::controls::CommonValue;
using tv::dwg::Value;

std::optional<Value> CCobxPropertyBase::GetValue() const {
    if (GetCurSel() >= 0)
        if (auto value = ValueOf(GetCurSel())) return value;
    return m_varies ? std::nullopt : m_value;
}

void CCobxPropertyBase::SelectValue(const Value& value) {
    m_value = value;
    m_varies = false;
    ShowChosen();
}

void CCobxPropertyBase::SelectVaries() {
    m_value.reset();
    m_varies = true;
    ShowChosen();
}

void CCobxPropertyBase::ShowChosen() {
    SetCurSel(m_value ? EntryOf(*m_value) : -1);
    if (GetCurSel() >= 0) return;
    SetWindowText(m_varies ? kx::controls::variesText() : m_value ? TextOf(*m_value) : std::wstring());
}

std::wstring CCobxPropertyBase::TextOf(const Value& value) const {
    const auto* text = std::get_if<OdString>(&value);
    return text ? text->wstr() : std::wstring();
}

void CCobxPropertyBase::OnSelectionSetChanged() {
    if (FollowsDrawing()) ScheduleUpdate();
}

void CCobxPropertyBase::RefillList() {
    KeepSelected();
    FillFrom(prepareUpdateList());
}

void CCobxPropertyBase::KeepSelected() {
    if (GetCurSel() < 0) return;
    if (auto value = ValueOf(GetCurSel())) {
        m_value = std::move(value);
        m_varies = false;
    }
}

void CCobxPropertyBase::FillFrom(const OdDbDatabasePtr& database) {
    m_filledFrom = database;
    if (!database) return;
    Fill(database);
    showValue(database);
}

void CCobxPropertyBase::showValue(const OdDbDatabasePtr& database) {
    if (!FollowsDrawing()) return ShowChosen();
    const CommonValue shown = kx::controls::shownValue(database, m_property);
    m_varies = shown.varies;
    m_value = shown.known && !shown.varies ? std::optional(shown.value) : std::nullopt;
    ShowChosen();
}

void CCobxPropertyBase::OnSelChange() {
    const int chosen = GetCurSel();
    const auto value = ValueOf(chosen);
    if (!value) {
        ShowChosen(); // what was selected before
        OnSpecialEntry(chosen);
        return;
    }
    ChooseValue(*value);
}

void CCobxPropertyBase::ChooseValue(const Value& value) {
    SelectValue(value);
    if (FollowsDrawing()) {
        const OdDbDatabasePtr database = checkCurrentDatabase();
        // The list may be that of a drawing which isn't current any more.
        const auto problem = database && database == filledFrom()
                                 ? kx::controls::changeProperty(database, m_property, value, UndoName())
                                 : tv::Problem{Tavo::eNoDatabase, {}, {}, 0};
        if (problem && !problem.sentence.empty()) tvedPrint(problem.sentence);
        if (database) showValue(database);
    }
    VORDCobxBase::OnSelChange();
}

// --- records -------------------------------------------------------------------------------------------------

OdDbObjectId CCobxNameBase::GetSelectedId() const {
    if (GetCurSel() < 0) return {};
    const OdDbObjectId id = kx::controls::objectOfItem(filledFrom().get(), GetItemData(GetCurSel()));
    return id.isNull() || id.isErased() ? OdDbObjectId() : id;
}

std::wstring CCobxNameBase::GetName() const {
    const auto value = GetValue();
    const auto* name = value ? std::get_if<OdString>(&*value) : nullptr;
    return name ? name->wstr() : std::wstring();
}

void CCobxNameBase::SelectId(OdDbObjectId id) {
    const auto record = id.open<OdDbSymbolTableRecord>();
    SelectName(record ? record->getName().view() : std::wstring_view());
}

int CCobxNameBase::EntryOf(const Value& value) {
    const auto* name = std::get_if<OdString>(&value);
    return name && !name->isEmpty() ? FindStringExact(-1, name->view()) : -1;
}

std::optional<Value> CCobxNameBase::ValueOf(int index) const {
    if (index < 0 || index >= GetCount()) return std::nullopt;
    return kx::controls::nameValue(GetLBText(index));
}
