#include "platform/frx/MDlgMove.h"

#include "platform/text/Format.h"
#include "platform/text/SettingsStore.h"
#include "platform/text/Unicode.h"

#include <algorithm>

namespace zel::frx {
namespace {

tv::SettingsStore* g_store = nullptr;
constexpr const wchar_t* section = L"DialogPlacement";

// As much of `rect` as possible inside `area`, its top-left corner always.
CRect broughtInto(const CRect& area, const CRect& rect) {
    const int left = std::max(area.left, std::min(rect.left, area.right - rect.Width()));
    const int top = std::max(area.top, std::min(rect.top, area.bottom - rect.Height()));
    return {left, top, left + rect.Width(), top + rect.Height()};
}

std::wstring key(const CDialog& dialog, const wchar_t* what) {
    return tv::text::fromUtf8(dialog.templateName()) + what;
}

} // namespace

void setPlacementStore(tv::SettingsStore* store) { g_store = store; }

int MDlgMove::OnInitDialog() {
    const int result = MInternationalDlg::OnInitDialog();
    m_rememberedWidth = m_rememberedHeight = 0;
    if (g_store) {
        m_rememberedWidth = g_store->getInt(section, key(*this, L".width")).value_or(0);
        m_rememberedHeight = g_store->getInt(section, key(*this, L".height")).value_or(0);
        const auto left = g_store->getInt(section, key(*this, L".left"));
        const auto top = g_store->getInt(section, key(*this, L".top"));
        if (left && top) {
            const CSize size = GetWindowRect().Size();
            MoveWindow(broughtInto(tv::ui::Toolkit::current()->workArea(),
                                   {*left, *top, *left + size.cx, *top + size.cy}));
        }
    }
    FadeIn(*this);
    return result;
}

void MDlgMove::OnSize(unsigned type, int cx, int cy) { MInternationalDlg::OnSize(type, cx, cy); }

HitTest MDlgMove::OnNcHitTest(CPoint point) {
    const CRect& rect = GetWindowRect();
    return rect.PtInRect(point) ? HitTest::caption : HitTest::client;
}

bool MDlgMove::PreTranslateMessage(const tv::ui::KeyEvent& key) { return MInternationalDlg::PreTranslateMessage(key); }

void MDlgMove::OnPlacedByUser(bool resized) { (resized ? m_resized : m_moved) = true; }

void MDlgMove::OnDestroy() {
    StopFade(*this);
    const CRect& rect = GetWindowRect();
    if (g_store && (m_moved || m_resized)) {
        g_store->setInt(section, key(*this, L".left"), rect.left);
        g_store->setInt(section, key(*this, L".top"), rect.top);
    }
    if (g_store && m_resized) {
        g_store->setInt(section, key(*this, L".width"), rect.Width());
        g_store->setInt(section, key(*this, L".height"), rect.Height());
    }
    m_moved = m_resized = false;
    MInternationalDlg::OnDestroy();
}

} // namespace zel::frx
