#pragma once

#include "kxgui/frame/VORDBaseDlg.h"
#include "kxgui/layers/LayerFilterTree.h"
#include "kxgui/layers/LayerGridOwner.h"
#include "kxgui/layers/LayerInterface.h"
#include "kxgui/layers/LayerListCtrl.h"
#include "kxgui/layers/LayerTreeCtrl.h"
#include "kxgui/layers/LayerWatcher.h"
#include "kxgui/layers/LayerWriter.h"
#include "platform/drawing/OdDbDatabase.h"
#include "platform/toolkit/Button.h"
#include "platform/toolkit/Edit.h"
#include "platform/toolkit/Menu.h"
#include "platform/toolkit/Static.h"

#include <memory>
#include <optional>
#include <vector>

class CLayerFilterDlg;
namespace kx::layers {
struct FilterAnswer;
} // namespace kx::layers

// The layer properties manager: every layer of a drawing in a grid, a tree of filters beside it. What a person
// changes is written at once, each change one undo step named "_LAYER"; the buttons at the bottom only close
// it. Run with DoModal, or with Create to stay while the program goes on; then it follows the drawing that is
// current. Closing the drawing leaves it empty.
class KXGUI_EXPORT CLayerDlg : public VORDRunDlg, public ILayerGridOwner {
  public:
    CLayerDlg(OdDbDatabase* database, CWnd* parent);
    ~CLayerDlg() override;

    // --- for the host ---

    // Registers it in the host's holder (null: in none), which forgets it when it is destroyed.
    void SetInterface(CLayerInterface* holder);
    // Objects of the drawing, and what they are for.
    void SetObjectIdArray(std::vector<OdDbObjectId> objects) { m_objects = std::move(objects); }
    void SetCallBackType(EN_LAYER_CALLBACK type) { m_callback = type; }
    EN_LAYER_CALLBACK GetCallBackType() const { return m_callback; }
    // Follows the space that is active now (TILEMODE, ACTIVEPV): with a viewport of a sheet its columns show.
    void SetActiveDlg(bool active);
    void OnCLayerChanged();
    void OnLayerModifed();
    void OnLayerFilterModifed();
    // The working drawing is another one.
    void OnDatabaseChanged();
    // Everything anew.
    void OnReInit();

    // The one way into the drawing. False when it refused, which the person has been told; nothing was changed
    // then. A layer that is made gets its id and handle in `row`.
    bool UpdateLayer(T_LAYER_DATA& row, EN_LAYER_UPDATE kind);
    bool UpdateLayers(std::vector<kx::layers::LayerUpdate>& updates);

    // --- buttons and the grid's menu ---

    void OnBtnNewLayer();
    void OnBtnLayerDelete();
    void OnBtnLayerCurrent();
    void OnBtnLayerStates();
    void OnBtnMore();
    void OnClickListMenu_NEWLAYER() { OnBtnNewLayer(); }
    void OnClickListMenu_DELETE() { OnBtnLayerDelete(); }
    void OnClickListMenu_CURRENT() { OnBtnLayerCurrent(); }
    void OnClickListMenu_RENAME();
    void OnClickListMenu_DESCRIPTION();
    void OnClickListMenu_MERGE();
    void OnClickListMenu_SELECTALL();
    void OnClickListMenu_EXCEPTSELECT();
    void OnClickListMenu_REVERSESELECT();
    // The layers of the objects that are selected in the drawing.
    void OnClickListMenu_SELSEPERATE();
    // Every layer the grid shows that can be deleted, after a question.
    void OnClickListMenu_DELETEALL();
    void OnClickListMenu_RESETSORT();
    void OnClickListMenu_GROUPFILTER();
    void OnClickListMenu_COPY();
    // Of the selected layers in the active viewport: all of them, or those of one column.
    void OnClickListMenu_REMOVEOVERRIDES();
    void OnClickListMenu_REMOVEOVERRIDE(LayerColumn column);
    void OnClickListMenu_EXPORT();
    void OnClickListMenu_IMPORT();

    // --- cells of the grid ---
    void OnClickListItemIcon(int row, int icon) override;
    void OnClickListItemIcons(int row, int icon) override;
    void OnClickListItemColor(int row, LayerColumn column) override;
    void OnClickListItemColors(int row, LayerColumn column) override;
    void OnClickListItemLineType(int row, LayerColumn column) override;
    void OnClickListItemLineTypes(int row, LayerColumn column) override;
    void OnClickListItemLineWeight(int row, LayerColumn column) override;
    void OnClickListItemLineWeights(int row, LayerColumn column) override;
    void OnClickListItemTransparency(int row, LayerColumn column) override;
    void OnClickListItemTransparencys(int row, LayerColumn column) override;
    void OnClickListItemPlotStyle(int row, LayerColumn column) override;
    void OnClickListItemPlotStyles(int row, LayerColumn column) override;
    bool CheckNameChangeEnable(int row) override;
    bool OnEditingListItemString(int row, int column) override;
    bool OnEndEditListItemString(int row, int column, const std::wstring& text) override;
    void OnTakeBackListItem() override;
    void OnEditedListItemGone() override;
    void OnDoubleClickListItem(int row) override;

    // --- filters ---

