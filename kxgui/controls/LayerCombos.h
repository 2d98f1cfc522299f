#pragma once

#include "kxgui/controls/PropertyCobx.h"

// The layers of the drawing, each with a picture of its state: on, frozen, locked, colour. Never "*Information
// Hidden Layer", on which programs keep things of their own, nor those of external references, on which nothing
// new can be drawn.
class KXGUI_EXPORT CCobxLayer : public CCobxNameBase {
  public:
    CCobxLayer(CWnd& parent, const char* name) : CCobxNameBase(parent, name, kx::controls::Property::layer) {}
    OdDbObjectId GetLayerId() const { return GetSelectedId(); }
    std::wstring GetLayerName() const { return GetName(); }
    void SelectLayer(OdDbObjectId layer) { SelectId(layer); }
    void SelectLayer(std::wstring_view name) { SelectName(name); }

  protected:
    void Fill(const OdDbDatabasePtr& database) override;
    std::wstring UndoName() const override;
};

// The same to choose a layer for something: never shows or changes the drawing's present state by itself.
class KXGUI_EXPORT CCobxLayerSimple : public CCobxLayer {
  public:
    CCobxLayerSimple(CWnd& parent, const char* name) : CCobxLayer(parent, name) { SetFollowsDrawing(false); }
};
