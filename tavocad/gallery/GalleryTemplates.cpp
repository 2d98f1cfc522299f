#include "tavocad/gallery/GalleryTemplates.h"

#include "platform/toolkit/ModuleChain.h"

namespace {
constexpr char moduleName[] = "TavoCAD";
constexpr CSize page{390, 200};
constexpr tv::ui::DialogTemplate templates[] = {
    {IDD_GALLERY, "IDD_GALLERY", {450, 290}, true},
    {IDD_GALLERY_COLORS, "IDD_GALLERY_COLORS", page, false},
    {IDD_GALLERY_LINES, "IDD_GALLERY_LINES", page, false},
    {IDD_GALLERY_TEXT, "IDD_GALLERY_TEXT", page, false},
    {IDD_GALLERY_STYLES, "IDD_GALLERY_STYLES", page, false},
    {IDD_GALLERY_UNITS, "IDD_GALLERY_UNITS", page, false},
    {IDD_GALLERY_LIST, "IDD_GALLERY_LIST", page, false},
};
} // namespace

bool registerGalleryTemplates() {
    auto& chain = tv::ui::ModuleChain::instance();
    return chain.contains(moduleName) || chain.add({moduleName, false, templates});
}
