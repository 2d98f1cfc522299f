#pragma once

#include "kxgui/controls/InPlaceCtrlModel.h"
#include "kxgui/layers/LayerData.h"
#include "kxgui/layers/LayerVariant.h"
#include "platform/toolkit/ListModel.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

// What a click on a cell asks the grid's owner for.
enum class LayerCellClick { none, icon, color, linetype, lineweight, transparency, plotStyle };

// The cells of one column: one object for all rows, which says of a layer what its cell holds and looks like.
class KXGUI_EXPORT CLayerCellItem {
  public:
    explicit CLayerCellItem(LayerColumn column) : m_column(column) {}
    virtual ~CLayerCellItem() = default;
    CLayerCellItem(const CLayerCellItem&) = delete;
    CLayerCellItem& operator=(const CLayerCellItem&) = delete;

    LayerColumn column() const { return m_column; }
    // What is sorted by; of one type in all rows.
    virtual kx::layers::LayerVariant value(const T_LAYER_DATA& layer) const = 0;
    // What is read out, copied and found.
    virtual std::wstring text(const T_LAYER_DATA& layer) const = 0;
    virtual tv::ui::ListCell cell(const T_LAYER_DATA& layer) const;
    virtual CInPlaceCtrlModel::Editor editor(const T_LAYER_DATA&) const {
        return CInPlaceCtrlModel::Editor::none;
    }
    virtual std::vector<tv::ui::ListItem> choices(const T_LAYER_DATA&) const { return {}; }
    virtual LayerCellClick click() const { return LayerCellClick::none; }
    virtual int icon() const { return 0; } // 1 to 6, as CLayerDlg counts them

  private:
    LayerColumn m_column;
};

// A text that is shown as it is.
class KXGUI_EXPORT CLayerStringItem : public CLayerCellItem {
  public:
    explicit CLayerStringItem(LayerColumn column) : CLayerCellItem(column) {}
    kx::layers::LayerVariant value(const T_LAYER_DATA& layer) const override { return text(layer); }
    std::wstring text(const T_LAYER_DATA& layer) const override;
    tv::ui::ListCell cell(const T_LAYER_DATA& layer) const override;
    // The description, except that of the layer the maker's own tools rely on.
    CInPlaceCtrlModel::Editor editor(const T_LAYER_DATA& layer) const override;
    LayerCellClick click() const override;
};

// The name. Whether it may be changed is for the owner to say, with the reason.
class KXGUI_EXPORT CLayerNameItem : public CLayerStringItem {
  public:
    CLayerNameItem() : CLayerStringItem(LayerColumn::name) {}
    CInPlaceCtrlModel::Editor editor(const T_LAYER_DATA&) const override {
        return CInPlaceCtrlModel::Editor::edit;
    }
};

// A state as a picture.
class KXGUI_EXPORT CLayerIconItem : public CLayerCellItem {
  public:
    explicit CLayerIconItem(LayerColumn column) : CLayerCellItem(column) {}
    kx::layers::LayerVariant value(const T_LAYER_DATA& layer) const override;
    std::wstring text(const T_LAYER_DATA& layer) const override;
    tv::ui::ListCell cell(const T_LAYER_DATA& layer) const override;
    LayerCellClick click() const override { return icon() ? LayerCellClick::icon : LayerCellClick::none; }
    int icon() const override;
};

// One of several icons, chosen from a drop-down list.
class KXGUI_EXPORT CLayerIconListItem : public CLayerCellItem {
  public:
    struct Icon {
        std::int32_t number;
        std::wstring text; // what it means
        tv::ui::Picture picture;
    };
    CLayerIconListItem(LayerColumn column, std::vector<Icon> icons,
                       std::function<std::int32_t(const T_LAYER_DATA&)> chosen)
        : CLayerCellItem(column), m_icons(std::move(icons)), m_chosen(std::move(chosen)) {}

    kx::layers::LayerVariant value(const T_LAYER_DATA& layer) const override { return m_chosen(layer); }
    // The number of the icon, as the entries of the drop-down list are keyed.
    std::wstring text(const T_LAYER_DATA& layer) const override;
    tv::ui::ListCell cell(const T_LAYER_DATA& layer) const override;
    CInPlaceCtrlModel::Editor editor(const T_LAYER_DATA&) const override {
        return CInPlaceCtrlModel::Editor::list;
    }
    std::vector<tv::ui::ListItem> choices(const T_LAYER_DATA&) const override { return CreateCombo(); }

