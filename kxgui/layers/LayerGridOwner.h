#pragma once

#include "kxgui/layers/LayerData.h"

#include <string>

// Who owns the grid of layers: it checks what a person asks for and writes it. Rows are the grid's; a call that
// acts on the selected rows is told which of them was clicked, and all become what that one becomes.
class ILayerGridOwner {
  public:
    virtual ~ILayerGridOwner() = default;

    // icon 1 on, 2 freeze, 3 lock, 4 plot, 5 freeze in new viewports, 6 freeze in the active viewport.
    virtual void OnClickListItemIcon(int row, int icon) = 0;
    virtual void OnClickListItemIcons(int row, int icon) = 0;
    // The column is that of the layer or that of the active viewport.
    virtual void OnClickListItemColor(int row, LayerColumn column) = 0;
    virtual void OnClickListItemColors(int row, LayerColumn column) = 0;
    virtual void OnClickListItemLineType(int row, LayerColumn column) = 0;
    virtual void OnClickListItemLineTypes(int row, LayerColumn column) = 0;
    virtual void OnClickListItemLineWeight(int row, LayerColumn column) = 0;
    virtual void OnClickListItemLineWeights(int row, LayerColumn column) = 0;
    virtual void OnClickListItemTransparency(int row, LayerColumn column) = 0;
    virtual void OnClickListItemTransparencys(int row, LayerColumn column) = 0;
    virtual void OnClickListItemPlotStyle(int row, LayerColumn column) = 0;
    virtual void OnClickListItemPlotStyles(int row, LayerColumn column) = 0;

    // Whether the name may be edited; the owner says why not. Asked before a name is edited.
    virtual bool CheckNameChangeEnable(int row) = 0;
    // The same before another text is edited (column as below).
    virtual bool OnEditingListItemString(int row, int column) = 0;
    // A text was entered; column 0 is the name, 3 the description. False, with the reason told, refuses it.
    virtual bool OnEndEditListItemString(int row, int column, const std::wstring& text) = 0;
    // The number of an icon was chosen from a drop-down list. False refuses it.
    virtual bool OnSelectListItemCombo(int /*row*/, int /*column*/, int /*number*/) { return false; }
    // The click that came last was the first half of a double click: what it changed is taken back.
    virtual void OnTakeBackListItem() {}
    // The layer whose text was being edited was taken out of the drawing, and the editor with it.
    virtual void OnEditedListItemGone() {}
    // A double click on a text or a state: the layer is to become the current one.
    virtual void OnDoubleClickListItem(int row) = 0;
};
