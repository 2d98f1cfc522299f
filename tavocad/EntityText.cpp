#include "tavocad/EntityText.h"

#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbEntity.h"
#include "platform/drawing/entities/EntityProperties.h"
#include "platform/host/TavoInterfaces.h"
#include "platform/host/TavoSysvarManager.h"
#include "platform/host/TavoUnits.h"
#include "platform/text/Format.h"
#include "platform/text/ResourceString.h"
#include "platform/text/Unicode.h"
#include "tavocad/PropertyWords.h"

using tv::text::format;

namespace {

OdString byLayer() { return VORD_ResourceString("IDS_TAVO_LIST_BYLAYER", L"ByLayer"); }
OdString byBlock() { return VORD_ResourceString("IDS_TAVO_LIST_BYBLOCK", L"ByBlock"); }

OdString lineWeightText(OdDb::LineWeight weight) {
    switch (weight) {
    case OdDb::kLnWtByLayer:
        return byLayer();
    case OdDb::kLnWtByBlock:
        return byBlock();
    case OdDb::kLnWtByLwDefault:
        return VORD_ResourceString("IDS_TAVO_LIST_DEFAULT", L"기본값");
    default:
        return format(L"%.2f mm", static_cast<int>(weight) / 100.0);
    }
}

OdString shownColor(const OdCmColor& color) {
    if (color.isByLayer()) return byLayer();
    return color.isByBlock() ? byBlock() : colorText(color);
}

OdString linetypeText(const OdString& name) {
    if (tv::text::equalNoCase(name.view(), L"BYLAYER")) return byLayer();
    return tv::text::equalNoCase(name.view(), L"BYBLOCK") ? byBlock() : name;
}

int whole(const wchar_t* variable, int otherwise) {
    tvedGetVar(variable, otherwise, nullptr);
    return otherwise;
}

// A number as the program writes numbers of that kind.
OdString numberText(double number, tv::dwg::PropertyKind kind) {
    using tv::dwg::PropertyKind;
    TavoInterfaces* host = getTavoInterfaces();
    TavoUnits* units = host ? host->units() : nullptr;
    if (units && kind == PropertyKind::kAngle)
        return units->formatAngle(number, whole(L"AUNITS", 0), whole(L"AUPREC", 0), {});
    if (units && (kind == PropertyKind::kLength || kind == PropertyKind::kCoordinate))
        return units->formatLinear(number, whole(L"LUNITS", 2), whole(L"LUPREC", 4),
                                   {whole(L"DIMZIN", 0) & 3, whole(L"UNITMODE", 0)});
    return format(L"%.8g", number);
}

// Empty for a value the entity does not have.
OdString valueText(const tv::dwg::Value& value, const tv::dwg::EntityProperty& property) {
    using tv::dwg::PropertyKind;
    if (const auto* number = std::get_if<std::int64_t>(&value)) {
        for (const tv::dwg::PropertyChoice& choice : property.choices)
            if (choice.value == *number) return propertyWord(choice.name);
        if (property.kind == PropertyKind::kBoolean)
            return OdString(*number ? VORD_ResourceString("IDS_TAVO_LIST_YES", L"예")
                                    : VORD_ResourceString("IDS_TAVO_LIST_NO", L"아니요"));
        return format(L"%d", static_cast<long long>(*number));
    }
    if (const auto* number = std::get_if<double>(&value)) return numberText(*number, property.kind);
    if (const auto* text = std::get_if<OdString>(&value)) return *text;
    if (const auto* handle = std::get_if<OdDbHandle>(&value)) return tv::text::fromUtf8(handle->ascii());
    return {};
}

OdString handleText(const OdDbObjectId& id) {
    const OdDbHandle handle = id.handle();
    return handle.isNull() ? OdString(L"-") : OdString(tv::text::fromUtf8(handle.ascii()));
}

} // namespace

OdString colorText(const OdCmColor& color) {
    if (color.isByLayer()) return L"BYLAYER";
    if (color.isByBlock()) return L"BYBLOCK";
    if (color.isByColor()) return format(L"%d,%d,%d", int{color.red()}, int{color.green()}, int{color.blue()});
    return format(L"%d", color.colorIndex());
}

OdString entityHint(const OdDbObjectId& id) {
    const auto entity = id.open<OdDbEntity>();
    if (!entity) return {};
    return format(VORD_ResourceString("IDS_TAVO_HINT", L"%s\n도면층: %s\n색상: %s"), entity->isA(),
                  entity->layer(), shownColor(entity->color()));
}

std::vector<OdString> describeEntity(const OdDbObjectId& id) {
    const auto entity = id.open<OdDbEntity>();
    if (!entity) return {};
    std::vector<OdString> lines;
    lines.push_back(format(VORD_ResourceString("IDS_TAVO_LIST_HEAD", L"%s  핸들: %s  도면층: \"%s\""),
                           entity->isA(), handleText(id), entity->layer()));
    auto add = [&lines](const wchar_t* name, const OdString& value) {
        lines.push_back(OdString(L"    ") + name + L": " + value.view());
    };
    add(VORD_ResourceString("IDS_TAVO_LIST_SPACE", L"공간"),
        OdString(entity->isInPaperSpace() ? VORD_ResourceString("IDS_TAVO_LIST_PAPER", L"도면 공간")
                                          : VORD_ResourceString("IDS_TAVO_LIST_MODEL", L"모형 공간")));
    add(VORD_ResourceString("IDS_TAVO_LIST_COLOR", L"색상"), shownColor(entity->color()));
    add(VORD_ResourceString("IDS_TAVO_LIST_LINETYPE", L"선종류"), linetypeText(entity->linetype()));
    if (const double scale = entity->linetypeScale(); scale != 1)
        add(VORD_ResourceString("IDS_TAVO_LIST_LTSCALE", L"선종류 축척"), format(L"%g", scale));
    add(VORD_ResourceString("IDS_TAVO_LIST_LWEIGHT", L"선가중치"), lineWeightText(entity->lineWeight()));
    if (!entity->isVisible())
        add(VORD_ResourceString("IDS_TAVO_LIST_VISIBLE", L"보임"),
            OdString(VORD_ResourceString("IDS_TAVO_LIST_NO", L"아니요")));
    const tv::dwg::EntityKind& kind = tv::dwg::entityKindOf(id);
    for (const auto& part : {kind.properties, kind.more})
        for (const tv::dwg::EntityProperty& property : part) {
            if (property.variable) continue; // a style's business, eighty of them
            const OdString text = valueText(tv::dwg::propertyValue(id, property), property);
            if (!text.isEmpty()) add(propertyWord(property.name).c_str(), text);
        }
    return lines;
}
