#include "tavocad/EntityText.h"

#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbEntity.h"
#include "platform/text/Format.h"
#include "platform/text/ResourceString.h"
#include "platform/text/Unicode.h"

using tv::text::format;

namespace {

OdString lineWeightText(OdDb::LineWeight weight) {
    switch (weight) {
    case OdDb::kLnWtByLayer:
        return L"BYLAYER";
    case OdDb::kLnWtByBlock:
        return L"BYBLOCK";
    case OdDb::kLnWtByLwDefault:
        return VORD_ResourceString("IDS_TAVO_LIST_DEFAULT", L"기본값");
    default:
        return format(L"%.2f mm", static_cast<int>(weight) / 100.0);
    }
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
                  entity->layer(), colorText(entity->color()));
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
    add(VORD_ResourceString("IDS_TAVO_LIST_COLOR", L"색상"), colorText(entity->color()));
    add(VORD_ResourceString("IDS_TAVO_LIST_LINETYPE", L"선종류"), entity->linetype());
    if (const double scale = entity->linetypeScale(); scale != 1)
        add(VORD_ResourceString("IDS_TAVO_LIST_LTSCALE", L"선종류 축척"), format(L"%g", scale));
    add(VORD_ResourceString("IDS_TAVO_LIST_LWEIGHT", L"선가중치"), lineWeightText(entity->lineWeight()));
    if (!entity->isVisible())
        add(VORD_ResourceString("IDS_TAVO_LIST_VISIBLE", L"보임"),
            OdString(VORD_ResourceString("IDS_TAVO_LIST_NO", L"아니요")));
    return lines;
}
