#include "kxgui/frame/Templates.h"

#include "kxgui/frame/ModuleEntry.h"

namespace kx::frame {
namespace {

constexpr tv::ui::DialogTemplate templates[] = {
    {IDD_UNITS, "IDD_UNITS", {260, 190}, false},
    {IDD_UNITS_DIRECTION, "IDD_UNITS_DIRECTION", {150, 170}, false},
    {IDD_MESSAGE, "IDD_MESSAGE", {267, 192}, false},
    {IDD_MULTI_ASK, "IDD_MULTI_ASK", {309, 149}, false},
    {IDD_ASK_MESSAGE, "IDD_ASK_MESSAGE", {383, 127}, false},
    {IDD_WINDOW_XBUTTON, "IDD_WINDOW_XBUTTON", {295, 210}, false},
    {IDD_SINGLE_WINDOW_XBUTTON, "IDD_SINGLE_WINDOW_XBUTTON", {295, 169}, false},
    {IDD_COLOR, "IDD_COLOR", {300, 240}, false},
    {IDD_COLOR_INDEX, "IDD_COLOR_INDEX", {280, 180}, false},
    {IDD_COLOR_TRUE, "IDD_COLOR_TRUE", {280, 180}, false},
    {IDD_LINETYPE, "IDD_LINETYPE", {300, 190}, true},
    {IDD_PROPERTIES_BAR, "IDD_PROPERTIES_BAR", {600, 20}, false},
    {IDD_LINEWEIGHT, "IDD_LINEWEIGHT", {170, 200}, true},
    {IDD_SYSVARS, "IDD_SYSVARS", {680, 330}, true},
    {IDD_ARROW_BLOCK, "IDD_ARROW_BLOCK", {180, 170}, true},
    {IDD_LAYER_FILTER, "IDD_LAYER_FILTER", {440, 330}, true},
    {IDD_LAYER_MERGE, "IDD_LAYER_MERGE", {210, 240}, true},
    {IDD_LAYER_IMPORT, "IDD_LAYER_IMPORT", {440, 260}, true},
    {IDD_LAYER_EXPORT, "IDD_LAYER_EXPORT", {260, 80}, true},
    {IDD_LAYER_STATES, "IDD_LAYER_STATES", {360, 360}, true},
    {IDD_LAYER_STATE_NAME, "IDD_LAYER_STATE_NAME", {220, 90}, true},
    {IDD_LAYER_STATE_COMPARE, "IDD_LAYER_STATE_COMPARE", {380, 220}, true},
    {IDD_LAYER_TRANSPARENCY, "IDD_LAYER_TRANSPARENCY", {170, 60}, false},
    {IDD_LAYER, "IDD_LAYER", {760, 380}, true},
};

} // namespace

tv::ui::Module libraryModule() { return {"kxGui", false, templates}; }

} // namespace kx::frame
