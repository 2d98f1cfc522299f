// The layer manager's window: its life, its texts, and what it shows of the drawing.
#include "kxgui/layers/LayerDlg.h"

#include "kxgui/frame/Templates.h"
#include "kxgui/layers/LayerBoxes.h"
#include "kxgui/layers/LayerFilterEdits.h"
#include "kxgui/layers/LayerHistory.h"
#include "kxgui/layers/LayerRecord.h"
#include "kxgui/layers/LayerViewport.h"
#include "platform/drawing/OdDbEntity.h"
#include "platform/drawing/OdDbLayerTable.h"
#include "platform/host/TavoInterfaces.h"
#include "platform/text/Format.h"
#include "platform/text/MessageManager.h"
#include "platform/text/ResourceString.h"

#include <unordered_set>

using namespace kx::layers;
using tv::ui::Key;

namespace {

// The host owns the drawing; the watcher hears when it goes away.
OdDbDatabasePtr borrowed(OdDbDatabase* database) { return {OdDbDatabasePtr(), database}; }

} // namespace

CLayerDlg::CLayerDlg(OdDbDatabase* database, CWnd* parent)
    : VORDRunDlg(IDD_LAYER, parent), m_database(borrowed(database)), m_rows(std::make_shared<LayerRows>()),
      m_watcher([this](const LayerWatcher::Changes& changes) { changed(changes); }),
      m_drop(m_tree, m_filters, m_list) {
    m_search.LabelledBy(m_searchLabel);
    m_tree.LabelledBy(m_treeLabel);
    m_list.LabelledBy(m_listLabel);
    m_new.onClick = [this] { OnBtnNewLayer(); };
    m_delete.onClick = [this] { OnBtnLayerDelete(); };
    m_setCurrent.onClick = [this] { OnBtnLayerCurrent(); };
    m_states.onClick = [this] { OnBtnLayerStates(); };
    m_more.onClick = [this] { OnBtnMore(); };
    m_newFilter.onClick = [this] { OnBtnNewFilter(); };
    m_newGroup.onClick = [this] { OnBtnNewGroup(); };
    m_invert.onClick = [this] { showFilter(); };
    m_search.onChange = [this] {
        m_list.UpdateRows([this](LayerRows& rows) { rows.setSearch(m_search.GetWindowText()); });
        showFilterLine();
        showState();
    };
    m_tree.onFilterChange = [this](int) { OnTreeSelChanged(); };
    m_tree.onFilterRename = [this](int node, const std::wstring& name) { return OnTreeEndEdit(node, name); };
    m_tree.onFilterDelete = [this](int) { OnClickTreeMenu_DELETE(); };
    m_tree.onFilterMenu = [this](int) { m_tree.ShowMenu(treeMenu()); };
    m_tree.onFilterDoubleClick = [this](int) { OnClickTreeMenu_PROPERTIES(); };
    m_drop.draggedLayers = [this] { return m_list.SelectedLayers(); };
    m_drop.onDropLayers = [this](int node, const std::vector<OdDbObjectId>& layers) {
        answered(addLayers(*m_database, m_filters, node, layers), false);
    };
    m_list.SetOwner(this);
    m_list.onDelete = [this] { OnBtnLayerDelete(); };
    m_list.onSelChange = [this] {
        m_chosen.clear();
        showState();
    };
    m_list.onContextMenu = [this](int, int column) { m_list.ShowMenu(listMenu(column)); };
    m_list.onBeginDrag = [this] { return !m_list.selection().empty(); };
}

CLayerDlg::~CLayerDlg() {
    DestroyWindow();
    SetInterface(nullptr);
}

void CLayerDlg::SetInterface(CLayerInterface* holder) {
    if (m_holder && m_holder->getLayerDlg() == this) m_holder->setLayerDlg(nullptr);
    m_holder = holder;
    if (m_holder) m_holder->setLayerDlg(this);
}

