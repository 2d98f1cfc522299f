#include "tavocad/SelectionWords.h"

#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbEntity.h"
#include "platform/host/TavoSelection.h"
#include "platform/host/selection/SheetViewports.h"
#include "platform/text/Format.h"
#include "platform/text/ResourceString.h"
#include "platform/text/Unicode.h"
#include "tavocad/PointRequests.h"

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

using tv::text::format;
using tv::ui::UserResult;
using Method = TavoSelectionQuery::Method;

namespace {

struct Word {
    const wchar_t *name, *shortName;
    Method method;
    std::size_t least, most; // points that follow
};
constexpr std::size_t anyNumber = static_cast<std::size_t>(-1);
constexpr Word words[] = {{L"ALL", L"ALL", Method::kAll, 0, 0},
                          {L"LAST", L"L", Method::kLast, 0, 0},
                          {L"PREVIOUS", L"P", Method::kPrevious, 0, 0},
                          {L"WINDOW", L"W", Method::kWindow, 2, 2},
                          {L"CROSSING", L"C", Method::kCrossing, 2, 2},
                          {L"FENCE", L"F", Method::kFence, 2, anyNumber},
                          {L"WPOLYGON", L"WP", Method::kWindowPolygon, 3, anyNumber},
                          {L"CPOLYGON", L"CP", Method::kCrossingPolygon, 3, anyNumber}};

std::vector<std::wstring> partsOf(std::wstring_view line) {
    std::vector<std::wstring> parts;
    for (std::size_t at = 0; at < line.size();) {
        const std::size_t start = line.find_first_not_of(L" \t", at);
        if (start == std::wstring_view::npos) break;
        const std::size_t end = std::min(line.find_first_of(L" \t", start), line.size());
        parts.emplace_back(line.substr(start, end - start));
        at = end;
    }
    return parts;
}

bool addsOrRemoves(const std::wstring& name) {
    return name == L"REMOVE" || name == L"R" || name == L"ADD" || name == L"A";
}

TavoSelectionSet selectedIn(const TavoSelection& selection, const OdDbDatabasePtr& database) {
    return selection.current().database() == database.get() ? selection.current() : TavoSelectionSet();
}

// Goes through the words of a line and keeps what they come to.
class Reader {
  public:
    Reader(const TavoSelection& selection, const OdDbDatabasePtr& database, double tolerance,
           std::vector<std::wstring> parts, TavoSelectionSet start)
        : m_selection(selection), m_database(database), m_tolerance(tolerance), m_parts(std::move(parts)),
          m_result(std::move(start)) {}

    // Empty, or why a word makes no sense.
    std::wstring read() {
        while (m_at < m_parts.size())
            if (std::wstring refusal = readWord(); !refusal.empty()) return refusal;
        return {};
    }
    const TavoSelectionSet& result() const { return m_result; }

  private:
    std::wstring readWord() {
        const std::wstring part = m_parts[m_at++];
        const std::wstring name = tv::text::toUpper(part);
        if (addsOrRemoves(name)) {
            m_removing = name.front() == L'R';
            return {};
        }
        if (name == L"NONE") {
            m_result.clear();
            return {};
        }
        for (const Word& word : words)
            if (name == word.name || name == word.shortName) return readPoints(word);
        if (const auto point = pointOf(part)) {
            TavoSelectionQuery query;
            query.method = Method::kPoint;
            query.points = {*point};
            query.tolerance = m_tolerance;
            return choose(query);
        }
        const auto handle = OdDbHandle::fromText(part);
        const OdDbObjectId id = handle ? m_database->getOdDbObjectId(*handle) : OdDbObjectId();
        if (!id.isErased()) {
            const auto entity = id.open<OdDbEntity>();
            if (!entity || !tv::host::SheetViewports(*m_database).has(*entity)) take({id});
            return {};
        }
        return handle ? format(VORD_ResourceString("IDS_TAVO_AUTO_NO_OBJECT_HANDLE",
                                                   L"도면에 핸들이 \"%s\"인 객체가 없습니다."),
                               part)
                      : format(VORD_ResourceString(
                                   "IDS_TAVO_SELECT_BAD_WORD",
                                   L"\"%s\"은(는) 선택 방법이 아닙니다. 가능한 값: ALL, LAST, PREVIOUS, "
                                   L"WINDOW, CROSSING, FENCE, WPOLYGON, CPOLYGON, REMOVE, ADD, NONE, "
                                   L"점 \"x,y\" 또는 핸들."),
                               part);
    }

