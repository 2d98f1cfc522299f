#pragma once

#include "platform/Export.h"
#include "platform/drawing/Geometry.h"
#include "platform/drawing/OdDbObject.h"

#include <cstdint>
#include <memory>
#include <string_view>

// How something is plotted: a page setup (type PLOTSETTINGS) or the part of a layout that says so. Lengths of
// the paper are millimetres; the plot window and view are in drawing units. Setters change their own lines.
class KXPLATFORM_EXPORT OdDbPlotSettings : public OdDbObject {
  public:
    using OdDbObject::OdDbObject;

    enum PlotPaperUnits : std::uint8_t { kInches, kMillimeters, kPixels };
    enum PlotRotation : std::uint8_t { k0degrees, k90degrees, k180degrees, k270degrees };
    enum PlotType : std::uint8_t { kDisplay, kExtents, kLimits, kView, kWindow, kLayout };
    enum ShadePlotType : std::uint8_t { kAsDisplayed, kWireframe, kHidden, kRendered };
    enum ShadePlotResLevel : std::uint8_t { kDraft, kPreview, kNormal, kPresentation, kMaximum, kCustom };
    // Bits of plotFlags().
    enum PlotFlag {
        kPlotViewportBorders = 1,
        kShowPlotStyles = 2,
        kPlotCentered = 4,
        kPlotHidden = 8,
        kUseStandardScale = 16,
        kPlotPlotStyles = 32,
        kScaleLineweights = 64,
        kPrintLineweights = 128,
        kDrawViewportsFirst = 512,
        kModelType = 1024,
        kUpdatePaper = 2048,
        kZoomToPaperOnUpdate = 4096,
        kInitializing = 8192,
        kPrevPlotInit = 16384,
    };

    OdString getPlotSettingsName() const { return plotText(1); }
    Tavo::ErrorStatus setPlotSettingsName(std::wstring_view name) { return setPlot(1, OdString(name)); }
    // The printer or plotter configuration file.
    OdString getPlotCfgName() const { return plotText(2); }
    Tavo::ErrorStatus setPlotCfgName(std::wstring_view name) { return setPlot(2, OdString(name)); }
    OdString getCanonicalMediaName() const { return plotText(4); }
    Tavo::ErrorStatus setCanonicalMediaName(std::wstring_view name) { return setPlot(4, OdString(name)); }
    // The view that is plotted when the type is kView.
    OdString getPlotViewName() const { return plotText(6); }
    Tavo::ErrorStatus setPlotViewName(std::wstring_view name) { return setPlot(6, OdString(name)); }
    // The plot style table's file, empty for none.
    OdString getCurrentStyleSheet() const { return plotText(7); }
    Tavo::ErrorStatus setCurrentStyleSheet(std::wstring_view file) { return setPlot(7, OdString(file)); }

    struct Margins {
        double left = 0, bottom = 0, right = 0, top = 0;
        friend bool operator==(const Margins&, const Margins&) = default;
    };
    Margins getPlotPaperMargins() const;
    Tavo::ErrorStatus setPlotPaperMargins(const Margins& margins);
    OdGePoint2d getPlotPaperSize() const { return {plotReal(44), plotReal(45)}; }
    Tavo::ErrorStatus setPlotPaperSize(OdGePoint2d size);
    OdGePoint2d getPlotOrigin() const { return {plotReal(46), plotReal(47)}; }
    Tavo::ErrorStatus setPlotOrigin(OdGePoint2d origin);
    OdGePoint2d plotWindowMin() const { return {plotReal(48), plotReal(49)}; }
    OdGePoint2d plotWindowMax() const { return {plotReal(140), plotReal(141)}; }
    Tavo::ErrorStatus setPlotWindowArea(OdGePoint2d min, OdGePoint2d max);
    OdGePoint2d paperImageOrigin() const { return {plotReal(148), plotReal(149)}; }

    // So many paper units are so many drawing units. Setting answers eOutOfRange unless both are above 0, and
    // puts kUseStandardScale off.
    double customScaleNumerator() const { return plotReal(142, 1); }
    double customScaleDenominator() const { return plotReal(143, 1); }
    Tavo::ErrorStatus setCustomPrintScale(double numerator, double denominator);
    // Number of a scale every program knows; 0 is to fit, 16 is 1:1. Its value, paper by drawing units, counts
    // while kUseStandardScale is set.
    int stdScaleType() const { return plotInteger(75); }
    double stdScale() const { return plotReal(147, 1); }
    // 0..32; the known value is written along.
    Tavo::ErrorStatus setStdScaleType(int type);

    PlotPaperUnits plotPaperUnits() const { return inRange<PlotPaperUnits>(72, kPixels); }
    Tavo::ErrorStatus setPlotPaperUnits(PlotPaperUnits units);
    PlotRotation plotRotation() const { return inRange<PlotRotation>(73, k270degrees); }
    Tavo::ErrorStatus setPlotRotation(PlotRotation rotation);
    PlotType plotType() const { return inRange<PlotType>(74, kLayout); }
    Tavo::ErrorStatus setPlotType(PlotType type);
    ShadePlotType shadePlot() const { return inRange<ShadePlotType>(76, kRendered); }
    ShadePlotResLevel shadePlotResLevel() const { return inRange<ShadePlotResLevel>(77, kCustom); }
    int shadePlotCustomDPI() const { return plotInteger(78, 300); }
    // Also the resolution; eNotHandled before R2004, eOutOfRange for a resolution outside 100..32767.
    Tavo::ErrorStatus setShadePlot(ShadePlotType type, ShadePlotResLevel level, int customDpi = 300);

    int plotFlags() const { return plotInteger(70); }
    bool plotFlag(PlotFlag flag) const { return (plotFlags() & flag) != 0; }
    Tavo::ErrorStatus setPlotFlag(PlotFlag flag, bool on);
    // Of the model's layout rather than a sheet's.
    bool modelType() const { return plotFlag(kModelType); }

    // Every setting of another page setup or layout, but not its name; one change. Both may be of different
    // drawings.
    Tavo::ErrorStatus copyFrom(const OdDbPlotSettings& other);

  private:
    double plotReal(int code, double otherwise = 0) const;
    int plotInteger(int code, int otherwise = 0) const;
    OdString plotText(int code) const;
    Tavo::ErrorStatus setPlot(int code, const tv::dwg::Value& value);
    template <class T>
    T inRange(int code, T last) const {
        const int value = plotInteger(code);
        return value >= 0 && value <= last ? static_cast<T>(value) : T{};
    }
};
using OdDbPlotSettingsPtr = std::shared_ptr<OdDbPlotSettings>;

namespace tv::dwg {
// A page setup of that name with the values new ones start with. A null id for an empty or known name and in
// drawings before R2000.
KXPLATFORM_EXPORT OdDbObjectId addPlotSettings(OdDbDatabase& database, std::wstring_view name, bool modelType);
} // namespace tv::dwg