void CLayerDlg::SetText() {
    SetWindowText(VORD_ResourceString("IDS_LAYERDLG_0", L"도면층 특성 관리자"));
    m_new.SetWindowText(VORD_ResourceString("IDS_TAVO_LAYER_NEW", L"새 도면층(&N)"));
    m_new.SetToolTip(VORD_ResourceString("IDS_TAVO_LAYER_NEW_TIP",
                                         L"선택한 도면층과 같은 특성의 도면층을 만듭니다 (Alt+N)"));
    m_delete.SetWindowText(VORD_ResourceString("IDS_TAVO_LAYER_DELETE", L"삭제(&D)"));
    m_delete.SetToolTip(
        VORD_ResourceString("IDS_TAVO_LAYER_DELETE_TIP", L"선택한 도면층을 삭제합니다 (Delete)"));
    m_setCurrent.SetWindowText(VORD_ResourceString("IDS_TAVO_LAYER_SET_CURRENT", L"현재로 설정(&C)"));
    m_setCurrent.SetToolTip(
        VORD_ResourceString("IDS_TAVO_LAYER_SET_CURRENT_TIP", L"선택한 도면층에 새 객체를 그립니다 (Alt+C)"));
    m_states.SetWindowText(VORD_ResourceString("IDS_TAVO_LAYER_STATES", L"상태(&S)..."));
    m_states.SetToolTip(
        VORD_ResourceString("IDS_TAVO_LAYER_STATES_TIP", L"모든 도면층의 상태를 저장하고 복원하고 비교합니다"));
    m_more.SetWindowText(VORD_ResourceString("IDS_TAVO_LAYER_MORE", L"기타(&M)"));
    m_more.SetToolTip(
        VORD_ResourceString("IDS_TAVO_LAYER_MORE_TIP", L"선택한 도면층으로 할 수 있는 모든 일 (Shift+F10)"));
    m_searchLabel.SetWindowText(VORD_ResourceString("IDS_TAVO_LAYER_SEARCH", L"찾기(&H):"));
    m_search.SetToolTip(VORD_ResourceString("IDS_TAVO_LAYER_SEARCH_TIP",
                                            L"이름의 일부, 또는 * ? # @ 등을 쓴 이름 전체의 패턴"));
    m_treeLabel.SetWindowText(VORD_ResourceString("IDS_LAYERFILTER_17", L"필터"));
    m_newFilter.SetWindowText(VORD_ResourceString("IDS_TAVO_LAYER_NEW_FILTER", L"새 필터(&F)..."));
    m_newFilter.SetToolTip(VORD_ResourceString("IDS_TAVO_LAYER_NEW_FILTER_TIP",
                                               L"조건에 맞는 도면층을 보여 주는 필터를 만듭니다"));
    m_newGroup.SetWindowText(VORD_ResourceString("IDS_TAVO_LAYER_NEW_GROUP", L"새 그룹(&G)"));
    m_newGroup.SetToolTip(
        VORD_ResourceString("IDS_TAVO_LAYER_NEW_GROUP_TIP", L"골라 넣은 도면층을 보여 주는 필터를 만듭니다"));
    m_invert.SetWindowText(VORD_ResourceString("IDS_TAVO_LAYER_INVERT", L"필터 반전(&I)"));
    m_invert.SetToolTip(
        VORD_ResourceString("IDS_TAVO_LAYER_INVERT_TIP", L"선택한 필터에 맞지 않는 도면층을 보여 줍니다"));
    m_listLabel.SetWindowText(VORD_ResourceString("IDS_TAVO_LAYER_LIST", L"도면층(&L)"));
    m_filterLine.SetWindowText(VORD_ResourceString("IDS_LAYER_1", L"전체 도면층 도면층이 표시됨"));
    m_ok.SetWindowText(VORD_ResourceString("IDS_MGD_COMMON_OK", L"확인"));
    m_cancel.SetWindowText(VORD_ResourceString("IDS_MGD_COMMON_CANCEL", L"취소"));
}

// One that stays open sees the language change.
void CLayerDlg::languageChanged() {
    if (!created()) return;
    SetText();
    m_list.SetHeadings();
    OnLayerFilterModifed();
    showCurrentLine();
}

void CLayerDlg::InitCtrl() {
    m_languageHandle = VORD_MSGFunction::onLanguageChanged([this] { languageChanged(); });
    m_search.SetLimitText(1000);
    m_list.SetRows(m_rows);
    m_list.RememberColumns(tvedSettings());
}

void CLayerDlg::Data2Dlg() {
    OnReInit();
    if (m_callback != kLayerCallbackNone && m_database) {
        std::unordered_set<OdDbObjectId> seen;
        std::vector<OdDbObjectId> layers;
        for (const OdDbObjectId id : m_objects)
            if (const auto entity = id.open<OdDbEntity>())
                if (const OdDbObjectId layer = entity->layerId(); seen.insert(layer).second)
                    layers.push_back(layer);
        if (!layers.empty()) m_list.SelectLayers(layers);
    }
    m_list.SetFocus();
    showState();
}

int CLayerDlg::Dlg2Data() {
    m_list.EndLabelEditing();
    return 1;
}

void CLayerDlg::OnDestroy() {
    m_tell.cancel();
    m_preparing.cancel();
    m_watcher.watch(nullptr);
    m_list.UpdateRows([](LayerRows& rows) { rows.setDatabase(nullptr); });
    VORDRunDlg::OnDestroy();
}

