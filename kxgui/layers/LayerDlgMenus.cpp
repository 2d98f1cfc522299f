// The layer manager's menus: of the grid, of the filter tree, and of the button that shows them to those who
// look for a button.
#include "kxgui/layers/LayerDlg.h"
#include "kxgui/layers/LayerExportDlg.h"
#include "kxgui/layers/LayerFilterEdits.h"
#include "kxgui/layers/LayerImportDlg.h"
#include "kxgui/layers/LayerNameRules.h"
#include "kxgui/layers/LayerStatesDlg.h"
#include "kxgui/layers/LayerTexts.h"
#include "platform/text/Format.h"
#include "platform/text/ResourceString.h"
#include "platform/toolkit/Toolkit.h"

using namespace kx::layers;
using Kind = LayerFilterTree::Kind;
using tv::ui::MenuItem;

namespace {

MenuItem entry(const wchar_t* text, bool enabled, std::function<void()> run, const wchar_t* keys = L"") {
    MenuItem item;
    item.text = text;
    item.run = std::move(run);
    item.enabled = enabled;
    item.keys = keys;
    return item;
}

MenuItem submenu(const wchar_t* text, std::vector<MenuItem> items) {
    MenuItem item;
    item.text = text;
    item.items = std::move(items);
    return item;
}

} // namespace

std::vector<MenuItem> CLayerDlg::listMenu(int column) {
    const bool edit = writable();
    const std::int64_t selected = m_list.selection().count();
    const bool one = selected == 1, any = selected > 0;
    const bool renamable = one && mayRename(m_rows->row(m_list.GetCurSel()));
    std::vector<MenuItem> menu;
    menu.push_back(entry(VORD_ResourceString("IDS_TAVO_LAYER_MENU_NEW", L"새 도면층(&N)"), edit,
                         [this] { OnClickListMenu_NEWLAYER(); }));
    menu.push_back(entry(VORD_ResourceString("IDS_TAVO_LAYER_MENU_CURRENT", L"현재로 설정(&C)"), edit && any,
                         [this] { OnClickListMenu_CURRENT(); }));
    menu.push_back(entry(
        VORD_ResourceString("IDS_TAVO_LAYER_MENU_RENAME", L"이름 바꾸기(&R)"), edit && renamable,
        [this] { OnClickListMenu_RENAME(); }, L"F2"));
    menu.push_back(entry(VORD_ResourceString("IDS_TAVO_LAYER_MENU_DESCRIPTION", L"설명 바꾸기(&P)"),
                         edit && one, [this] { OnClickListMenu_DESCRIPTION(); }));
    menu.push_back(entry(
        VORD_ResourceString("IDS_TAVO_LAYER_MENU_DELETE", L"삭제(&D)"), edit && any,
        [this] { OnClickListMenu_DELETE(); }, L"Del"));
    menu.push_back(
        entry(VORD_ResourceString("IDS_TAVO_LAYER_MENU_DELETEALL", L"표시된 도면층 모두 삭제(&T)..."),
              edit && m_rows->rowCount() > 0, [this] { OnClickListMenu_DELETEALL(); }));
    menu.push_back(entry(VORD_ResourceString("IDS_TAVO_LAYER_MENU_MERGE", L"다른 도면층에 병합(&M)..."),
                         edit && any, [this] { OnClickListMenu_MERGE(); }));
    menu.push_back(MenuItem::separator());
    menu.push_back(submenu(
        VORD_ResourceString("IDS_TAVO_LAYER_MENU_SELECT", L"선택(&S)"),
        {entry(
             VORD_ResourceString("IDS_TAVO_LAYER_MENU_SELECTALL", L"모두 선택(&A)"), true,
             [this] { OnClickListMenu_SELECTALL(); }, L"Ctrl+A"),
         entry(VORD_ResourceString("IDS_TAVO_LAYER_MENU_EXCEPTSELECT", L"선택한 것을 뺀 모두(&E)"), any,
               [this] { OnClickListMenu_EXCEPTSELECT(); }),
         entry(VORD_ResourceString("IDS_TAVO_LAYER_MENU_REVERSESELECT", L"선택 반전(&V)"), true,
               [this] { OnClickListMenu_REVERSESELECT(); }),
         entry(VORD_ResourceString("IDS_TAVO_LAYER_MENU_SELSEPERATE", L"도면에서 선택한 객체의 도면층(&O)"),
               true, [this] { OnClickListMenu_SELSEPERATE(); })}));
    menu.push_back(entry(VORD_ResourceString("IDS_TAVO_LAYER_MENU_RESETSORT", L"정렬 초기화(&O)"),
                         m_rows->sortedColumn() >= 0, [this] { OnClickListMenu_RESETSORT(); }));
    menu.push_back(
        entry(VORD_ResourceString("IDS_TAVO_LAYER_MENU_GROUPFILTER", L"선택한 도면층의 그룹 필터(&G)"),
              edit && any, [this] { OnClickListMenu_GROUPFILTER(); }));
    if (std::vector<MenuItem> groups = groupMenu(); edit && any && !groups.empty())
        menu.push_back(submenu(VORD_ResourceString("IDS_TAVO_LAYER_MENU_ADDTOGROUP", L"그룹 필터에 추가(&U)"),
                               std::move(groups)));
    const auto clicked = static_cast<LayerColumn>(column);
    if (clicked >= LayerColumn::vpColor && clicked <= LayerColumn::vpPlotStyle && column >= 0)
        menu.push_back(entry(
            tv::text::format(VORD_ResourceString("IDS_TAVO_LAYER_MENU_REMOVEOVERRIDE", L"재지정 제거(&H): %s"),
                             layerColumnText(clicked))
                .c_str(),
            edit && any, [this, clicked] { OnClickListMenu_REMOVEOVERRIDE(clicked); }));
    if (!m_rows->viewport().isNull())
        menu.push_back(
            entry(VORD_ResourceString("IDS_TAVO_LAYER_MENU_REMOVEOVERRIDES", L"이 뷰포트의 재지정 제거(&W)"),
                  edit && any, [this] { OnClickListMenu_REMOVEOVERRIDES(); }));
    menu.push_back(MenuItem::separator());
    menu.push_back(entry(
        VORD_ResourceString("IDS_TAVO_LAYER_MENU_COPY", L"행을 텍스트로 복사(&Y)"), any,
        [this] { OnClickListMenu_COPY(); }, L"Ctrl+C"));
    menu.push_back(entry(VORD_ResourceString("IDS_TAVO_LAYER_MENU_EXPORT", L"CSV로 내보내기(&X)..."),
                         m_database != nullptr, [this] { OnClickListMenu_EXPORT(); }));
    menu.push_back(entry(VORD_ResourceString("IDS_TAVO_LAYER_MENU_IMPORT", L"CSV 가져오기(&I)..."), edit,
                         [this] { OnClickListMenu_IMPORT(); }));
    return menu;
}

