#include "tavocad/References.h"

#include "platform/drawing/ExternalReferences.h"
#include "platform/host/TavoCommandLine.h"
#include "platform/text/Format.h"
#include "platform/text/OdString.h"
#include "platform/text/ResourceString.h"
#include "platform/text/Unicode.h"

#include <algorithm>

using tv::dwg::ExternalReference;
using tv::dwg::ExternalReferences;
using tv::dwg::XrefStatus;
using tv::text::format;

namespace {

constexpr std::size_t mostTold = 20;
constexpr std::size_t mostFollowed = 1000; // references; beyond that drawings are not read to tell of them

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

// Calls visit(reference, depth) for every reference, the drawing behind it read before.
template <class Visit>
void walk(ExternalReferences& references, int depth, std::size_t& followed, const Visit& visit) {
    const auto list = references.list();
    followed += list.size();
    for (const ExternalReference& reference : list) {
        const auto below = followed <= mostFollowed ? references.below(reference.block) : nullptr;
        visit(references.reference(reference.block), depth);
        if (below) walk(*below, depth + 1, followed, visit);
    }
}

} // namespace

std::vector<std::filesystem::path> foldersOf(std::wstring_view path) {
    std::vector<std::filesystem::path> folders;
    if (path == L".") return folders;
    for (std::size_t at = 0; at < path.size();) {
        const std::size_t end = std::min(path.find(L';', at), path.size());
        OdString folder(path.substr(at, end - at));
        folder.trim();
        if (!folder.isEmpty()) folders.emplace_back(tv::text::toUtf8(folder.view()));
        at = end + 1;
    }
    return folders;
}

void tellReferenceFaults(ExternalReferences& references, TavoCommandLine& line) {
    std::size_t followed = 0;
    walk(references, 0, followed, [](const ExternalReference&, int) {});
    const std::vector<tv::Problem> faults = references.takeProblems();
    for (std::size_t i = 0; i < std::min(faults.size(), mostTold); ++i)
        line.print(faults[i].sentence);
    if (faults.size() > mostTold)
        line.print(
            format(VORD_ResourceString("IDS_TAVO_XREFS_MORE",
                                       L"외부 참조의 문제가 그 밖에 %d개 더 있습니다. XREF로 외부 참조를 모두 "
                                       L"볼 수 있습니다."),
                   static_cast<long long>(faults.size() - mostTold)));
}

bool listReferences(ExternalReferences& references, TavoCommandLine& line) {
    bool any = false;
    std::size_t followed = 0;
    walk(references, 0, followed, [&](const ExternalReference& reference, int depth) {
        any = true;
        const OdString kind = reference.overlay ? VORD_ResourceString("IDS_TAVO_XREFS_OVERLAY", L"중첩")
                                                : VORD_ResourceString("IDS_TAVO_XREFS_ATTACHED", L"부착");
        line.print(std::wstring(static_cast<std::size_t>(depth) * 2, L' ') +
                   format(VORD_ResourceString("IDS_TAVO_XREFS_LINE", L"%s (%s): \"%s\" - %s"), reference.name,
                          kind, reference.path, statusText(reference.status)));
    });
    return any;
}
