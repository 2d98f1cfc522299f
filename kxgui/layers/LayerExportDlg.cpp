#include "kxgui/layers/LayerExportDlg.h"

#include "kxgui/frame/Templates.h"
#include "kxgui/layers/LayerBoxes.h"
#include "kxgui/layers/LayerCsv.h"
#include "kxgui/layers/LayerCsvFields.h"
#include "platform/drawing/OdDbLayerTable.h"
#include "platform/text/Format.h"
#include "platform/text/ResourceString.h"
#include "platform/text/Unicode.h"

#include <system_error>

using namespace kx::layers;

CLayerExportDlg::CLayerExportDlg(const OdDbDatabasePtr& database, CWnd* parent)
    : VORDRunDlg(IDD_LAYER_EXPORT, parent), m_database(database) {
    m_pathEdit.LabelledBy(m_pathLabel);
}

void CLayerExportDlg::SetText() {
    SetWindowText(VORD_ResourceString("IDS_TAVO_LAYEXP_CAPTION", L"도면층 목록 내보내기"));
    m_pathLabel.SetWindowText(VORD_ResourceString("IDS_TAVO_LAYIMP_PATH", L"CSV 파일(&F):"));
    const auto table = m_database ? m_database->layers() : nullptr;
    m_count.SetWindowText(tv::text::format(
        VORD_ResourceString("IDS_TAVO_LAYEXP_COUNT", L"도면층 %d개를 CSV 목록으로 저장합니다."),
        table ? static_cast<int>(table->size()) : 0));
    m_ok.SetWindowText(VORD_ResourceString("IDS_TAVO_LAYEXP_OK", L"내보내기(&E)"));
    m_cancel.SetWindowText(VORD_ResourceString("IDS_MGD_COMMON_CANCEL", L"취소"));
}

void CLayerExportDlg::InitCtrl() { m_pathEdit.SetLimitText(4096); }

void CLayerExportDlg::Data2Dlg() {
    m_pathEdit.SetWindowText(m_path);
    m_pathEdit.SetFocus();
    m_pathEdit.SelectAll();
}

int CLayerExportDlg::Dlg2Data() {
    const std::wstring path(withoutBlanks(m_pathEdit.GetWindowText()));
    const auto refuse = [&](const std::wstring& sentence) {
        warn(this, {GetWindowText(), sentence});
        m_pathEdit.SetFocus();
        m_pathEdit.SelectAll();
        return 0;
    };
    if (path.empty())
        return refuse(
            VORD_ResourceString("IDS_TAVO_LAYEXP_NO_PATH", L"저장할 파일의 경로를 입력하십시오.").c_str());
    const std::filesystem::path file(tv::text::toUtf8(path));
    std::error_code error;
    const std::wstring question = tv::text::format(
        VORD_ResourceString("IDS_TAVO_LAYEXP_OVER", L"파일 \"%s\"이(가) 이미 있습니다. 바꾸시겠습니까?"), path);
    if (std::filesystem::exists(file, error) && !confirm(this, {GetWindowText(), question})) return 0;
    if (!m_database) return 0;
    if (const tv::Problem problem = exportLayersTo(*m_database, file)) return refuse(problem.sentence);
    m_path = path;
    return 1;
}
