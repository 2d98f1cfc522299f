#include "kxgui/frame/MGUIManager.h"

#include "kxgui/frame/ColorDlg.h"
#include "kxgui/frame/MGUIManagerImpl.h"
#include "platform/host/TavoCommands.h"
#include "platform/host/TavoInterfaces.h"
#include "platform/text/ResourceString.h"

namespace {

unsigned colorOptions(bool special, unsigned more = CColorDlg::kPlain) {
    return (special ? unsigned{CColorDlg::kSpecial} : unsigned{CColorDlg::kPlain}) | more;
}

bool missing(const VORD_ResourceString& dialogName) { return MGUIManagerImpl().missing(dialogName.c_str()); }

} // namespace

int MGUIManager::DisplayColorDialog(int defaultColor, int* color, int special, CWnd* parent) {
    return MGUIManagerImpl().displayColorIndex(defaultColor, color, colorOptions(special != 0), parent);
}

int MGUIManager::DisplayColorDialog(const OdCmColor& defaultColor, OdCmColor& color, int special) {
    OdCmColor chosen = defaultColor;
    if (!MGUIManagerImpl().runColor(chosen, colorOptions(special != 0), nullptr)) return RTCAN;
    color = chosen;
    return RTNORM;
}

int MGUIManager::DisplayColorDialogHideTrueColorTab(int defaultColor, int* color, int special, CWnd* parent) {
    return MGUIManagerImpl().displayColorIndex(
        defaultColor, color, colorOptions(special != 0, CColorDlg::kHideTrueColorTab), parent);
}

int MGUIManager::DisplayLinetypeDialog(int special, OdDbObjectId current, OdDbObjectId* linetype,
                                       CWnd* parent) {
    return MGUIManagerImpl().displayLinetype(special != 0, current, linetype, parent);
}

int MGUIManager::DisplayLineWeightDialog(OdDb::LineWeight* lineWeight) {
    return MGUIManagerImpl().displayLineWeight(lineWeight);
}

int MGUIManager::DisplayAskMessageBoxDialog(const OdString& message, bool& doNotAsk, int& endCode) {
    return MGUIManagerImpl().displayAskMessageBox(message, doNotAsk, endCode);
}

bool MGUIManager::ShowColorDialog(OdCmColor& color, bool special) {
    return MGUIManagerImpl().runColor(color, colorOptions(special), nullptr);
}

bool MGUIManager::ShowLineTypeDialog(const OdDbDatabasePtr& database) {
    return MGUIManagerImpl().chooseCurrentLinetype(database);
}

bool MGUIManager::ShowLineWeightDialog() {
    return MGUIManagerImpl().chooseCurrentLineWeight(
        m_context && m_context->database() ? m_context->database() : tvedWorkingDatabase());
}

bool MGUIManager::ShowToleranceDialog(OdString&) {
    return missing(VORD_ResourceString("IDS_TAVO_GUI_TOLERANCE", L"기하공차"));
}

bool MGUIManager::ShowToleranceDialog(OdDbObjectId) {
    return missing(VORD_ResourceString("IDS_TAVO_GUI_TOLERANCE", L"기하공차"));
}

bool MGUIManager::ShowLayerMatchDialog(OdDbObjectId&) {
    return missing(VORD_ResourceString("IDS_TAVO_GUI_LAYER_MATCH", L"도면층 일치"));
}

bool MGUIManager::ShowImageControlDialog(OdDbObjectId*) {
    return missing(VORD_ResourceString("IDS_TAVO_GUI_IMAGE_CONTROL", L"이미지 조정"));
}

bool MGUIManager::ShowImageControlDialogAndGetDataOnly(OdDbObjectId*, int&, int&, int&) {
    return missing(VORD_ResourceString("IDS_TAVO_GUI_IMAGE_CONTROL", L"이미지 조정"));
}

bool MGUIManager::ShowMTextBackMaskDialog(OdDbObjectId*) {
    return missing(VORD_ResourceString("IDS_TAVO_GUI_MTEXT_MASK", L"여러 줄 문자 배경 가리기"));
}

bool MGUIManager::ShowMTextColTypeDialog(OdDbObjectId*) {
    return missing(VORD_ResourceString("IDS_TAVO_GUI_MTEXT_COLUMNS", L"여러 줄 문자 단 설정"));
}

bool MGUIManager::ShowHPatternPaletteDialog(TavoEdCommandContext*, OdString&, bool*) {
    return missing(VORD_ResourceString("IDS_TAVO_GUI_HATCH_PALETTE", L"해치 패턴 팔레트"));
}

bool MGUIManager::ShowHPatternTypeDialog(TavoEdCommandContext*, int&, OdString&) {
    return missing(VORD_ResourceString("IDS_TAVO_GUI_HATCH_TYPE", L"해치 패턴 유형"));
}

bool MGUIManager::ShowStyleDialog(bool, void*) {
    return missing(VORD_ResourceString("IDS_TAVO_GUI_STYLE", L"스타일"));
}

bool MGUIManager::ShowSetAttributeNameDialog(OdDbObjectId*, std::vector<OdString>&) {
    return missing(VORD_ResourceString("IDS_TAVO_GUI_ATTRIBUTE_NAME", L"속성 이름 설정"));
}

bool MGUIManager::ShowCustomArrowBlockDialog(OdDbDatabase* database, OdString& blockName) {
    return MGUIManagerImpl().chooseArrowBlock(database, blockName, nullptr);
}

bool MGUIManager::ShowAutoRestoreControl(OdDbDatabase*, const std::vector<OdString>&) {
    return missing(VORD_ResourceString("IDS_TAVO_GUI_AUTO_RESTORE", L"자동 복구"));
}

bool MGUIManager::ShowEATTEDIT() {
    return missing(VORD_ResourceString("IDS_TAVO_GUI_EATTEDIT", L"고급 속성 편집기"));
}
