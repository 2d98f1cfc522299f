#include "kxgui/layers/LayerStateEdits.h"

#include "kxgui/layers/LayerBoxes.h"
#include "kxgui/layers/LayerRecord.h"
#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbLayerTable.h"
#include "platform/text/Format.h"
#include "platform/text/ResourceString.h"
#include "platform/text/Unicode.h"

#include <algorithm>

namespace kx::layers {
namespace {

constexpr std::size_t kLongestName = 255;

tv::Problem refusal(Tavo::ErrorStatus status, std::wstring sentence) {
    return {status, std::move(sentence), {}, 0};
}

tv::Problem readOnly(const OdDbDatabase& database) {
    return database.isReadOnly() ? refusal(Tavo::eReadOnly, notWrittenBox(database, Tavo::eReadOnly).text)
                                 : tv::Problem();
}

// Runs a write as one step and takes it back whole when it is refused.
template <class Write>
tv::Problem asStep(OdDbDatabase& database, Write&& write) {
    if (tv::Problem problem = readOnly(database)) return problem;
    OdDbUndoScope step(database, L"_LAYER");
    const Tavo::ErrorStatus status = write();
    if (status == Tavo::eOk) return {};
    step.cancel();
    return refusal(status, notWrittenBox(database, status).text);
}

tv::Problem noState(std::wstring_view name) {
    return refusal(Tavo::eKeyNotFound,
                   tv::text::format(VORD_ResourceString("IDS_TAVO_LAYSTATE_GONE",
                                                        L"도면에 도면층 상태 \"%s\"이(가) 더 이상 없습니다."),
                                    name));
}

} // namespace

tv::Problem canNameState(OdDbDatabase& database, std::wstring_view name, std::wstring_view renamed) {
    if (tv::Problem problem = readOnly(database)) return problem;
    if (!database.canHold(OdDb::Feature::kDictionaries))
        return refusal(Tavo::eNotHandled,
                       VORD_ResourceString("IDS_TAVO_LAYSTATE_NOT_HELD",
                                           L"이 도면의 버전에는 도면층 상태를 저장할 수 없습니다.")
                           .c_str());
    if (std::ranges::all_of(name, [](wchar_t c) { return c == L' ' || c == L'\t'; }))
        return refusal(
            Tavo::eInvalidInput,
            VORD_ResourceString("IDS_TAVO_LAYSTATE_NAME_EMPTY", L"도면층 상태의 이름을 입력하십시오.").c_str());
    if (name.size() > kLongestName ||
        std::ranges::any_of(name, [](wchar_t c) { return c < L' ' || c == 0x7F || c == L'|'; }))
        return refusal(Tavo::eInvalidInput,
                       VORD_ResourceString(
                           "IDS_TAVO_LAYSTATE_NAME_BAD",
                           L"이름은 255자를 넘을 수 없고 세로 막대(|)나 보이지 않는 문자를 포함할 수 없습니다.")
                           .c_str());
    if (tv::text::equalNoCase(name, renamed)) return {};
    for (const OdString& known : tv::dwg::layerStateNames(database))
        if (tv::text::equalNoCase(known.view(), name))
            return refusal(
                Tavo::eDuplicate,
                tv::text::format(
                    VORD_ResourceString("IDS_TAVO_LAYSTATE_DUPLICATE",
                                        L"도면층 상태 \"%s\"이(가) 이미 있습니다. 다른 이름을 입력하십시오."),
                    known));
    return {};
}

tv::Problem saveState(OdDbDatabase& database, std::wstring_view name, std::wstring_view description, int mask) {
    if (tv::Problem problem = canNameState(database, name)) return problem;
    tv::dwg::LayerState state = tv::dwg::currentLayerState(database);
    state.name = name;
    state.description = description;
    state.mask = mask;
    return asStep(database, [&] { return tv::dwg::writeLayerState(database, state); });
}

tv::Problem renameState(OdDbDatabase& database, std::wstring_view from, std::wstring_view to,
                        std::wstring_view description) {
    auto state = tv::dwg::readLayerState(database, from);
    if (!state) return noState(from);
    if (tv::Problem problem = canNameState(database, to, from)) return problem;
    return asStep(database, [&] {
        if (state->name.view() != to)
            if (const auto status = tv::dwg::renameLayerState(database, from, to); status != Tavo::eOk)
                return status;
        if (state->description.view() == description) return Tavo::eOk;
        state->name = to;
        state->description = description;
        return tv::dwg::writeLayerState(database, *state);
    });
}

tv::Problem deleteState(OdDbDatabase& database, std::wstring_view name) {
    if (tv::Problem problem = readOnly(database)) return problem;
    if (!tv::dwg::readLayerState(database, name)) return noState(name);
    return asStep(database, [&] { return tv::dwg::deleteLayerState(database, name); });
}

tv::Problem restoreState(OdDbDatabase& database, std::wstring_view name,
                         const tv::dwg::LayerStateRestore& how) {
    auto state = tv::dwg::readLayerState(database, name);
    if (!state) return noState(name);
    state->mask = how.mask;
    return asStep(database, [&] {
        if (const auto status = tv::dwg::restoreLayerState(database, *state, how); status != Tavo::eOk)
            return status;
        const auto current = currentLayer(database).open<OdDbLayerTableRecord>(OdDb::kForWrite);
        return current && current->isFrozen() ? current->setIsFrozen(false) : Tavo::eOk;
    });
}

} // namespace kx::layers