// Nobody tells when another sheet comes into view.
void CLayerDlg::settle() {
    m_watcher.deliver();
    if (created()) SetActiveDlg(true);
}

void CLayerDlg::keyboardCame() {
    VORDRunDlg::keyboardCame();
    SetActiveDlg(true);
}

bool CLayerDlg::PreTranslateMessage(const tv::ui::KeyEvent& key) {
    const bool plain = !key.ctrl && !key.alt && !key.shift;
    if (GetFocus() == &m_search && plain && key.key == Key::escape && !m_search.GetWindowText().empty()) {
        m_search.SetWindowText(L"");
        m_search.onChange();
        return true;
    }
    // Enter goes on with what was found; it doesn't close the window.
    if (GetFocus() == &m_search && plain && (key.key == Key::down || key.key == Key::enter)) {
        if (m_list.GetCurSel() < 0 && m_list.GetItemCount() > 0) {
            m_list.SetSelection({0});
            m_list.SetFocusCell(0, static_cast<int>(LayerColumn::name));
        }
        m_list.SetFocus();
        showState();
        return true;
    }
    // The window keeps the drawing's own Undo from the keyboard.
    const bool inText = m_list.editor() || GetFocus() == &m_search || m_tree.editedItem() != 0;
    if (!inText && m_database && key.ctrl && !key.alt && !key.shift && key.key == Key::character) {
        if (key.ch == L'Z' && m_database->undoName() == L"_LAYER") {
            m_database->undo();
            m_watcher.deliver();
            return true;
        }
        if (key.ch == L'Y' && m_database->redoName() == L"_LAYER") {
            m_database->redo();
            m_watcher.deliver();
            return true;
        }
    }
    return VORDRunDlg::PreTranslateMessage(key);
}

// --- what is shown -------------------------------------------------------------------------------------------

void CLayerDlg::OnReInit() {
    m_watcher.watch(m_database.get());
    m_chosen.clear();
    readFilters();
    SetListCtrl();
    prepareSearchSoon();
    showFilterLine();
    selectCurrent();
    showCurrentLine();
    showState();
}

void CLayerDlg::SetListCtrl() {
    m_list.UpdateRows([this](LayerRows& rows) {
        rows.setDatabase(nullptr); // so that one pass is enough for all
        rows.setFilter(chosenFilter());
        rows.setDatabase(m_database.get());
    });
    m_list.SetViewport(m_database ? activeLayerViewport(m_database) : OdDbObjectId());
    if (m_filters.asksForViewport(m_tree.selectedNode())) showFilter();
}

// The first letter typed into the search box shall take no longer than the next ones.
void CLayerDlg::prepareSearchSoon() {
    constexpr std::chrono::milliseconds quiet(200);
    auto* toolkit = tv::ui::Toolkit::current();
    if (toolkit && !toolkit->postpone(m_preparing, quiet))
        m_preparing = toolkit->after(quiet, [this] { m_rows->prepareSearch(); });
}

void CLayerDlg::OnDatabaseChanged() {
    const OdDbDatabasePtr working = tvedWorkingDatabase();
    if (working.get() == m_database.get()) return;
    m_database = borrowed(working.get());
    OnReInit();
}

void CLayerDlg::SetActiveDlg(bool active) {
    const OdDbObjectId viewport = active && m_database ? activeLayerViewport(m_database) : OdDbObjectId();
    if (viewport == m_rows->viewport()) return;
    m_list.SetViewport(viewport);
    if (m_filters.asksForViewport(m_tree.selectedNode())) showFilter();
}

void CLayerDlg::OnCLayerChanged() {
    m_list.UpdateRows([](LayerRows& rows) { rows.currentChanged(); });
    if (m_filters.asksForCurrent(m_tree.selectedNode())) showFilter();
    if (IsWindow() && IsWindowVisible()) selectCurrent();
    showCurrentLine();
    showState();
}

void CLayerDlg::OnLayerModifed() {
    m_list.UpdateRows([](LayerRows& rows) { rows.refresh(); });
    showCurrentLine();
    showFilterLine();
    showState();
}

void CLayerDlg::OnLayerFilterModifed() {
    readFilters();
    showFilter();
}

