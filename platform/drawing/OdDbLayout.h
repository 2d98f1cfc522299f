#pragma once

#include "platform/Export.h"
#include "platform/drawing/OdDbEntity.h"
#include "platform/drawing/OdDbPlotSettings.h"

#include <memory>
#include <string_view>
#include <vector>

// The model or one sheet of the drawing, with how it is plotted. Its entities lie in its block.
class KXPLATFORM_EXPORT OdDbLayout : public OdDbPlotSettings {
  public:
    using OdDbPlotSettings::OdDbPlotSettings;

    OdString getLayoutName() const;
    // In the record, in the dictionary of layouts and in the layout's entities that say it. eDuplicate for a
    // name another layout has, eInvalidInput for an empty one and for the model's layout.
    Tavo::ErrorStatus setLayoutName(std::wstring_view name);
    // The model's is 0.
    int getTabOrder() const;
    Tavo::ErrorStatus setTabOrder(int order);

    OdDbObjectId getBlockTableRecordId() const;
    bool isModelLayout() const;
    // The entities, wherever the file keeps them.
    OdDbEntityRange entities() const;

    // Of the sheet: PSLTSCALE and LIMCHECK.
    bool psLtScale() const;
    Tavo::ErrorStatus setPsLtScale(bool on);
    bool limitsCheck() const;
    Tavo::ErrorStatus setLimitsCheck(bool on);

    OdGePoint2d limitsMin() const;
    OdGePoint2d limitsMax() const;
    Tavo::ErrorStatus setLimits(OdGePoint2d min, OdGePoint2d max);
    OdGePoint3d insertionBase() const;
    OdGePoint3d extentsMin() const;
    OdGePoint3d extentsMax() const;
    Tavo::ErrorStatus setExtents(const OdGePoint3d& min, const OdGePoint3d& max);
    double elevation() const;
    OdGePoint3d ucsOrigin() const;
    OdGePoint3d ucsXAxis() const;
    OdGePoint3d ucsYAxis() const;
    OdDbObjectId ucsId() const;

    // The viewport that was last worked in; null when none was or it is gone.
    OdDbObjectId lastActiveViewportId() const;
    Tavo::ErrorStatus setLastActiveViewportId(OdDbObjectId viewport);
    // The viewports that lie on the sheet, in file order; the first stands for the sheet itself.
    std::vector<OdDbObjectId> viewports() const;

  private:
    void renameInEntities(const OdString& from, const OdString& to);
};
using OdDbLayoutPtr = std::shared_ptr<OdDbLayout>;
