#include "kxgui/layers/LayerMerge.h"

#include "kxgui/layers/LayerBoxes.h"
#include "kxgui/layers/LayerRecord.h"
#include "platform/drawing/NameReferences.h"
#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbLayerTable.h"
#include "platform/text/Format.h"
#include "platform/text/ResourceString.h"

#include <unordered_set>

namespace kx::layers {
namespace {

tv::Problem refusal(Tavo::ErrorStatus status, std::wstring sentence) {
    return {status, std::move(sentence), {}, 0};
}

OdDbLayerTableRecordPtr layerOf(const OdDbDatabase& database, OdDbObjectId id) {
    return id.database() == &database ? id.open<OdDbLayerTableRecord>() : nullptr;
}

std::unordered_set<OdDbObjectId> setOf(std::span<const OdDbObjectId> layers) {
    return {layers.begin(), layers.end()};
}

} // namespace

tv::Problem canMergeAway(const OdDbDatabase& database, std::span<const OdDbObjectId> layers) {
    if (database.isReadOnly()) return refusal(Tavo::eReadOnly, notWrittenBox(database, Tavo::eReadOnly).text);
    if (layers.empty())
        return refusal(
            Tavo::eInvalidInput,
            VORD_ResourceString("IDS_TAVO_LAYMRG_NONE", L"병합할 도면층을 하나 이상 선택하십시오.").c_str());
    const OdDbObjectId current = currentLayer(database);
    for (const OdDbObjectId id : layers) {
        const auto layer = layerOf(database, id);
        if (!layer)
            return refusal(Tavo::eWasErased, VORD_ResourceString("IDS_TAVO_LAYMRG_GONE",
                                                                 L"선택한 도면층이 도면에 더 이상 없습니다.")
                                                 .c_str());
        if (layer->getName() == L"0") return refusal(Tavo::eInvalidInput, zeroNotMergedBox().text);
        if (id == current) return refusal(Tavo::eInvalidInput, currentNotMergedBox().text);
        if (layer->isDependent())
            return refusal(Tavo::eInvalidInput,
                           tv::text::format(
                               VORD_ResourceString("IDS_TAVO_LAYMRG_XREF",
                                                   L"\"%s\" 도면층은 외부 참조에 종속되어 병합할 수 없습니다."),
                               layer->getName()));
    }
    return {};
}

tv::Problem canMerge(const OdDbDatabase& database, std::span<const OdDbObjectId> layers, OdDbObjectId target) {
    if (tv::Problem problem = canMergeAway(database, layers)) return problem;
    const auto layer = layerOf(database, target);
    if (!layer)
        return refusal(
            Tavo::eInvalidInput,
            VORD_ResourceString("IDS_TAVO_LAYMRG_NO_TARGET", L"목록에서 대상 도면층을 선택하십시오.").c_str());
    if (layer->isDependent())
        return refusal(Tavo::eInvalidInput,
                       tv::text::format(
                           VORD_ResourceString("IDS_TAVO_LAYMRG_TARGET_XREF",
                                               L"\"%s\" 도면층은 외부 참조에 종속되어 대상이 될 수 없습니다."),
                           layer->getName()));
    if (setOf(layers).contains(target))
        return refusal(
            Tavo::eInvalidInput,
            tv::text::format(VORD_ResourceString("IDS_TAVO_LAYMRG_TARGET_MERGED",
                                                 L"\"%s\" 도면층은 병합할 도면층이므로 대상이 될 수 없습니다."),
                             layer->getName()));
    return {};
}

std::vector<OdDbObjectId> mergeTargets(const OdDbDatabase& database, std::span<const OdDbObjectId> layers) {
    std::vector<OdDbObjectId> out;
    const auto merged = setOf(layers);
    if (const auto table = database.layers())
        table->forEach([&](OdDbObjectId id) {
            const auto layer = id.open<OdDbLayerTableRecord>();
            if (layer && !layer->isDependent() && !layer->isHidden() && !merged.contains(id)) out.push_back(id);
        });
    return out;
}

MergeResult mergeLayers(OdDbDatabase& database, std::span<const OdDbObjectId> layers, OdDbObjectId target) {
    MergeResult result{canMerge(database, layers, target)};
    if (result.problem) return result;
    OdDbUndoScope step(database, L"_LAYER");
    result.edited = tv::dwg::retargetReferences(layers, target);
    for (const OdDbObjectId id : layers) {
        if (id.isErased()) continue; // named twice
        const auto layer = id.open<OdDbLayerTableRecord>(OdDb::kForWrite);
        const auto status = layer ? layer->erase() : Tavo::eWasErased;
        if (status != Tavo::eOk) {
            step.cancel();
            return {refusal(status, notWrittenBox(database, status).text)};
        }
        ++result.layers;
    }
    return result;
}

} // namespace kx::layers
