#include "tavocad/References.h"

#include "platform/drawing/ExternalReferences.h"
#include "platform/host/TavoCommandLine.h"
#include "platform/text/Format.h"
#include "platform/text/ResourceString.h"

using tv::dwg::ExternalReference;
using tv::dwg::XrefStatus;
using tv::text::format;

namespace {

constexpr int mostTold = 20;

const wchar_t* statusText(XrefStatus status) {
    switch (status) {
    case XrefStatus::kResolved:
        return VORD_ResourceString("IDS_TAVO_XREFS_FOUND", L"찾음");
    case XrefStatus::kUnloaded:
        return VORD_ResourceString("IDS_TAVO_XREFS_UNLOADED", L"언로드됨");
    case XrefStatus::kMissing:
        return VORD_ResourceString("IDS_TAVO_XREFS_MISSING", L"찾을 수 없음");
    case XrefStatus::kNotADrawing:
        return VORD_ResourceString("IDS_TAVO_XREFS_NO_DRAWING", L"도면이 아님");
    case XrefStatus::kCircular:
        return VORD_ResourceString("IDS_TAVO_XREFS_CIRCULAR", L"자기 자신을 참조함");
    case XrefStatus::kTooDeep:
        return VORD_ResourceString("IDS_TAVO_XREFS_TOO_DEEP", L"너무 깊음");
    }
    return L"";
}

} // namespace

void tellMissingReferences(OdDbDatabase& database, TavoCommandLine& line) {
    int missing = 0;
    for (const ExternalReference& reference : tv::dwg::ExternalReferences(database).list())
        if (reference.status == XrefStatus::kMissing && ++missing <= mostTold)
            line.print(reference.problem.sentence);
    if (missing > mostTold)
        line.print(
            format(VORD_ResourceString("IDS_TAVO_XREFS_MORE",
                                       L"그 밖에 찾을 수 없는 외부 참조가 %d개 더 있습니다. XREF로 모두 볼 "
                                       L"수 있습니다."),
                   missing - mostTold));
}

bool listReferences(OdDbDatabase& database, TavoCommandLine& line) {
    const auto references = tv::dwg::ExternalReferences(database).list();
    for (const ExternalReference& reference : references)
        line.print(format(VORD_ResourceString("IDS_TAVO_XREFS_LINE", L"%s (%s): \"%s\" - %s"), reference.name,
                          reference.overlay ? VORD_ResourceString("IDS_TAVO_XREFS_OVERLAY", L"중첩").c_str()
                                            : VORD_ResourceString("IDS_TAVO_XREFS_ATTACHED", L"부착").c_str(),
                          reference.path, statusText(reference.status)));
    return !references.empty();
}
