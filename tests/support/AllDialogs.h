#pragma once

#include "kxgui/controls/PropertiesBar.h"
#include "kxgui/frame/ArrowBlockDlg.h"
#include "kxgui/frame/AskMessageDlg.h"
#include "kxgui/frame/ColorDlg.h"
#include "kxgui/frame/LineWeightDlg.h"
#include "kxgui/frame/LinetypeDlg.h"
#include "kxgui/frame/MessageDlg.h"
#include "kxgui/frame/MultiAskDlg.h"
#include "kxgui/frame/UnitsDirDlg.h"
#include "kxgui/frame/UnitsDlg.h"
#include "kxgui/frame/WindowXbuttonMessageDlg.h"
#include "kxgui/layers/LayerDlg.h"
#include "kxgui/layers/LayerExportDlg.h"
#include "kxgui/layers/LayerFilterDlg.h"
#include "kxgui/layers/LayerImportDlg.h"
#include "kxgui/layers/LayerMergeDlg.h"
#include "kxgui/layers/LayerStateEdits.h"
#include "kxgui/layers/LayerStatesDlg.h"
#include "kxgui/layers/LayerTransparencyDlg.h"
#include "kxgui/sysvars/SysVarsDlg.h"
#include "platform/drawing/OdDbBlockTable.h"
#include "platform/drawing/OdDbLayerTable.h"
#include "platform/frx/TaskDialog.h"
#include "platform/host/TavoDocumentManager.h"
#include "platform/host/TavoInterfaces.h"
#include "platform/text/AtomicFile.h"
#include "platform/text/Unicode.h"
#include "tavocad/gallery/GalleryDlg.h"

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

// One dialog with contents a user would see, for checks that go through every registered template. A template
// embedded as a page belongs to the dialog that shows it.
struct SampleDialog {
    std::string templateName;
    std::function<void()> run; // constructs it and runs it modally
    std::vector<std::string> pages;
};

inline OdDbDatabasePtr drawingWithLayers() {
    const auto database = OdDbDatabase::create();
    const auto layers = database->layers(OdDb::kForWrite);
    for (const wchar_t* name : {L"도면층 1", L"도면층 2", L"도면층 3", L"도면층 10", L"Defpoints"})
        layers->add(name);
    return database;
}

