#include "platform/drawing/DimVariables.h"
#include "platform/drawing/OdDbBlockTable.h"
#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbEntity.h"
#include "platform/drawing/entities/EntityAppender.h"
#include "platform/drawing/entities/TagAccess.h"
#include "platform/text/Format.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace tv::dwg {
namespace {

double numberOf(const OdDbObject& dimension, std::wstring_view variable) {
    const Value value = effectiveDimVariable(dimension, variable);
    if (const auto* real = std::get_if<double>(&value)) return *real;
    const auto* whole = std::get_if<std::int64_t>(&value);
    return whole ? static_cast<double>(*whole) : 0;
}

// Decimal, as the style's decimals, factor, zero suppression and separator say.
std::wstring measured(const OdDbObject& dimension, double length) {
    const int decimals = static_cast<int>(std::clamp(numberOf(dimension, L"DIMDEC"), 0.0, 8.0));
    std::wstring out = text::format((L"%." + std::to_wstring(decimals) + L"f").c_str(),
                                    length * std::abs(numberOf(dimension, L"DIMLFAC")));
    constexpr int kNoTrailingZeros = 8;
    if (decimals > 0 && (static_cast<int>(numberOf(dimension, L"DIMZIN")) & kNoTrailingZeros)) {
        out.erase(out.find_last_not_of(L'0') + 1);
        if (out.back() == L'.') out.pop_back();
    }
    const auto separator = static_cast<wchar_t>(numberOf(dimension, L"DIMDSEP"));
    if (separator > 32 && separator < 127) std::replace(out.begin(), out.end(), L'.', separator);
    return out;
}

std::wstring shownText(const OdDbObject& dimension, const NewDimension& shape, double length) {
    std::wstring out = shape.text.wstr();
    if (out.empty()) return measured(dimension, length);
    if (const std::size_t at = out.find(L"<>"); at != std::wstring::npos)
        out.replace(at, 2, measured(dimension, length));
    return out;
}

} // namespace

void showDimension(OdDbObjectId id, const NewDimension& shape) {
    const auto dimension = id.open<OdDbEntity>(OdDb::kForWrite);
    OdDbDatabase& database = *id.database();
    const auto table = database.getBlockTableId().open<OdDbBlockTable>(OdDb::kForWrite);
    if (!dimension || !table) return;
    const OdString name(L"*D" + std::to_wstring(database.store().recordCount()));
    const OdDbObjectId block = table->add(name);
    if (block.isNull()) return;

    const double angle = shape.aligned
                             ? std::atan2(shape.second.y - shape.first.y, shape.second.x - shape.first.x)
                             : shape.rotation;
    const OdGeVector2d along{std::cos(angle), std::sin(angle)};
    const auto onLine = [&](const OdGePoint3d& p) {
        const double way = (p.x - shape.linePoint.x) * along.x + (p.y - shape.linePoint.y) * along.y;
        return OdGePoint3d{shape.linePoint.x + way * along.x, shape.linePoint.y + way * along.y, p.z};
    };
    const OdGePoint3d ends[] = {onLine(shape.first), onLine(shape.second)};
    const double length = std::hypot(ends[1].x - ends[0].x, ends[1].y - ends[0].y);
    const double scale = std::max(numberOf(*dimension, L"DIMSCALE"), 1e-9);
    const double arrow = numberOf(*dimension, L"DIMASZ") * scale;
    const double height = numberOf(*dimension, L"DIMTXT") * scale;

    std::vector<NewEntity> parts{LineGeometry{ends[0], ends[1]}};
    for (const int i : {0, 1}) {
        const OdGePoint3d& from = i == 0 ? shape.first : shape.second;
        const OdGeVector3d way = ends[i] - from;
        const double far = way.length();
        if (far > 0) {
            const auto at = [&](double distance) {
                return OdGePoint3d{from.x + way.x / far * distance, from.y + way.y / far * distance, from.z};
            };
            parts.push_back(LineGeometry{at(numberOf(*dimension, L"DIMEXO") * scale),
                                         at(far + numberOf(*dimension, L"DIMEXE") * scale)});
        }
        if (length == 0 || arrow <= 0) continue;
        // From the end towards the other one, a sixth of its length wide to either side.
        const OdGePoint3d& other = ends[1 - i];
        const OdGeVector2d in{(other.x - ends[i].x) / length * arrow, (other.y - ends[i].y) / length * arrow};
        SolidGeometry head;
        head.corners[0] = ends[i];
        head.corners[1] = {ends[i].x + in.x - in.y / 6, ends[i].y + in.y + in.x / 6, ends[i].z};
        head.corners[2] = {ends[i].x + in.x + in.y / 6, ends[i].y + in.y - in.x / 6, ends[i].z};
        head.corners[3] = head.corners[2];
        parts.push_back(head);
    }
    if (const std::wstring said = shownText(*dimension, shape, length); height > 0 && said != L" ") {
        const double gap = std::abs(numberOf(*dimension, L"DIMGAP")) * scale;
        // Read from below or from the right.
        const double turn = std::cos(angle) < -1e-9 ? angle + std::acos(-1.0) : angle;
        TextGeometry text;
        text.text = OdString(said);
        text.height = height;
        text.rotation = turn;
        text.horizontal = 1;
        text.position = {(ends[0].x + ends[1].x) / 2 - std::sin(turn) * gap,
                         (ends[0].y + ends[1].y) / 2 + std::cos(turn) * gap, ends[0].z};
        const Value style = effectiveDimVariable(*dimension, L"DIMTXSTY");
        if (const auto* named = std::get_if<OdString>(&style)) text.style = *named;
        parts.push_back(text);
    }
    const EntityHome home = EntityHome::block(block);
    for (const NewEntity& part : parts)
        if (const auto made = appendEntity(home, part).id.open<OdDbEntity>(OdDb::kForWrite)) {
            made->setLayer(L"0");
            made->setColor(OdCmColor::byIndex(OdCmColor::kACIbyBlock));
        }
    static constexpr int kOrder[] = {280, 2};
    writeTag(*dimension, {"AcDbDimension", 2}, name, kOrder);
}

} // namespace tv::dwg
