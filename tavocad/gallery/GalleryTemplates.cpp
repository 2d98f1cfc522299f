#include "tavocad/gallery/GalleryTemplates.h"

#include "platform/toolkit/ModuleChain.h"

namespace {
constexpr char moduleName[] = "TavoCAD";
constexpr CSize page{390, 200};
constexpr tv::ui::DialogTemplate templates[] = {
    {IDD_GALLERY, "IDD_GALLERY", {420, 280}, true},
    {IDD_GALLERY_UNITS, "IDD_GALLERY_UNITS", page, false},
};
} // namespace

bool registerGalleryTemplates() {
    auto& chain = tv::ui::ModuleChain::instance();
    return chain.contains(moduleName) || chain.add({moduleName, false, templates});
}