void CLayerDlg::changed(const LayerWatcher::Changes& changes) {
    if (!created()) return;
    if (changes.drawing) {
        // A modal window keeps its drawing, and nobody can close that meanwhile.
        const bool gone = m_database && !m_watcher.watching();
        if (gone) {
            m_database = nullptr;
            OnReInit();
        }
        if (modeless() || gone) OnDatabaseChanged();
    }
    if (!m_database) return;
    if (changes.table || !changes.layers.empty()) prepareSearchSoon();
    if (changes.viewport) {
        SetActiveDlg(true);
        m_list.UpdateRows([](LayerRows& rows) { rows.viewportChanged(); });
        if (m_filters.asksForViewport(m_tree.selectedNode())) showFilter();
    }
    if (changes.filters) OnLayerFilterModifed();
    if (changes.table)
        OnLayerModifed();
    else
        for (const OdDbObjectId layer : changes.layers)
            m_list.LayerChanged(layer);
    if (changes.current)
        OnCLayerChanged();
    else
        showCurrentLine();
    showFilterLine();
    showState();
}

void CLayerDlg::readFilters() {
    if (m_database)
        m_filters.read(*m_database);
    else
        m_filters.clear();
    m_tree.SetTree(m_filters);
}

LayerRows::Filter CLayerDlg::chosenFilter() const {
    const int node = m_tree.selectedNode();
    LayerRows::Filter filter;
    if (node > 0) filter = m_filters.matcher(node);
    if (m_invert.GetCheck())
        filter = [shown = std::move(filter)](const T_LAYER_DATA& row) { return shown && !shown(row); };
    return filter;
}

void CLayerDlg::showFilter() {
    m_list.UpdateRows([this](LayerRows& rows) { rows.setFilter(chosenFilter()); });
    showFilterLine();
    showState();
}

bool CLayerDlg::CheckLayerForCurrentFilter(const T_LAYER_DATA& row) const {
    return m_filters.accepts(m_tree.selectedNode(), row) != (m_invert.GetCheck() != 0);
}

void CLayerDlg::selectCurrent() {
    const OdDbObjectId layer = m_database ? currentLayer(*m_database) : OdDbObjectId();
    if (m_rows->rowOfLayer(layer) >= 0) m_list.SelectLayers({layer});
}

void CLayerDlg::showCurrentLine() {
    OdString name;
    if (m_database)
        if (const auto record = currentLayer(*m_database).open<OdDbLayerTableRecord>())
            name = record->getName();
    m_currentLine.SetWindowText(
        tv::text::format(L"%s : %s", VORD_ResourceString("IDS_ZEL_MANAGED_UI_LAYER_51", L"현재 도면층"), name));
}

void CLayerDlg::showFilterLine() {
    m_filterLine.SetWindowText(
        tv::text::format(VORD_ResourceString("IDS_CAD_GUI_LAYER_EXPRESSION_N_LAYER",
                                             L"%s: %d개 도면층이 전체 %d개 도면층 중에서 표시되었음"),
                         m_filters.node(m_tree.selectedNode()).text, m_rows->rowCount(), m_rows->tableCount()));
}

bool CLayerDlg::writable() const { return m_database && !m_database->isReadOnly(); }

bool CLayerDlg::mayWrite() {
    if (m_database && !writable()) warn(this, notWrittenBox(*m_database, Tavo::eReadOnly));
    return writable();
}

void CLayerDlg::showState() {
    const bool any = !m_list.selection().empty();
    m_new.EnableWindow(writable());
    m_delete.EnableWindow(writable() && any);
    m_setCurrent.EnableWindow(writable() && any);
    m_newFilter.EnableWindow(writable());
    m_newGroup.EnableWindow(writable());
    m_states.EnableWindow(m_database != nullptr);
}

// --- the way into the drawing --------------------------------------------------------------------------------

bool CLayerDlg::UpdateLayer(T_LAYER_DATA& row, EN_LAYER_UPDATE kind) {
    std::vector<LayerUpdate> one{{kind, row, kAllLayerFields}};
    if (!UpdateLayers(one)) return false;
    row = one.front().row;
    return true;
}

bool CLayerDlg::UpdateLayers(std::vector<LayerUpdate>& updates) {
    m_toggledLast = false;
    if (updates.empty()) return true;
    if (!m_database) return false;
    const Tavo::ErrorStatus status = write(updates);
    if (status != Tavo::eOk) warn(this, notWrittenBox(*m_database, status));
    return status == Tavo::eOk;
}

Tavo::ErrorStatus CLayerDlg::write(std::vector<LayerUpdate>& updates) {
    m_toggledLast = false;
    DBIntegrationManager_ZEL history;
    history.OnStartUndoRecord(m_database);
    const Tavo::ErrorStatus status = writeLayers(*m_database, updates, m_rows->viewport());
    history.OnCleanupAndReturn_ExecuteCommand();
    m_watcher.deliver();
    if (status == Tavo::eOk) CIsLayerModifed::setModifiedFromDlg(true);
    return status;
}
