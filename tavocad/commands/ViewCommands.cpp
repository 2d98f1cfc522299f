#include "tavocad/commands/Commands.h"

#include "kxgui/controls/PropertiesBar.h"
#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbLayout.h"
#include "platform/host/TavoCommandLine.h"
#include "platform/host/TavoDisplay.h"
#include "platform/host/TavoInterfaces.h"
#include "platform/host/units/LengthFormat.h"
#include "platform/text/Format.h"
#include "platform/text/ResourceString.h"
#include "platform/text/Unicode.h"
#include "tavocad/DrawingScenes.h"
#include "tavocad/TavoSession.h"

#include <cmath>
#include <optional>

namespace {

// "2", "2x", "0.5X".
std::optional<double> factorOf(std::wstring_view text) {
    if (!text.empty() && (text.back() == L'x' || text.back() == L'X')) text.remove_suffix(1);
    const auto factor = tv::host::parseLength(text, static_cast<int>(tv::host::LengthUnits::kDecimal));
    return factor && std::isfinite(*factor) && *factor > 0 ? factor : std::nullopt;
}

bool is(const std::wstring& word, std::wstring_view name) { return !word.empty() && name.starts_with(word); }

// The two corners behind the word, or asked for.
int zoomWindow(TavoSession& session, std::wstring_view rest) {
    ZoomRequest request;
    request.kind = ZoomRequest::Kind::window;
    const auto blank = rest.find(L' ');
    if (rest.empty()) {
        OdGePoint3d first, second;
        if (session.points().getPoint(VORD_ResourceString("IDS_TAVO_ZOOM_FIRST", L"창의 첫 번째 구석:").c_str(),
                                      nullptr, first) != Tavo::eOk ||
            session.points().getPoint(VORD_ResourceString("IDS_TAVO_ZOOM_SECOND", L"반대 구석:").c_str(),
                                      &first, second) != Tavo::eOk)
            return RTCAN;
        request.first = {first.x, first.y};
        request.second = {second.x, second.y};
    } else {
        const auto first = parsePoint(rest.substr(0, blank), std::nullopt);
        const auto second =
            blank == std::wstring_view::npos ? std::nullopt : parsePoint(rest.substr(blank + 1), first);
        if (!first || !second) {
            session.host().commandLine()->print(
                tv::text::format(VORD_ResourceString("IDS_TAVO_SELECT_FEW_POINTS",
                                                     L"%s 뒤에는 점이 %d개 이상 필요합니다. 예: \"0,0\"."),
                                 L"WINDOW", 2));
            return RTERROR;
        }
        request.first = {first->x, first->y};
        request.second = {second->x, second->y};
    }
    session.zoom.notify(request);
    return RTNORM;
}

int zoom(TavoSession& session) {
    const std::wstring line = session.arguments().wstr();
    const std::wstring word = tv::text::toUpper(line.substr(0, line.find(L' ')));
    ZoomRequest request;
    if (is(word, L"WINDOW")) {
        const auto rest = line.find_first_not_of(L' ', word.size());
        return zoomWindow(session, rest == std::wstring::npos ? std::wstring_view()
                                                              : std::wstring_view(line).substr(rest));
    }
    if (word.empty() || is(word, L"EXTENTS") || is(word, L"ALL")) {
        request.kind = ZoomRequest::Kind::extents;
    } else if (is(word, L"PREVIOUS")) {
        request.kind = ZoomRequest::Kind::previous;
    } else if (is(word, L"IN") || is(word, L"OUT")) {
        request.kind = ZoomRequest::Kind::factor;
        request.factor = word.front() == L'I' ? 2 : 0.5;
    } else if (const auto factor = factorOf(word)) {
        request.kind = ZoomRequest::Kind::factor;
        request.factor = *factor;
    } else {
        session.host().commandLine()->print(tv::text::format(
            VORD_ResourceString(
                "IDS_TAVO_ZOOM_BAD_WORD",
                L"\"%s\"(으)로 확대/축소할 수 없습니다. 가능한 값: EXTENTS, WINDOW, PREVIOUS, IN, "
                L"OUT 또는 2x와 같은 배율."),
            word));
        return RTERROR;
    }
    session.zoom.notify(request);
    return RTNORM;
}

int layout(TavoSession& session, TavoEdCommandContext& context) {
    TavoCommandLine& line = *session.host().commandLine();
    const OdDbDatabasePtr& database = context.database();
    if (!database) {
        line.print(VORD_ResourceString("IDS_TAVO_NO_DRAWING", L"열려 있는 도면이 없습니다.").c_str());
        return RTERROR;
    }
    const std::vector<OdDbObjectId> layouts = database->layoutIds();
    for (const OdDbObjectId& id : layouts) {
        const auto record = id.open<OdDbLayout>();
        if (!record) continue;
        // The model goes by the name of its tab, and by its own.
        const OdString name = record->isModelLayout()
                                  ? OdString(VORD_ResourceString("IDS_TAVO_WIN_MODEL", L"모형"))
                                  : record->getLayoutName();
        if (session.arguments().isEmpty())
            line.print(OdString(id == session.scenes().layoutOf(database) ? L"* " : L"  ") + name.view());
        else if (tv::text::equalNoCase(name.view(), session.arguments().view()) ||
                 tv::text::equalNoCase(record->getLayoutName().view(), session.arguments().view()))
            return session.scenes().showLayout(database, id) == Tavo::eOk ? RTNORM : RTERROR;
    }
    if (session.arguments().isEmpty() && !layouts.empty()) return RTNORM;
    line.print(layouts.empty()
                   ? OdString(VORD_ResourceString("IDS_TAVO_NO_LAYOUTS", L"이 도면에는 배치가 없습니다."))
                   : OdString(tv::text::format(
                         VORD_ResourceString("IDS_TAVO_NO_SUCH_LAYOUT", L"\"%s\"(이)라는 배치는 없습니다."),
                         session.arguments())));
    return RTERROR;
}

// ON and OFF, or without a word the keyboard goes to the bar.
int propertiesBar(TavoSession& session) {
    const std::wstring word = tv::text::toUpper(session.arguments().view());
    CPropertiesBar* bar = session.propertiesBar();
    if (bar && (word == L"ON" || word == L"OFF")) {
        session.showPropertiesBar(word == L"ON");
        return RTNORM;
    }
    if (bar && word.empty()) {
        session.showPropertiesBar(true);
        bar->settle();
        bar->TakeKeyboard();
        return RTNORM;
    }
    session.host().commandLine()->print(tv::text::format(
        VORD_ResourceString("IDS_TAVO_PROPERTIESBAR_WORDS", L"\"%s\"은(는) ON이나 OFF가 아닙니다."),
        session.arguments()));
    return RTERROR;
}

} // namespace