    std::wstring readPoints(const Word& word) {
        TavoSelectionQuery query;
        query.method = word.method;
        while (m_at < m_parts.size() && query.points.size() < word.most) {
            const auto point = pointOf(m_parts[m_at]);
            if (!point) break;
            query.points.push_back(*point);
            ++m_at;
        }
        if (query.points.size() < word.least)
            return format(VORD_ResourceString("IDS_TAVO_SELECT_FEW_POINTS",
                                              L"%s 뒤에는 점이 %d개 이상 필요합니다. 예: \"0,0\"."),
                          word.name, static_cast<int>(word.least));
        return choose(query);
    }

    std::optional<OdGePoint2d> pointOf(const std::wstring& part) {
        const auto point = parsePoint(part, m_lastPoint);
        if (!point) return std::nullopt;
        m_lastPoint = point;
        return OdGePoint2d{point->x, point->y};
    }

    std::wstring choose(const TavoSelectionQuery& query) {
        TavoSelectionSet found;
        const Tavo::ErrorStatus status = m_selection.select(query, m_database, found);
        if (status == Tavo::eNotHandled)
            return VORD_ResourceString("IDS_TAVO_SELECT_NO_GEOMETRY", L"점으로 객체를 고를 수 없습니다.")
                .c_str();
        if (status != Tavo::eOk)
            return VORD_ResourceString("IDS_TAVO_POINT_NOT_FINITE", L"점의 좌표는 유한한 수여야 합니다.")
                .c_str();
        take(found.ids());
        return {};
    }

    void take(const std::vector<OdDbObjectId>& ids) {
        if (m_removing)
            m_result.remove(ids);
        else
            m_result.add(ids);
    }

    const TavoSelection& m_selection;
    OdDbDatabasePtr m_database;
    double m_tolerance;
    std::vector<std::wstring> m_parts;
    std::size_t m_at = 0;
    TavoSelectionSet m_result;
    bool m_removing = false;
    std::optional<OdGePoint3d> m_lastPoint;
};

} // namespace

UserResult chooseByWords(const TavoSelection& selection, const OdDbDatabasePtr& database, double tolerance,
                         std::wstring_view line, TavoSelectionSet& chosen) {
    if (!database) return {VORD_ResourceString("IDS_TAVO_NO_DRAWING", L"열려 있는 도면이 없습니다.").c_str()};
    Reader reader(selection, database, tolerance, partsOf(line), chosen);
    if (std::wstring refusal = reader.read(); !refusal.empty()) return {std::move(refusal)};
    chosen = reader.result();
    return UserResult::done();
}

UserResult selectByWords(TavoSelection& selection, const OdDbDatabasePtr& database, double tolerance,
                         std::wstring_view line) {
    TavoSelectionSet chosen = selectedIn(selection, database);
    auto result = chooseByWords(selection, database, tolerance, line, chosen);
    if (result) selection.set(chosen.ids());
    return result;
}

UserResult chooseAnew(const TavoSelection& selection, const OdDbDatabasePtr& database, double tolerance,
                      std::wstring_view line, TavoSelectionSet& chosen) {
    const auto parts = partsOf(line);
    const bool goesOn = !parts.empty() && addsOrRemoves(tv::text::toUpper(parts.front()));
    chosen = goesOn ? selectedIn(selection, database) : TavoSelectionSet();
    return chooseByWords(selection, database, tolerance, line, chosen);
}