// Each takes the selected layers, as dragging them onto it does.
std::vector<MenuItem> CLayerDlg::groupMenu() {
    std::vector<MenuItem> menu;
    for (const LayerFilterTree::Node& node : m_filters.nodes()) {
        if (node.kind != Kind::group) continue;
        std::wstring text = node.text;
        for (int at = node.parent; at > 0; at = m_filters.node(at).parent)
            text = m_filters.node(at).text + L" > " + text;
        menu.push_back(entry(literalMenuText(text).c_str(), true, [this, record = node.record] {
            if (const int group = m_filters.find(record); m_database && group >= 0)
                answered(addLayers(*m_database, m_filters, group, m_list.SelectedLayers()), false);
        }));
    }
    return menu;
}

std::vector<MenuItem> CLayerDlg::treeMenu() {
    const LayerFilterTree::Node& node = m_filters.node(m_tree.selectedNode());
    const bool edit = writable(), own = edit && node.own();
    const bool group = edit && node.kind == Kind::group, rows = !m_list.selection().empty(),
               chosen = !chosenLayers().empty();
    const auto action = [&](const wchar_t* text, std::function<void()> run) {
        return entry(text, edit, std::move(run));
    };
    std::vector<MenuItem> menu;
    menu.push_back(submenu(VORD_ResourceString("IDS_TAVO_LAYER_TREE_VISIBILITY", L"가시성(&V)"),
                           {action(VORD_ResourceString("IDS_TAVO_LAYER_TREE_ON", L"켜기(&O)"),
                                   [this] { OnClickTreeMenu_VISIBILITY(true); }),
                            action(VORD_ResourceString("IDS_TAVO_LAYER_TREE_OFF", L"끄기(&F)"),
                                   [this] { OnClickTreeMenu_VISIBILITY(false); }),
                            action(VORD_ResourceString("IDS_TAVO_LAYER_TREE_THAWED", L"동결 해제(&T)"),
                                   [this] { OnClickTreeMenu_FREEZE(false); }),
                            action(VORD_ResourceString("IDS_TAVO_LAYER_TREE_FROZEN", L"동결(&Z)"),
                                   [this] { OnClickTreeMenu_FREEZE(true); })}));
    menu.push_back(submenu(VORD_ResourceString("IDS_TAVO_LAYER_TREE_LOCK", L"잠금(&L)"),
                           {action(VORD_ResourceString("IDS_TAVO_LAYER_TREE_LOCKED", L"잠그기(&L)"),
                                   [this] { OnClickTreeMenu_LOCK(true); }),
                            action(VORD_ResourceString("IDS_TAVO_LAYER_TREE_UNLOCKED", L"잠금 해제(&U)"),
                                   [this] { OnClickTreeMenu_LOCK(false); })}));
    menu.push_back(entry(VORD_ResourceString("IDS_TAVO_LAYER_TREE_ISOLATE", L"다른 도면층 모두 동결(&I)"),
                         edit && node.kind != Kind::all, [this] { OnClickTreeMenu_ISOLATE(); }));
    menu.push_back(MenuItem::separator());
    menu.push_back(entry(VORD_ResourceString("IDS_TAVO_LAYER_TREE_NEWFILTER", L"새 특성 필터(&N)..."), edit,
                         [this] { OnBtnNewFilter(); }));
    menu.push_back(entry(VORD_ResourceString("IDS_TAVO_LAYER_TREE_NEWGROUP", L"새 그룹 필터(&G)"), edit,
                         [this] { OnBtnNewGroup(); }));
    menu.push_back(entry(VORD_ResourceString("IDS_TAVO_LAYER_TREE_CONVERT", L"그룹 필터로 변환(&C)"),
                         own && node.kind != Kind::group, [this] { OnClickTreeMenu_CONVERTTOGROUP(); }));
    menu.push_back(entry(
        VORD_ResourceString("IDS_TAVO_LAYER_TREE_RENAME", L"이름 바꾸기(&R)"), own,
        [this] { OnClickTreeMenu_RENAME(); }, L"F2"));
    menu.push_back(entry(
        VORD_ResourceString("IDS_TAVO_LAYER_TREE_DELETE", L"삭제(&D)"), edit,
        [this] { OnClickTreeMenu_DELETE(); }, L"Del"));
    menu.push_back(entry(VORD_ResourceString("IDS_TAVO_LAYER_TREE_PROPERTIES", L"특성(&P)..."),
                         own && node.kind == Kind::property, [this] { OnClickTreeMenu_PROPERTIES(); }));
    menu.push_back(MenuItem::separator());
    menu.push_back(entry(VORD_ResourceString("IDS_TAVO_LAYER_TREE_ADD", L"선택한 도면층 추가(&A)"),
                         group && chosen, [this] { OnClickTreeMenu_ADD(); }));
    menu.push_back(entry(VORD_ResourceString("IDS_TAVO_LAYER_TREE_SUBSTITUTE", L"선택한 도면층으로 대체(&S)"),
                         group && chosen, [this] { OnClickTreeMenu_SUBSTITUTE(); }));
    menu.push_back(entry(VORD_ResourceString("IDS_TAVO_LAYER_TREE_REMOVE", L"선택한 도면층 빼기(&M)"),
                         group && rows, [this] { OnClickTreeMenu_REMOVE(); }));
    return menu;
}

void CLayerDlg::OnBtnMore() { m_more.ShowMenu(listMenu()); }

void CLayerDlg::OnClickListMenu_RESETSORT() {
    m_list.UpdateRows([](LayerRows& rows) { rows.resetSort(); });
    m_list.SetSortMark(-1, true);
}

void CLayerDlg::OnClickListMenu_COPY() {
    if (auto* toolkit = tv::ui::Toolkit::current()) toolkit->setClipboardText(m_list.selectedText());
}

void CLayerDlg::OnBtnLayerStates() {
    if (!m_database) return;
    m_list.EndLabelEditing();
    CLayerStatesDlg(m_database, this).DoModal();
    m_watcher.deliver();
}

void CLayerDlg::OnClickListMenu_EXPORT() {
    if (m_database) CLayerExportDlg(m_database, this).DoModal();
}

void CLayerDlg::OnClickListMenu_IMPORT() {
    if (!writable()) return;
    CLayerImportDlg(m_database, this).DoModal();
    m_watcher.deliver();
    showFilterLine();
    showState();
}