void registerViewCommands(TavoSession& session) {
    session.addCommand(
        {L"ZOOM",
         {L"Z"},
         [] {
             return OdString(VORD_ResourceString("IDS_TAVO_HELP_ZOOM",
                                                 L"보이는 범위를 바꿉니다: EXTENTS, WINDOW, PREVIOUS, 2x ..."));
         },
         [&session](TavoEdCommandContext&) { return zoom(session); }});
    session.addCommand(
        {L"LAYOUT",
         {L"LO"},
         [] { return OdString(VORD_ResourceString("IDS_TAVO_HELP_LAYOUT", L"배치를 나열하거나 보여 줍니다")); },
         [&session](TavoEdCommandContext& context) { return layout(session, context); }});
    session.addCommand({L"PROPERTIESBAR",
                        {L"PBAR"},
                        [] {
                            return OdString(
                                VORD_ResourceString("IDS_TAVO_HELP_PROPERTIESBAR",
                                                    L"특성 도구막대로 갑니다. ON, OFF: 보이거나 숨깁니다"));
                        },
                        [&session](TavoEdCommandContext&) { return propertiesBar(session); }});
    session.addCommand(
        {L"REDRAW",
         {L"R"},
         [] { return OdString(VORD_ResourceString("IDS_TAVO_HELP_REDRAW", L"화면을 다시 그립니다")); },
         [](TavoEdCommandContext& context) {
             tvedRedraw(context.database());
             return RTNORM;
         }});
    session.addCommand(
        {L"REGEN",
         {L"RE"},
         [] { return OdString(VORD_ResourceString("IDS_TAVO_HELP_REGEN", L"도면에서 화면을 다시 만듭니다")); },
         [](TavoEdCommandContext& context) {
             tvedRegen(context.database());
             return RTNORM;
         }});
}
