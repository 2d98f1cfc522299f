#include "kxgui/layers/LayerImportDlg.h"

#include "kxgui/frame/Templates.h"
#include "kxgui/layers/LayerBoxes.h"
#include "kxgui/layers/LayerCsvFields.h"
#include "kxgui/layers/LayerHistory.h"
#include "kxgui/layers/LayerTexts.h"
#include "platform/text/Format.h"
#include "platform/text/ResourceString.h"
#include "platform/text/Unicode.h"

#include <algorithm>

using namespace kx::layers;
using Kind = LayerCsvLine::Kind;

namespace {

enum Column { kLine, kName, kResult, kDetails };

// What isn't in order first, what changes nothing last; within these as in the file.
int rankOf(Kind kind) {
    switch (kind) {
    case Kind::refused:
        return 0;
    case Kind::made:
        return 1;
    case Kind::changed:
        return 2;
    default:
        return 3;
    }
}

std::wstring kindText(Kind kind) {
    switch (kind) {
    case Kind::refused:
        return VORD_ResourceString("IDS_TAVO_LAYIMP_KIND_REFUSED", L"거부됨").c_str();
    case Kind::made:
        return VORD_ResourceString("IDS_TAVO_LAYIMP_KIND_NEW", L"새 도면층").c_str();
    case Kind::changed:
        return VORD_ResourceString("IDS_TAVO_LAYIMP_KIND_CHANGED", L"변경").c_str();
    default:
        return VORD_ResourceString("IDS_TAVO_LAYIMP_KIND_SAME", L"같음").c_str();
    }
}

std::wstring detailsOf(const LayerCsvLine& line) {
    if (line.kind == Kind::refused) return line.refusal;
    std::wstring out;
    for (const LayerCsvChange& change : line.changes) {
        if (!out.empty()) out += L"; ";
        out += layerColumnText(change.column) + L": ";
        if (line.kind == Kind::changed) out += change.before + L" \u2192 ";
        out += change.after;
    }
    return out;
}

class PlanRows : public tv::ui::ListModel {
  public:
    explicit PlanRows(const LayerCsvPlan& plan) : m_plan(plan), m_order(plan.lines.size()) {
        for (std::size_t i = 0; i < m_order.size(); ++i)
            m_order[i] = i;
        std::ranges::stable_sort(m_order, {}, [&](std::size_t i) { return rankOf(plan.lines[i].kind); });
    }
    int rowCount() const override { return static_cast<int>(m_order.size()); }
    tv::ui::ListCell cell(int row, int column) const override {
        const LayerCsvLine& line = m_plan.lines[m_order[static_cast<std::size_t>(row)]];
        tv::ui::ListCell cell;
        switch (column) {
        case kLine:
            cell.text = tv::text::format(L"%d", line.line);
            break;
        case kName:
            cell.text = line.name;
            break;
        case kResult:
            cell.text = kindText(line.kind);
            cell.bold = line.kind == Kind::refused;
            break;
        default:
            cell.text = detailsOf(line);
        }
        return cell;
    }

  private:
    const LayerCsvPlan& m_plan;
    std::vector<std::size_t> m_order;
};

} // namespace

CLayerImportDlg::CLayerImportDlg(const OdDbDatabasePtr& database, CWnd* parent)
    : VORDRunDlg(IDD_LAYER_IMPORT, parent), m_database(database) {
    m_pathEdit.LabelledBy(m_pathLabel);
    m_list.LabelledBy(m_listLabel);
    m_pathEdit.onChange = [this] {
        m_read = false;
        m_plan = {};
        showPlan();
    };
    m_readButton.onClick = [this] { read(); };
    m_skip.onClick = [this] { showState(); };
}

