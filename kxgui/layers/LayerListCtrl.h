#pragma once

#include "kxgui/controls/ListEditableCtrl.h"
#include "kxgui/layers/LayerGridOwner.h"
#include "kxgui/layers/LayerRows.h"
#include "platform/toolkit/ListColumnsMemory.h"

#include <functional>
#include <memory>
#include <optional>

namespace tv {
class SettingsStore;
} // namespace tv

// The grid of layers. It writes nothing itself: clicks, keys and texts go to its owner.
class KXGUI_EXPORT CLayerListCtrl : public CListEditableCtrl {
  public:
    CLayerListCtrl(CWnd& parent, const char* name);

    // Without an owner nothing can be done in it.
    void SetOwner(ILayerGridOwner* owner) { m_owner = owner; }
    // Makes the columns and shows these rows in them.
    void SetRows(std::shared_ptr<kx::layers::LayerRows> rows);
    kx::layers::LayerRows* rows() const { return m_layers.get(); }

    // Arranges the columns as a person left them ("LayerGridMain") and remembers from now on how they are
    // arranged. Those of viewports keep their places while there is no viewport.
    void RememberColumns(tv::SettingsStore* store);
    // The headings in the current language.
    void SetHeadings();

    // Changes the rows. What was selected, in view and being edited stays so, as far as it is still shown; an
    // editor whose layer is not ends without a word.
    void UpdateRows(const std::function<void(kx::layers::LayerRows&)>& change);
    // One layer was added, changed or erased.
    void LayerChanged(OdDbObjectId layer);
    // The columns of viewports are shown while there is one (see LayerRows::setViewport).
    void SetViewport(OdDbObjectId viewport);

    std::vector<OdDbObjectId> SelectedLayers() const;
    // Those of them that are shown; the first one comes into view.
    void SelectLayers(const std::vector<OdDbObjectId>& layers);

    // The Delete key.
    std::function<void()> onDelete;

    bool OnItemLButtonClick(int row, int column) override;
    bool openEditor(int row, int column) override;
    bool controlKey(const tv::ui::KeyEvent& key) override;
    tv::ui::KeyRoute routeKey(const tv::ui::KeyEvent& key) override;

  protected:
    bool keepsSelection(int row, int column) const override;
    int typedColumn() const override;
    bool offersColumn(int column) const override;
    void OnTakeBack(int row, int column) override;
    void OnDoubleClick(int row, int column) override;

  private:
    bool activate(int row, int column);
    bool makeCurrent(int row, int column);
    bool setText(int row, int column, const std::wstring& text);
    void columnsChanged();
    void showViewportColumns();

    std::shared_ptr<kx::layers::LayerRows> m_layers;
    ILayerGridOwner* m_owner = nullptr;
    std::optional<tv::ui::ListColumnsMemory> m_memory;
    std::vector<bool> m_wanted; // columns a person wants to see, whether there is a viewport or not
};
