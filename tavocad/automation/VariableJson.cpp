#include "tavocad/automation/VariableJson.h"

#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdResBuf.h"
#include "platform/host/TavoInterfaces.h"
#include "platform/host/TavoSysvarManager.h"
#include "platform/host/sysvars/SysvarRules.h"
#include "platform/text/Format.h"
#include "platform/text/ResourceString.h"
#include "platform/text/Unicode.h"
#include "tavocad/automation/Fields.h"

#include <optional>

using Json = nlohmann::ordered_json;
using tv::text::format;

namespace {

void requireKnown(const TavoSysvarManager& manager, const std::wstring& name) {
    if (manager.type(name) == TavoSysvarType::kNone)
        throw RequestError{tv::host::unknownVariable(name).sentence};
}

std::optional<OdResBuf> toBuffer(const nlohmann::json& value, TavoSysvarType type) {
    if (value.is_string())
        return OdResBuf(OdResBuf::kRtString, OdString(tv::text::fromUtf8(value.get<std::string>())));
    if (value.is_boolean()) return OdResBuf(OdResBuf::kRtInt16, std::int64_t{value.get<bool>()});
    if (value.is_number_integer()) {
        // What is beyond 32 bits travels as a real and is refused as out of range.
        const double number = value.get<double>();
        if (number < -2147483648.0 || number > 2147483647.0) return OdResBuf(OdResBuf::kRtDouble, number);
        return OdResBuf(type == TavoSysvarType::kInt16 ? OdResBuf::kRtInt16 : OdResBuf::kRtInt32,
                        value.get<std::int64_t>());
    }
    if (value.is_number()) return OdResBuf(OdResBuf::kRtDouble, value.get<double>());
    if (!value.is_array() || value.size() < 2 || value.size() > 3) return std::nullopt;
    for (const auto& coordinate : value)
        if (!coordinate.is_number()) return std::nullopt;
    const double x = value[0].get<double>(), y = value[1].get<double>();
    if (value.size() == 2) return OdResBuf(OdResBuf::kRtPoint2d, OdGePoint2d{x, y});
    return OdResBuf(OdResBuf::kRtPoint3d, OdGePoint3d{x, y, value[2].get<double>()});
}

} // namespace

Json readVariable(const TavoSysvarManager& manager, const std::wstring& name) {
    requireKnown(manager, name);
    OdResBuf buffer;
    const bool asText = manager.type(name) == TavoSysvarType::kColor;
    OdString text;
    const Tavo::ErrorStatus status =
        asText ? manager.getText(name, text, nullptr) : manager.getVar(name, buffer, nullptr);
    if (status != Tavo::eOk)
        throw RequestError{format(VORD_ResourceString("IDS_TAVO_VARIABLE_NEEDS_DRAWING",
                                                      L"%s 변수는 도면에 있는데 열려 있는 도면이 없습니다."),
                                  name)};
    if (asText) return tv::text::toUtf8(text.wstr());
    const tv::dwg::Value& value = buffer.value();
    if (const auto* whole = std::get_if<std::int64_t>(&value)) return *whole;
    if (const auto* real = std::get_if<double>(&value)) return *real;
    if (const auto* point = std::get_if<OdGePoint2d>(&value)) return {point->x, point->y};
    if (const auto* point = std::get_if<OdGePoint3d>(&value)) return {point->x, point->y, point->z};
    return tv::text::toUtf8(buffer.getString().wstr());
}

void writeVariable(TavoSysvarManager& manager, const std::wstring& name, const nlohmann::json& value) {
    requireKnown(manager, name);
    const auto buffer = toBuffer(value, manager.type(name));
    if (!buffer)
        Fields::wrongType("value",
                          VORD_ResourceString("IDS_TAVO_AUTO_TYPE_VARIABLE", L"숫자, 문자열 또는 [x, y, z]"));
    const OdDbDatabasePtr database = tvedWorkingDatabase();
    std::optional<OdDbUndoScope> step;
    if (database) step.emplace(*database, L"_SETVAR");
    if (manager.setVar(name, *buffer, database) != Tavo::eOk)
        throw RequestError{manager.lastProblem().sentence};
}
