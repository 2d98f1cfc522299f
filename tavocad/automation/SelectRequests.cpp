// The requests of the automation pipe that select objects.
#include "tavocad/automation/AutomationServer.h"

#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbEntity.h"
#include "platform/host/TavoInterfaces.h"
#include "platform/host/TavoSelection.h"
#include "platform/host/selection/SheetViewports.h"
#include "platform/text/Format.h"
#include "platform/text/ResourceString.h"
#include "platform/text/Unicode.h"
#include "tavocad/EntityText.h"
#include "tavocad/SelectionRequests.h"
#include "tavocad/TavoSession.h"

#include <algorithm>

using tv::text::format;
using Method = TavoSelectionQuery::Method;

namespace {

struct MethodName {
    const wchar_t* name;
    Method method;
};
constexpr MethodName methods[] = {{L"all", Method::kAll},
                                  {L"last", Method::kLast},
                                  {L"previous", Method::kPrevious},
                                  {L"point", Method::kPoint},
                                  {L"window", Method::kWindow},
                                  {L"crossing", Method::kCrossing},
                                  {L"fence", Method::kFence},
                                  {L"windowPolygon", Method::kWindowPolygon},
                                  {L"crossingPolygon", Method::kCrossingPolygon}};

Method methodOf(const std::wstring& name) {
    std::wstring all;
    for (const MethodName& known : methods) {
        if (name == known.name) return known.method;
        all += (all.empty() ? L"" : L", ") + std::wstring(known.name);
    }
    throw RequestError{
        format(VORD_ResourceString("IDS_TAVO_AUTO_BAD_VALUE",
                                   L"항목 \"%s\"의 값 \"%s\"을(를) 알 수 없습니다. 가능한 값: %s."),
               L"by", name, all)};
}

std::vector<OdGePoint2d> pointsOf(const Fields& fields) {
    const wchar_t* const wanted = VORD_ResourceString("IDS_TAVO_AUTO_TYPE_POINTS", L"[[x, y], ...]");
    std::vector<OdGePoint2d> points;
    const auto* list = fields.find("points");
    if (!list) return points;
    if (!list->is_array()) Fields::wrongType("points", wanted);
    for (const auto& point : *list) {
        if (!point.is_array() || point.size() < 2 || !point[0].is_number() || !point[1].is_number())
            Fields::wrongType("points", wanted);
        points.push_back({point[0].get<double>(), point[1].get<double>()});
    }
    return points;
}

TavoSelectionFilter filterOf(const Fields& fields) {
    TavoSelectionFilter filter;
    auto names = [&fields](const char* field) {
        std::vector<OdString> list;
        if (fields.find(field))
            for (const std::wstring& name : fields.texts(field))
                list.emplace_back(name);
        return list;
    };
    filter.types = names("types");
    filter.layers = names("layers");
    filter.linetypes = names("linetypes");
    // Colours are compared as they are written: "BYLAYER", "1", "255,0,0".
    if (auto colors = names("colors"); !colors.empty())
        filter.also = [colors = std::move(colors)](const OdDbEntity& entity) {
            return std::ranges::any_of(colors, [text = colorText(entity.color())](const OdString& color) {
                return tv::text::equalNoCase(color.view(), text.view());
            });
        };
    return filter;
}

std::vector<OdDbObjectId> idsOf(const OdDbDatabase& database, const std::vector<std::wstring>& handles) {
    std::vector<OdDbObjectId> ids;
    tv::host::SheetViewports sheets(database);
    for (const std::wstring& text : handles) {
        const auto handle = OdDbHandle::fromText(text);
        const OdDbObjectId id = handle ? database.getOdDbObjectId(*handle) : OdDbObjectId();
        if (id.isErased())
            throw RequestError{format(VORD_ResourceString("IDS_TAVO_AUTO_NO_OBJECT_HANDLE",
                                                          L"도면에 핸들이 \"%s\"인 객체가 없습니다."),
                                      text)};
        const auto entity = id.open<OdDbEntity>();
        if (!entity || !sheets.has(*entity)) ids.push_back(id);
    }
    return ids;
}

} // namespace

void AutomationServer::doSelect(const Fields& fields) {
    std::vector<std::wstring> handles;
    TavoSelectionQuery query;
    const bool byHandle = fields.find("handles") || !fields.find("by");
    if (byHandle)
        handles = fields.texts("handles");
    else
        query.method = methodOf(fields.text("by"));
    query.points = pointsOf(fields);
    query.filter = filterOf(fields);
    query.tolerance = fields.find("tolerance") ? fields.number("tolerance") : -1;
    const std::wstring mode = fields.optionalText("mode").value_or(L"set");
    if (mode != L"set" && mode != L"add" && mode != L"remove")
        throw RequestError{
            format(VORD_ResourceString("IDS_TAVO_AUTO_BAD_VALUE",
                                       L"항목 \"%s\"의 값 \"%s\"을(를) 알 수 없습니다. 가능한 값: %s."),
                   L"mode", mode, L"set, add, remove")};
    if (!m_session.objects().waiting()) requireIdle();
    const OdDbDatabasePtr database = document().database();
    TavoSelection& selection = *m_session.host().selection();
    TavoSelectionSet found;
    if (byHandle) {
        found.add(idsOf(*database, handles));
    } else {
        if (query.tolerance < 0) query.tolerance = m_session.pickTolerance();
        const Tavo::ErrorStatus status = selection.select(query, database, found);
        if (status == Tavo::eInvalidInput)
            Fields::wrongType("points", VORD_ResourceString("IDS_TAVO_AUTO_TYPE_POINTS", L"[[x, y], ...]"));
        if (status != Tavo::eOk)
            throw RequestError{
                VORD_ResourceString("IDS_TAVO_SELECT_NO_GEOMETRY", L"점으로 객체를 고를 수 없습니다.").c_str()};
    }
    if (mode == L"set")
        selection.set(found.ids());
    else if (mode == L"add")
        selection.add(found.ids());
    else
        selection.remove(found.ids());
    m_reply->extra["selected"] = selection.ids().size();
}

void AutomationServer::doGetSelection(const Fields& fields) {
    constexpr int usualCount = 1000;
    const int first = std::max(0, fields.optionalInteger("first").value_or(0));
    const int count = std::max(0, fields.optionalInteger("count").value_or(usualCount));
    const std::vector<OdDbObjectId> ids = m_session.host().selection()->ids();
    Json handles = Json::array();
    const auto begin = std::min(static_cast<std::size_t>(first), ids.size());
    const auto end = std::min(begin + static_cast<std::size_t>(count), ids.size());
    for (std::size_t i = begin; i < end; ++i)
        handles.push_back(ids[i].handle().ascii());
    m_reply->extra["selected"] = ids.size();
    m_reply->extra["handles"] = std::move(handles);
}
