#include "kxgui/controls/IToolbarComboBox.h"

#include "platform/host/TavoInterfaces.h"
#include "platform/host/TavoSysvarManager.h"

using kx::controls::Property;

namespace {

std::wstring_view variableOf(Property property) {
    switch (property) {
    case Property::layer:
        return L"CLAYER";
    case Property::color:
        return L"CECOLOR";
    case Property::linetype:
        return L"CELTYPE";
    case Property::lineWeight:
        return L"CELWEIGHT";
    case Property::plotStyle:
        return L"CPLOTSTYLE";
    case Property::textStyle:
        return L"TEXTSTYLE";
    case Property::dimStyle:
        return L"DIMSTYLE";
    case Property::textHeight:
        return L"TEXTSIZE";
    }
    return {};
}

// In other drawings the colours stand for the pens.
bool hasNamedPlotStyles(const OdDbDatabasePtr& database) {
    int byColor = 1;
    tvedGetVar(L"PSTYLEMODE", byColor, database);
    return byColor == 0;
}

} // namespace

IToolbarComboBox::IToolbarComboBox(VORDCobxBase& combo, Property property,
                                   std::function<std::wstring()> caption)
    : m_combo(combo), m_property(property), m_caption(std::move(caption)) {}

void IToolbarComboBox::ShowCaption() {
    m_combo.CreateToolTip(m_caption());
    m_combo.SetAccessibleName(m_caption());
}

bool IToolbarComboBox::available() const {
    const OdDbDatabasePtr database = tvedWorkingDatabase();
    if (!database || (m_property == Property::plotStyle && !hasNamedPlotStyles(database))) return false;
    const auto picked = kx::controls::pickedObjects(*database);
    return picked.empty() || kx::controls::anyHasProperty(picked, m_property);
}

void IToolbarComboBox::RequestUpdate() {
    m_combo.ScheduleEnabled(available());
    m_combo.ScheduleUpdate();
}

void IToolbarComboBox::RequestSelection() {
    m_combo.ScheduleEnabled(available());
    m_combo.OnSelectionSetChanged();
}

bool IToolbarComboBox::Follows(std::wstring_view variable) const {
    if (variable == variableOf(m_property) || variable == L"PICKFIRST") return true;
    // The colour that ByLayer stands for is the current layer's.
    if (m_property == Property::color && variable == L"CLAYER") return true;
    return m_property == Property::plotStyle && variable == L"PSTYLEMODE";
}

void IToolbarComboBox::Settle() { m_combo.OnTimer(VORDCobxBase::updateTimer); }
