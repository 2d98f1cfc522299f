#include "kxgui/controls/ColorCombos.h"

#include "kxgui/frame/ColorDlg.h"
#include "kxgui/frame/ColorNames.h"
#include "platform/drawing/OdDbLayerTable.h"
#include "platform/host/TavoSysvarManager.h"
#include "platform/text/MessageManager.h"
#include "platform/text/ResourceString.h"
#include "platform/toolkit/Pictures.h"

using kx::frame::swatchRgb;
using tv::dwg::Value;

namespace {

tv::ui::Picture pictureOf(const OdCmColor& color) { return tv::ui::colorPicture(swatchRgb(color.rgb())); }

// The marks among the items stand for no colour of a drawing; as values they are negative.
bool isMark(std::uintptr_t item) { return item >= CCobxColor::useCurrentItem && item <= CCobxColor::blackItem; }
Value valueOfMark(std::uintptr_t item) { return -static_cast<std::int64_t>(item); }

std::uintptr_t itemOf(const OdCmColor& color) {
    if (color.isByLayer()) return CCobxColor::byLayerItem;
    if (color.isByBlock()) return CCobxColor::byBlockItem;
    if (const auto rgb = color.dxf420())
        return std::uintptr_t{OdCmColor::kByColor} << 24 | static_cast<std::uintptr_t>(*rgb);
    return CCobxColor::firstIndexItem + static_cast<std::uintptr_t>(color.colorIndex());
}

OdCmColor colorOfItem(std::uintptr_t item) {
    if (item == CCobxColor::byLayerItem) return {};
    if (item == CCobxColor::byBlockItem) return OdCmColor::byIndex(OdCmColor::kACIbyBlock);
    if (item >> 24 == OdCmColor::kByColor)
        return OdCmColor::fromDxf(std::nullopt, static_cast<int>(item & 0xFFFFFF));
    return OdCmColor::byIndex(static_cast<int>(item & 0xFF));
}

} // namespace

void CCobxColor::SetType(ControlType type) {
    if (GetType() == type) return;
    CCobxPropertyBase::SetType(type);
    if (!m_built) return;
    ResetContent();
    m_built = false;
    ScheduleUpdate();
}

void CCobxColor::RefillList() {
    KeepSelected();
    const OdDbDatabasePtr database = IsWindow() ? checkCurrentDatabase() : nullptr;
    if (!database) {
        (void)prepareUpdateList();
        m_built = false;
    }
    FillFrom(database);
}

void CCobxColor::Fill(const OdDbDatabasePtr&) {
    BuildList();
    showLayerColor();
}

int CCobxColor::AddEntry(std::wstring_view text, std::uintptr_t item, const tv::ui::Picture& picture) {
    const int at = AddString(text);
    if (at < 0) return at;
    SetItemData(at, item);
    SetItemPicture(at, picture);
    return at;
}

void CCobxColor::BuildList() {
    const std::uint16_t language = VORD_MSGFunction::GetCurrentLanguageId();
    if (m_built && language == m_language) return;
    m_built = true;
    m_language = language;
    m_own = -1;
    ResetContent();
    struct Entry {
        VORD_ResourceString text;
        std::uintptr_t item;
        bool present;
    };
    const bool special = GetType() != typeNoLayerBlock && GetType() != typeLayer;
    const Entry entries[] = {
        {VORD_ResourceString("IDS_ZEL_MANAGED_UI_HATCHDLG_38", L"현재 사용"), useCurrentItem, m_useCurrent},
        {VORD_ResourceString("IDS_MGD_COMMON_NONE", L"없음"), noneItem, m_none},
        {VORD_ResourceString("IDS_MGD_COMMON_NONE", L"없음"), noneItem, m_noneAndBackground},
        {VORD_ResourceString("IDS_MGD_COMMON_UNIT_BG", L"배경"), backgroundItem, m_noneAndBackground},
        {VORD_ResourceString("IDC_TBMNU_513", L"ByLayer"), byLayerItem, special},
        {VORD_ResourceString("IDC_TBMNU_515", L"ByBlock"), byBlockItem, special},
        {VORD_ResourceString("IDC_TBMNU_509", L"Red"), firstIndexItem + 1, true},
        {VORD_ResourceString("IDC_TBMNU_507", L"Yellow"), firstIndexItem + 2, true},
        {VORD_ResourceString("IDC_TBMNU_505", L"Green"), firstIndexItem + 3, true},
        {VORD_ResourceString("IDC_TBMNU_503", L"Cyan"), firstIndexItem + 4, true},
        {VORD_ResourceString("IDC_TBMNU_501", L"Blue"), firstIndexItem + 5, true},
        {VORD_ResourceString("IDC_TBMNU_511", L"Magenta"), firstIndexItem + 6, true},
        {VORD_ResourceString("IDC_TBMNU_499", L"White"), firstIndexItem + 7, true},
        {VORD_ResourceString("IDS_COLORDLG_18", L"Black"), blackItem, GetType() == typeNoLayerBlock},
        {VORD_ResourceString("IDC_TBMNU_497", L"Select Color..."), selectColorItem, true},
    };
    for (const Entry& entry : entries) {
        if (!entry.present) continue;
        tv::ui::Picture picture;
        if (entry.item == blackItem) picture = tv::ui::colorPicture(0);
        if (entry.item > firstIndexItem) picture = pictureOf(colorOfItem(entry.item));
        if (entry.item == byBlockItem) picture = pictureOf(OdCmColor::byIndex(7));
        if (AddEntry(entry.text.c_str(), entry.item, picture) < 0) return;
    }
}

