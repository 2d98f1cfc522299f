#include "tavocad/commands/Commands.h"

#include "platform/text/ResourceString.h"
#include "tavocad/TavoSession.h"
#include "tavocad/gallery/GalleryDlg.h"
#include "tavocad/gallery/GalleryTemplates.h"

void registerGalleryCommand(TavoSession& session) {
    registerGalleryTemplates();
    session.addCommand(
        {L"GALLERY",
         {},
         [] {
             return OdString(
                 VORD_ResourceString("IDS_TAVO_HELP_GALLERY", L"모든 특성 목록과 편집 목록을 보여 줍니다"));
         },
         [](TavoEdCommandContext&) { return CGalleryDlg(nullptr).DoModal() < 0 ? RTERROR : RTNORM; }});
}
