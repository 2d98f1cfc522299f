#pragma once

#include "kxgui/controls/PropertyCobx.h"

#include <functional>

// ByLayer, ByBlock (not for things that belong to no layer, nor for layers), the drawing's linetypes with
// samples, and "Add Linetypes...".
class KXGUI_EXPORT CCobxLineType : public CCobxNameBase {
  public:
    CCobxLineType(CWnd& parent, const char* name)
        : CCobxNameBase(parent, name, kx::controls::Property::linetype) {}
    void SetType(ControlType type) override;

    // "ByLayer" and "ByBlock" in every language.
    std::wstring GetLinetypeName() const { return GetName(); }
    OdDbObjectId GetLinetypeId() const { return GetSelectedId(); }
    void SelectLinetype(std::wstring_view name) { SelectName(name); }
    void SelectLinetype(OdDbObjectId linetype) { SelectId(linetype); }

    // What "Add Linetypes..." does; answers the name of the linetype to choose, empty for none. Unset: the
    // dialog of the drawing's linetypes opens; loading others from a file is a matter of whoever sets this.
    std::function<std::wstring(const OdDbDatabasePtr& database)> onAddLinetypes;

  protected:
    void Fill(const OdDbDatabasePtr& database) override;
    int EntryOf(const tv::dwg::Value& value) override;
    std::optional<tv::dwg::Value> ValueOf(int index) const override;
    std::wstring TextOf(const tv::dwg::Value& value) const override;
    void OnSpecialEntry(int index) override;
    std::wstring UndoName() const override;
    bool hasByLayer() const { return GetType() != typeNoLayerBlock && GetType() != typeLayer; }
    virtual bool hasAddEntry() const { return true; }
};

// The linetypes alone, to choose one for something.
class KXGUI_EXPORT CCobxSimpleLineType : public CCobxLineType {
  public:
    CCobxSimpleLineType(CWnd& parent, const char* name) : CCobxLineType(parent, name) {
        SetFollowsDrawing(false);
    }

  protected:
    bool hasAddEntry() const override { return false; }
};