// By layer looks as things drawn now on the current layer do.
void CCobxColor::showLayerColor() {
    const int at = FindItemData(byLayerItem);
    OdDbObjectId id;
    if (at < 0 || tvedGetVar(L"CLAYER", id, filledFrom()) != Tavo::eOk) return;
    const auto layer = id.open<OdDbLayerTableRecord>();
    SetItemPicture(at, layer ? pictureOf(layer->color()) : nullptr);
}

bool CCobxColor::isSelectColor(int index) const {
    return index >= 0 && index == GetCount() - 1 && GetItemData(index) == selectColorItem;
}

int CCobxColor::ownEntry(const OdCmColor& color) {
    if (!isSelectColor(GetCount() - 1)) return -1; // the list ended early
    const std::uintptr_t item = itemOf(color);
    if (m_own >= 0 && GetItemData(m_own) == item) return m_own;
    if (m_own >= 0) DeleteString(m_own);
    m_own = InsertString(GetCount() - 1, kx::frame::colorText(color));
    SetItemData(m_own, item);
    SetItemPicture(m_own, pictureOf(color));
    return m_own;
}

int CCobxColor::EntryOf(const Value& value) {
    const auto* number = std::get_if<std::int64_t>(&value);
    if (!number || !m_built) return -1;
    if (*number < 0) return FindItemData(static_cast<std::uintptr_t>(-*number));
    const OdCmColor color = kx::controls::colorOfValue(value);
    if (color == OdCmColor::byRgb(0, 0, 0))
        if (const int black = FindItemData(blackItem); black >= 0) return black;
    const bool isOwn = color.isByColor() || color.colorIndex() > 7;
    if (color.isByLayer() || color.isByBlock() || !isOwn) return FindItemData(itemOf(color));
    return ownEntry(color);
}

std::optional<Value> CCobxColor::ValueOf(int index) const {
    if (index < 0 || index >= GetCount() || isSelectColor(index)) return std::nullopt;
    const std::uintptr_t item = GetItemData(index);
    return isMark(item) ? valueOfMark(item) : kx::controls::colorValue(colorOfItem(item));
}

std::wstring CCobxColor::TextOf(const Value& value) const {
    const auto* number = std::get_if<std::int64_t>(&value);
    return number && *number >= 0 ? kx::frame::colorText(kx::controls::colorOfValue(value)) : std::wstring();
}

OdCmColor CCobxColor::GetColor() const {
    const auto value = GetValue();
    if (!value) return {};
    if (*value == valueOfMark(blackItem)) return OdCmColor::byRgb(0, 0, 0);
    return kx::controls::colorOfValue(*value);
}

void CCobxColor::OnSelChange() {
    const std::uintptr_t item = GetSelectedItem();
    if (!isMark(item)) return CCobxPropertyBase::OnSelChange();
    SelectValue(valueOfMark(item));
    VORDCobxBase::OnSelChange();
}

void CCobxColor::OnSpecialEntry(int) {
    const auto value = GetValue();
    const auto* number = value ? std::get_if<std::int64_t>(&*value) : nullptr;
    OdCmColor start = value ? kx::controls::colorOfValue(*value) : OdCmColor();
    if (!number || *number < 0) {
        // Nothing to start from: the colour chosen last.
        int index = OdCmColor::kACIbyLayer;
        tvedGetVar(L"COLORINDEX", index, nullptr);
        start = OdCmColor::byIndex(index);
    }
    const bool special = GetType() != typeNoLayerBlock && GetType() != typeLayer;
    CColorDlg dialog(start, special ? CColorDlg::kSpecial : CColorDlg::kPlain, this);
    if (dialog.DoModal() != IDOK || !IsWindow()) return;
    (void)tvedSetVar(L"COLORINDEX", dialog.GetColor().colorIndex(), nullptr);
    ChooseValue(kx::controls::colorValue(dialog.GetColor()));
}

std::wstring CCobxColor::UndoName() const {
    return VORD_ResourceString("IDS_TAVO_COBX_UNDO_COLOR", L"색상 변경").c_str();
}