void CLayerImportDlg::SetText() {
    SetWindowText(VORD_ResourceString("IDS_TAVO_LAYIMP_CAPTION", L"도면층 목록 가져오기"));
    m_pathLabel.SetWindowText(VORD_ResourceString("IDS_TAVO_LAYIMP_PATH", L"CSV 파일(&F):"));
    m_readButton.SetWindowText(VORD_ResourceString("IDS_TAVO_LAYIMP_READ", L"읽기(&R)"));
    m_listLabel.SetWindowText(VORD_ResourceString("IDS_TAVO_LAYIMP_LIST", L"가져오면 바뀌는 것(&L):"));
    m_list.SetColumns(
        {{VORD_ResourceString("IDS_TAVO_LAYIMP_COL_LINE", L"행").c_str(), 50, tv::ui::ListColumn::Align::right},
         {layerColumnText(LayerColumn::name), 130},
         {VORD_ResourceString("IDS_TAVO_LAYIMP_COL_RESULT", L"결과").c_str(), 100},
         {VORD_ResourceString("IDS_TAVO_LAYIMP_COL_DETAILS", L"내용").c_str(), 340}});
    m_skip.SetWindowText(VORD_ResourceString("IDS_TAVO_LAYIMP_SKIP", L"거부된 줄은 건너뛰고 가져오기(&S)"));
    m_ok.SetWindowText(VORD_ResourceString("IDS_TAVO_LAYIMP_OK", L"가져오기(&I)"));
    m_cancel.SetWindowText(VORD_ResourceString("IDS_MGD_COMMON_CANCEL", L"취소"));
}

void CLayerImportDlg::InitCtrl() { m_pathEdit.SetLimitText(4096); }

void CLayerImportDlg::Data2Dlg() {
    m_pathEdit.SetWindowText(m_path);
    if (m_path.empty())
        showPlan();
    else
        read();
    m_pathEdit.SetFocus();
}

void CLayerImportDlg::read() {
    m_path = withoutBlanks(m_pathEdit.GetWindowText());
    m_plan = {};
    m_read = m_database && !m_path.empty();
    if (m_read) m_plan = planLayerImportFile(*m_database, std::filesystem::path(tv::text::toUtf8(m_path)));
    showPlan();
}

void CLayerImportDlg::showPlan() {
    m_list.SetModel(std::make_shared<PlanRows>(m_plan));
    std::wstring said;
    if (!m_read)
        said = VORD_ResourceString("IDS_TAVO_LAYIMP_HINT", L"파일을 읽으면 무엇이 바뀌는지 먼저 보여 줍니다.")
                   .c_str();
    else if (m_plan.problem)
        said = m_plan.problem.sentence;
    else
        said = tv::text::format(
            VORD_ResourceString("IDS_TAVO_LAYIMP_COUNTS", L"새 도면층 %d, 변경 %d, 같음 %d, 거부됨 %d"),
            m_plan.made, m_plan.changed, m_plan.same, m_plan.refused);
    if (m_plan.refused > LayerCsvPlan::mostRefusals)
        said += L"\n" + tv::text::format(VORD_ResourceString("IDS_TAVO_LAYIMP_MORE",
                                                             L"거부된 줄은 처음 %d개만 보여 줍니다."),
                                         LayerCsvPlan::mostRefusals);
    if (!m_plan.ignored.empty()) {
        std::wstring names;
        for (const std::wstring& heading : m_plan.ignored)
            names += (names.empty() ? L"" : L", ") + heading.substr(0, 40);
        said += L"\n" +
                tv::text::format(VORD_ResourceString("IDS_TAVO_LAYIMP_IGNORED", L"알 수 없어 읽지 않은 열: %s"),
                                 names.substr(0, 200));
    }
    m_said.SetWindowText(said);
    showState();
}

void CLayerImportDlg::showState() {
    m_readButton.EnableWindow(!withoutBlanks(m_pathEdit.GetWindowText()).empty());
    m_skip.EnableWindow(m_plan.refused > 0);
    m_ok.EnableWindow(!m_plan.updates.empty() && (m_plan.refused == 0 || m_skip.GetCheck() != 0));
}

// Enter behind a path that isn't read yet reads it.
bool CLayerImportDlg::PreTranslateMessage(const tv::ui::KeyEvent& key) {
    if (key.key == tv::ui::Key::enter && !m_read && GetFocus() == &m_pathEdit) {
        read();
        return true;
    }
    return VORDRunDlg::PreTranslateMessage(key);
}

int CLayerImportDlg::Dlg2Data() {
    if (!m_read || !m_database) return 0;
    const tv::Problem problem = applyLayerImport(*m_database, m_plan, m_skip.GetCheck() != 0);
    if (problem)
        warn(this, {GetWindowText(), problem.sentence});
    else
        layersWritten(m_database);
    return problem ? 0 : 1;
}