    void OnBtnNewFilter();
    void OnBtnNewGroup();
    void OnTreeSelChanged();
    bool OnTreeEndEdit(int node, const std::wstring& name);
    void OnClickTreeMenu_VISIBILITY(bool on);
    void OnClickTreeMenu_FREEZE(bool frozen);
    void OnClickTreeMenu_LOCK(bool locked);
    void OnClickTreeMenu_ISOLATE();
    void OnClickTreeMenu_CONVERTTOGROUP();
    void OnClickTreeMenu_RENAME();
    void OnClickTreeMenu_DELETE();
    void OnClickTreeMenu_PROPERTIES();
    // The layers that are, or were when the filter was chosen, selected in the grid.
    void OnClickTreeMenu_ADD();
    void OnClickTreeMenu_SUBSTITUTE();
    void OnClickTreeMenu_REMOVE();
    // Whether the chosen filter shows the layer.
    bool CheckLayerForCurrentFilter(const T_LAYER_DATA& row) const;

    // --- window ---

    void SetText() override;
    void InitCtrl() override;
    void Data2Dlg() override;
    int Dlg2Data() override;
    bool PreTranslateMessage(const tv::ui::KeyEvent& key) override;
    void settle() override;

  protected:
    void OnDestroy() override;
    void keyboardCame() override;

  private:
    using Rows = std::vector<int>;
    Rows selectedRows() const;
    void toggle(const Rows& rows, int clicked, int icon);
    // False when nothing was written.
    bool setStates(const std::vector<OdDbObjectId>& layers, unsigned field, bool value);
    std::vector<OdDbObjectId> layersOf(const Rows& rows) const;
    void writeCells(const std::vector<OdDbObjectId>& layers, EN_LAYER_UPDATE kind, unsigned field,
                    const std::function<void(T_LAYER_DATA&)>& set);
    void chooseColor(const Rows& rows, int clicked, LayerColumn column);
    void chooseLinetype(const Rows& rows, int clicked, LayerColumn column);
    void chooseLineWeight(const Rows& rows, int clicked, LayerColumn column);
    void chooseTransparency(const Rows& rows, int clicked, LayerColumn column);
    void choosePlotStyle(const Rows& rows, int clicked, LayerColumn column);

    void makeCurrent(const T_LAYER_DATA& row);
    bool renameLayer(const T_LAYER_DATA& row, std::wstring_view name);
    bool describeLayer(const T_LAYER_DATA& row, std::wstring_view text);
    void deleteRows(const Rows& rows);
    void editCell(LayerColumn column);

    std::vector<tv::ui::MenuItem> listMenu(int column = -1);
    std::vector<tv::ui::MenuItem> treeMenu();
    // Fills the grid with what the chosen filter shows of the drawing.
    void SetListCtrl();
    kx::layers::LayerRows::Filter chosenFilter() const; // empty: everything
    void showFilter();
    void readFilters();
    void changed(const kx::layers::LayerWatcher::Changes& changes);
    void languageChanged();
    void prepareSearchSoon();
    void showCurrentLine();
    void showFilterLine();
    void showState();
    void selectCurrent();
    // `show`: the filter it was about is chosen.
    bool answered(const kx::layers::FilterAnswer& answer, bool show = true);
    // Runs it on a filter, -1 for a new one.
    bool editFilter(CLayerFilterDlg& dialog, int parent, int node);
    // The layers a group filter is to take: the selected ones, also those the filter that was chosen since
    // doesn't show.
    std::vector<OdDbObjectId> chosenLayers() const;
    std::vector<tv::ui::MenuItem> groupMenu();
    bool writable() const;
    // The same, and the person is told why not.
    bool mayWrite();
    Tavo::ErrorStatus write(std::vector<kx::layers::LayerUpdate>& updates);

    OdDbDatabasePtr m_database;
    kx::layers::LayerFilterTree m_filters;
    std::shared_ptr<kx::layers::LayerRows> m_rows;
    kx::layers::LayerWatcher m_watcher;
    tv::ui::Timer m_preparing;
    CLayerInterface* m_holder = nullptr;
    std::vector<OdDbObjectId> m_objects;
    EN_LAYER_CALLBACK m_callback = kLayerCallbackNone;
    bool m_toggledLast = false; // the last write was a click on an icon
    tv::ui::Timer m_tell;
    std::shared_ptr<void> m_languageHandle;
    std::vector<OdDbObjectId> m_chosen; // what was selected when another filter was chosen

    CStatic m_currentLine{*this, "IDC_LAYER_CURRENT_LINE"};
    CButton m_new{*this, "IDC_LAYER_NEW"};
    CButton m_delete{*this, "IDC_LAYER_DELETE"};
    CButton m_setCurrent{*this, "IDC_LAYER_SET_CURRENT"};
    CButton m_states{*this, "IDC_LAYER_STATES"};
    CButton m_more{*this, "IDC_LAYER_MORE"};
    CStatic m_searchLabel{*this, "IDC_LAYER_SEARCH_LABEL"};
    CEdit m_search{*this, "IDC_LAYER_SEARCH"};
    CStatic m_treeLabel{*this, "IDC_LAYER_TREE_LABEL"};
    CButton m_newFilter{*this, "IDC_LAYER_NEW_FILTER"};
    CButton m_newGroup{*this, "IDC_LAYER_NEW_GROUP"};
    CLayerTreeCtrl m_tree{*this, "IDC_LAYER_TREE"};
    CCheckBox m_invert{*this, "IDC_LAYER_INVERT"};
    CStatic m_listLabel{*this, "IDC_LAYER_LIST_LABEL"};
    CLayerListCtrl m_list{*this, "IDC_LAYER_LIST"};
    CStatic m_filterLine{*this, "IDC_LAYER_FILTER_LINE"};
    CButton m_ok{*this, "IDOK"};
    CButton m_cancel{*this, "IDCANCEL"};
    CLayerDropTarget m_drop;
};