    // The entries of the drop-down list: each icon with its number as text.
    std::vector<tv::ui::ListItem> CreateCombo() const;
    // The icon an entry's text stands for; null for none.
    const Icon* OnSelectCombo(std::wstring_view key) const;

  private:
    std::vector<Icon> m_icons;
    std::function<std::int32_t(const T_LAYER_DATA&)> m_chosen;
};

// The layer's colour: a swatch and its name.
class KXGUI_EXPORT CLayerColorItem : public CLayerCellItem {
  public:
    // Reads the drawing area's background (BKGCOLOR), against which index 7 shows.
    explicit CLayerColorItem(LayerColumn column = LayerColumn::color);
    kx::layers::LayerVariant value(const T_LAYER_DATA& layer) const override;
    std::wstring text(const T_LAYER_DATA& layer) const override;
    tv::ui::ListCell cell(const T_LAYER_DATA& layer) const override;
    LayerCellClick click() const override { return LayerCellClick::color; }

    // "Color_%d" for an indexed one.
    static std::wstring nameOf(const OdCmColor& color, std::wstring_view book = {});

  protected:
    virtual OdCmColor colorOf(const T_LAYER_DATA& layer) const { return layer.color; }

  private:
    bool m_lightBackground = false;
};

// The colour in the active viewport: that of the layer where the viewport has none of its own.
class KXGUI_EXPORT CLayerColorBtnItem : public CLayerColorItem {
  public:
    CLayerColorBtnItem() : CLayerColorItem(LayerColumn::vpColor) {}
    std::wstring text(const T_LAYER_DATA& layer) const override;
    tv::ui::ListCell cell(const T_LAYER_DATA& layer) const override;

  protected:
    OdCmColor colorOf(const T_LAYER_DATA& layer) const override { return layer.vp.color.value_or(layer.color); }
};

// These four are those of the active viewport where their column is.
class KXGUI_EXPORT CLayerLineTypeItem : public CLayerCellItem {
  public:
    explicit CLayerLineTypeItem(LayerColumn column) : CLayerCellItem(column) {}
    kx::layers::LayerVariant value(const T_LAYER_DATA& layer) const override { return text(layer); }
    std::wstring text(const T_LAYER_DATA& layer) const override;
    tv::ui::ListCell cell(const T_LAYER_DATA& layer) const override;
    LayerCellClick click() const override { return LayerCellClick::linetype; }
};

class KXGUI_EXPORT CLayerLineWeightItem : public CLayerCellItem {
  public:
    explicit CLayerLineWeightItem(LayerColumn column);
    kx::layers::LayerVariant value(const T_LAYER_DATA& layer) const override;
    std::wstring text(const T_LAYER_DATA& layer) const override;
    tv::ui::ListCell cell(const T_LAYER_DATA& layer) const override;
    LayerCellClick click() const override { return LayerCellClick::lineweight; }

  private:
    OdDb::LineWeight weightOf(const T_LAYER_DATA& layer) const;
    bool m_inches = false;
};

class KXGUI_EXPORT CLayerTransparencyItem : public CLayerCellItem {
  public:
    explicit CLayerTransparencyItem(LayerColumn column) : CLayerCellItem(column) {}
    kx::layers::LayerVariant value(const T_LAYER_DATA& layer) const override;
    std::wstring text(const T_LAYER_DATA& layer) const override;
    tv::ui::ListCell cell(const T_LAYER_DATA& layer) const override;
    LayerCellClick click() const override { return LayerCellClick::transparency; }
};

namespace kx::layers {

// The grid's columns with their headings in the current language, and the cells of each; in the order of
// LayerColumn.
KXGUI_EXPORT std::vector<tv::ui::ListColumn> layerColumns();
KXGUI_EXPORT std::vector<std::unique_ptr<CLayerCellItem>> layerItems();
// What a viewport shows differently.
constexpr bool isViewportColumn(LayerColumn column) {
    return column >= LayerColumn::vpFreeze && column <= LayerColumn::vpPlotStyle;
}

} // namespace kx::layers