inline std::vector<SampleDialog> allDialogs() {
    std::vector<SampleDialog> all;
    const auto add = [&](const char* name, std::function<void()> run, std::vector<std::string> pages = {}) {
        all.push_back({name, std::move(run), std::move(pages)});
    };
    add("IDD_TASK_DIALOG", [] {
        CTaskDialogVE(nullptr, L"도면 단위", L"단위를 바꾸시겠습니까?", L"이 도면의 치수는 그대로 남습니다.",
                      zel::frx::taskOK | zel::frx::taskYes | zel::frx::taskNo | zel::frx::taskRetry |
                          zel::frx::taskCancel,
                      zel::frx::taskIconWarning)
            .DoModal();
    });
    add("IDD_UNITS", [] {
        OdDbDatabasePtr none;
        T_UNITS_D data{2, 4, 0, 0, false, 4, 0.0};
        CUnitsDlg dialog(none, 0.0, nullptr);
        dialog.SetData(data);
        dialog.DoModal();
    });
    add("IDD_UNITS_DIRECTION", [] { CUnitsDirDlg(1, 4, 0.5, 0, nullptr).DoModal(); });
    add("IDD_MESSAGE", [] {
        CMessageDlg dialog(nullptr);
        dialog.SetCaption(L"도면층");
        dialog.SetTitle(L"도면층을 병합하시겠습니까?");
        dialog.SetSubTitle(L"병합한 도면층은 도면에서 없어집니다.");
        dialog.SetBtnTitle1(L"병합");
        dialog.SetBtnTitle2(L"그대로 두기");
        dialog.DoModal();
    });
    add("IDD_MULTI_ASK", [] {
        CMultiAskDlg(L"블록", L"같은 이름의 블록이 있습니다.", {L"바꾸기", L"이름 바꿔 추가", L"건너뛰기"},
                     {10, 20, 30}, nullptr)
            .DoModal();
    });
    add("IDD_ASK_MESSAGE", [] {
        CAskMessageDlg dialog;
        dialog.setMsg(L"외부 참조가 바뀌었습니다. 다시 읽으시겠습니까?");
        dialog.DoModal();
    });
    add("IDD_WINDOW_XBUTTON", [] {
        CWindowXbuttonMessageDlg dialog(nullptr);
        dialog.SetWindowName(L"평면도");
        dialog.DoModal();
    });
    add("IDD_SINGLE_WINDOW_XBUTTON", [] {
        CSingleWindowXbuttonMessageDlg dialog(nullptr);
        dialog.SetWindowName(L"평면도");
        dialog.DoModal();
    });
    add("IDD_COLOR", [] { CColorDlg(OdCmColor::byIndex(30), CColorDlg::kSpecial, nullptr).DoModal(); },
        {"IDD_COLOR_INDEX", "IDD_COLOR_TRUE"});
    add("IDD_LINETYPE", [] { CLinetypeDlg(OdDbDatabase::create(), true, nullptr).DoModal(); });
    add("IDD_LINEWEIGHT", [] { CLineWeightDlg(OdDbDatabase::create(), nullptr).DoModal(); });
    add("IDD_GALLERY",
        [] {
            TavoDocumentManager& documents = *getTavoInterfaces()->documentManager();
            TavoDocument* const drawing = documents.newDocument();
            CGalleryDlg(nullptr).DoModal();
            documents.closeDocument(drawing);
        },
        {"IDD_GALLERY_COLORS", "IDD_GALLERY_LINES", "IDD_GALLERY_TEXT", "IDD_GALLERY_STYLES",
         "IDD_GALLERY_UNITS", "IDD_GALLERY_LIST"});
    add("IDD_SYSVARS", [] { CSysVarsDlg(OdDbDatabase::create(), nullptr).DoModal(); });
    add("IDD_ARROW_BLOCK", [] {
        const auto database = OdDbDatabase::create();
        const auto blocks = database->getBlockTableId().open<OdDbBlockTable>(OdDb::kForWrite);
        for (const wchar_t* name : {L"화살표 1", L"화살표 2", L"화살표 10"})
            blocks->add(name);
        CArrowBlockDlg(database, nullptr).DoModal();
    });
    add("IDD_LAYER", [] {
        const auto database = OdDbDatabase::create();
        const auto layers = database->layers(OdDb::kForWrite);
        for (const wchar_t* name : {L"벽-내부", L"벽-외부", L"가구", L"치수", L"해치-콘크리트"})
            layers->add(name);
        const auto layer = [&](const wchar_t* name) {
            return layers->getAt(name).open<OdDbLayerTableRecord>(OdDb::kForWrite);
        };
        layer(L"벽-외부")->setColor(OdCmColor::byIndex(1));
        layer(L"벽-외부")->setLineWeight(OdDb::kLnWt050);
        layer(L"가구")->setIsOff(true);
        layer(L"치수")->setIsFrozen(true);
        layer(L"해치-콘크리트")->setIsLocked(true);
        layer(L"해치-콘크리트")->setTransparency(OdCmTransparency::byPercent(60));
        layer(L"해치-콘크리트")->setDescription(L"콘크리트 단면");
        CLayerDlg(database.get(), nullptr).DoModal();
    });
    add("IDD_LAYER_FILTER", [] {
        const auto database = OdDbDatabase::create();
        const auto layers = database->layers(OdDb::kForWrite);
        for (const wchar_t* name : {L"벽-내부", L"벽-외부", L"가구"})
            layers->add(name);
        CLayerFilterDlg dialog(database.get(), nullptr);
        dialog.SetName(L"특성 필터1");
        dialog.SetExpression(L"NAME==\"벽*\" AND OFF==\"False\" OR COLOR==\"1\"");
        dialog.DoModal();
    });
    add("IDD_LAYER_TRANSPARENCY", [] { CLayerTransparencyDlg(30, nullptr).DoModal(); });
    add("IDD_LAYER_MERGE", [] {
        const auto database = drawingWithLayers();
        const auto layers = database->layers();
        CLayerMergeDlg(database, {layers->getAt(L"도면층 1"), layers->getAt(L"도면층 3")}, nullptr).DoModal();
    });
    add("IDD_LAYER_IMPORT", [] {
        const std::filesystem::path file = std::filesystem::temp_directory_path() / "kx-layer-list.csv";
        tv::writeFileAtomically(file, "Name,Color,Freeze\n도면층 1,red,Yes\n도면층 2,7,No\n새 도면층,#1E90FF,\n"
                                      "도면층 3,pink,\n");
        CLayerImportDlg dialog(drawingWithLayers(), nullptr);
        dialog.SetPath(tv::text::fromUtf8(file.string()));
        dialog.DoModal();
        std::filesystem::remove(file);
    });
    add("IDD_LAYER_EXPORT", [] {
        CLayerExportDlg dialog(drawingWithLayers(), nullptr);
        dialog.SetPath(L"layers.csv");
        dialog.DoModal();
    });
    add("IDD_LAYER_STATES", [] {
        const auto database = drawingWithLayers();
        kx::layers::saveState(*database, L"평면도", L"벽과 문만", tv::dwg::kLayerEverything);
        kx::layers::saveState(*database, L"인쇄 전", {}, tv::dwg::kLayerOn | tv::dwg::kLayerFrozen);
        CLayerStatesDlg(database, nullptr).DoModal();
    });
    add("IDD_LAYER_STATE_NAME", [] {
        CLayerStateNameDlg dialog(
            L"새 도면층 상태", [](const auto&, const auto&) { return tv::Problem(); }, nullptr);
        dialog.SetData(L"평면도", L"벽과 문만");
        dialog.DoModal();
    });
    add("IDD_LAYER_STATE_COMPARE", [] {
        const auto database = drawingWithLayers();
        tv::dwg::LayerState saved = tv::dwg::currentLayerState(*database);
        saved.layers[1].color = OdCmColor::byIndex(1);
        saved.layers[2].off = true;
        saved.layers.back().name = L"도면층 9";
        CLayerStateCompareDlg(
            L"평면도", kx::layers::compareLayerStates(saved, tv::dwg::currentLayerState(*database)), nullptr)
            .DoModal();
    });
    add("IDD_PROPERTIES_BAR", [] { CPropertiesBar().DoModal(); });
    return all;
}
