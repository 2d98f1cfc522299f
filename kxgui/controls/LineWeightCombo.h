#pragma once

#include "kxgui/controls/PropertyCobx.h"
#include "platform/drawing/OdDb.h"

// ByLayer, ByBlock (not for things that belong to no layer, nor for layers), the default, and the widths in
// rising order with samples; in millimetres or inches as the user's settings say. Item data is the lineweight
// as 16 bits.
class KXGUI_EXPORT CCobxLineWeight : public CCobxPropertyBase {
  public:
    CCobxLineWeight(CWnd& parent, const char* name)
        : CCobxPropertyBase(parent, name, kx::controls::Property::lineWeight) {}
    void SetType(ControlType type) override;

    // `otherwise` when nothing is selected.
    OdDb::LineWeight GetLineWeight(OdDb::LineWeight otherwise = OdDb::kLnWtByLwDefault) const;
    void SelectLineWeight(OdDb::LineWeight weight) { SelectValue(std::int64_t{weight}); }

  protected:
    void Fill(const OdDbDatabasePtr& database) override;
    int EntryOf(const tv::dwg::Value& value) override;
    std::optional<tv::dwg::Value> ValueOf(int index) const override;
    std::wstring TextOf(const tv::dwg::Value& value) const override;
    std::wstring UndoName() const override;
};
