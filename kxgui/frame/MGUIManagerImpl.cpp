#include "kxgui/frame/MGUIManagerImpl.h"

#include "kxgui/frame/AskMessageDlg.h"
#include "kxgui/frame/ArrowBlockDlg.h"
#include "kxgui/frame/ColorDlg.h"
#include "kxgui/frame/LineWeightDlg.h"
#include "kxgui/frame/LinetypeDlg.h"
#include "kxgui/frame/Messages.h"
#include "platform/host/TavoCommandLine.h"
#include "platform/host/TavoCommands.h"
#include "platform/host/TavoInterfaces.h"
#include "platform/host/TavoSysvarManager.h"
#include "platform/text/Format.h"
#include "platform/text/ResourceString.h"

namespace {

constexpr const wchar_t* kColorIndex = L"COLORINDEX";

bool isIndex(int color) { return color >= OdCmColor::kACIbyBlock && color <= OdCmColor::kACIbyLayer; }

// Ids carry a plain pointer: the drawing they belong to is kept alive by whoever handed them out.
OdDbDatabasePtr unowned(OdDbDatabase* database) {
    return {database, [](OdDbDatabase*) {}};
}

// Tells why the manager refused a value.
bool refused(const TavoSysvarManager& manager) {
    const std::wstring text =
        std::wstring(VORD_ResourceString("IDS_TAVO_NOT_STORED", L"값을 저장할 수 없습니다.").c_str()) + L' ' +
        manager.lastProblem().sentence;
    MessageDlg(text.c_str(), nullptr, 0x30);
    return false;
}

} // namespace

bool MGUIManagerImpl::runColor(OdCmColor& color, unsigned options, CWnd* parent) const {
    CColorDlg dialog(color, options, parent);
    if (dialog.DoModal() != IDOK) return false;
    color = dialog.GetColor();
    return true;
}

int MGUIManagerImpl::displayColorIndex(int defaultColor, int* color, unsigned options, CWnd* parent) const {
    int index = defaultColor;
    if (!isIndex(index) && tvedGetVar(kColorIndex, index, nullptr) != Tavo::eOk) index = OdCmColor::kACIbyLayer;
    OdCmColor chosen = OdCmColor::byIndex(index);
    if (!runColor(chosen, options, parent)) return RTCAN;
    (void)tvedSetVar(kColorIndex, chosen.colorIndex(), nullptr);
    if (color) *color = chosen.colorIndex();
    return RTNORM;
}

int MGUIManagerImpl::displayLinetype(bool special, OdDbObjectId current, OdDbObjectId* linetype,
                                     CWnd* parent) const {
    CLinetypeDlg dialog(current.isNull() ? tvedWorkingDatabase() : unowned(current.database()), special,
                        parent);
    dialog.SetRecordsOnly();
    dialog.SetLinetype(current);
    if (dialog.DoModal() != IDOK) return RTCAN;
    if (linetype) *linetype = dialog.GetLinetype();
    return RTNORM;
}

int MGUIManagerImpl::displayLineWeight(OdDb::LineWeight* lineWeight) const {
    CLineWeightDlg dialog(tvedWorkingDatabase(), nullptr);
    if (dialog.DoModal() != IDOK) return RTCAN;
    if (lineWeight) *lineWeight = dialog.GetLineWeight();
    return RTNORM;
}

int MGUIManagerImpl::displayAskMessageBox(const OdString& message, bool& doNotAsk, int& endCode) const {
    CAskMessageDlg dialog;
    dialog.setMsg(message);
    endCode = dialog.DoModal();
    doNotAsk = dialog.getDoNotAsk();
    return RTNORM;
}

bool MGUIManagerImpl::chooseCurrentLinetype(const OdDbDatabasePtr& database) const {
    auto* manager = getSysvarManagerInterface(getTavoInterfaces());
    if (!database || !manager) return false;
    CLinetypeDlg dialog(database, true, nullptr);
    if (OdString current; manager->getText(L"CELTYPE", current, database) == Tavo::eOk)
        dialog.SetName(current.view());
    if (dialog.DoModal() != IDOK) return false;
    // By name: the oldest drawings have no records for ByLayer and ByBlock.
    return manager->setText(L"CELTYPE", OdString(dialog.GetName()), database) == Tavo::eOk || refused(*manager);
}

bool MGUIManagerImpl::chooseCurrentLineWeight(const OdDbDatabasePtr& database) const {
    auto* manager = getSysvarManagerInterface(getTavoInterfaces());
    if (!database || !manager) return false;
    CLineWeightDlg dialog(database, nullptr);
    if (dialog.DoModal() != IDOK) return false;
    return tvedSetVar(L"CELWEIGHT", dialog.GetLineWeight(), database) == Tavo::eOk || refused(*manager);
}

bool MGUIManagerImpl::chooseArrowBlock(OdDbDatabase* database, OdString& blockName, CWnd* parent) const {
    if (!database) return false;
    CArrowBlockDlg dialog(unowned(database), parent);
    dialog.SetName(blockName.view());
    if (dialog.DoModal() != IDOK) return false;
    blockName = dialog.GetName();
    return true;
}

bool MGUIManagerImpl::missing(const OdString& dialogName) const {
    tvedPrint(tv::text::format(
        VORD_ResourceString("IDS_TAVO_GUI_NO_DIALOG", L"%s 대화상자는 이 프로그램에 없습니다."), dialogName));
    return false;
}
