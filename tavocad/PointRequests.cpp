#include "tavocad/PointRequests.h"

#include "platform/host/units/AngleFormat.h"
#include "platform/host/units/LengthFormat.h"
#include "platform/text/Format.h"
#include "platform/text/ResourceString.h"
#include "platform/toolkit/Toolkit.h"

#include <cmath>
#include <vector>

using tv::ui::UserResult;

namespace {
constexpr int decimalLength = static_cast<int>(tv::host::LengthUnits::kDecimal);
constexpr int decimalDegrees = static_cast<int>(tv::host::AngleUnits::kDegrees);

UserResult nothingAwaited() {
    return {VORD_ResourceString("IDS_TAVO_NO_POINT_AWAITED", L"지금은 점을 기다리고 있지 않습니다.").c_str()};
}
} // namespace

Tavo::ErrorStatus PointRequests::getPoint(const OdString& prompt, const OdGePoint3d* base, OdGePoint3d& point) {
    tv::ui::Toolkit* toolkit = tv::ui::Toolkit::current();
    if (!toolkit || m_request) return Tavo::eNotHandled;
    Request request{prompt, base ? std::optional(*base) : std::nullopt, std::nullopt};
    m_request = &request;
    m_changed.notify(true);

    tv::ui::Waiting waiting;
    waiting.prompt = prompt.wstr();
    waiting.done = [&request] { return request.ended; };
    waiting.supply = [this](const tv::ui::UserAction& action) -> UserResult {
        if (action.kind == tv::ui::UserAction::Kind::point) return supply({action.x, action.y, action.z});
        if (action.kind == tv::ui::UserAction::Kind::key && action.keyEvent.key == tv::ui::Key::escape) {
            cancel();
            return UserResult::done();
        }
        return {VORD_ResourceString("IDS_TAVO_POINT_AWAITED", L"도면의 점을 기다리고 있습니다.").c_str()};
    };
    toolkit->wait(waiting);

    m_request = nullptr;
    m_changed.notify(false);
    if (!request.answer) return Tavo::eCancelled;
    point = *request.answer;
    return Tavo::eOk;
}

OdString PointRequests::prompt() const { return m_request ? m_request->prompt : OdString(); }

std::optional<OdGePoint3d> PointRequests::base() const { return m_request ? m_request->base : std::nullopt; }

UserResult PointRequests::supply(const OdGePoint3d& point) {
    if (!m_request || m_request->ended) return nothingAwaited();
    if (!std::isfinite(point.x) || !std::isfinite(point.y) || !std::isfinite(point.z))
        return {VORD_ResourceString("IDS_TAVO_POINT_NOT_FINITE", L"점의 좌표는 유한한 수여야 합니다.").c_str()};
    m_request->answer = point;
    m_request->ended = true;
    return UserResult::done();
}

UserResult PointRequests::supplyText(std::wstring_view text) {
    if (!m_request) return nothingAwaited();
    if (const auto point = parsePoint(text, m_request->base)) return supply(*point);
    return {tv::text::format(
        VORD_ResourceString("IDS_TAVO_POINT_NOT_READ",
                            L"\"%s\"은(는) 점이 아닙니다. \"x,y\" 또는 \"거리<각도\"로 입력하십시오."),
        text)};
}

void PointRequests::cancel() {
    if (m_request) m_request->ended = true;
}

std::optional<OdGePoint3d> parsePoint(std::wstring_view text, const std::optional<OdGePoint3d>& base) {
    while (!text.empty() && text.front() == L' ')
        text.remove_prefix(1);
    OdGePoint3d origin;
    if (!text.empty() && text.front() == L'@') {
        text.remove_prefix(1);
        origin = base.value_or(OdGePoint3d{});
    }
    if (const auto bracket = text.find(L'<'); bracket != std::wstring_view::npos) {
        const auto distance = tv::host::parseLength(text.substr(0, bracket), decimalLength);
        const auto angle = tv::host::parseAngle(text.substr(bracket + 1), decimalDegrees);
        if (!distance || !angle) return std::nullopt;
        return OdGePoint3d{origin.x + *distance * std::cos(*angle), origin.y + *distance * std::sin(*angle),
                           origin.z};
    }
    std::vector<double> coordinates;
    for (std::size_t start = 0; start != std::wstring_view::npos;) {
        const auto comma = text.find(L',', start);
        const auto number = tv::host::parseLength(text.substr(start, comma - start), decimalLength);
        if (!number) return std::nullopt;
        coordinates.push_back(*number);
        start = comma == std::wstring_view::npos ? comma : comma + 1;
    }
    if (coordinates.size() < 2 || coordinates.size() > 3) return std::nullopt;
    const double z = coordinates.size() == 3 ? coordinates[2] : 0;
    return OdGePoint3d{origin.x + coordinates[0], origin.y + coordinates[1], origin.z + z};
}
