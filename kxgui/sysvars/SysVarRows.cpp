#include "kxgui/sysvars/SysVarRows.h"

#include "platform/host/sysvars/RecordLookup.h"
#include "platform/host/sysvars/SysvarDescriptions.h"
#include "platform/host/sysvars/SysvarRules.h"
#include "platform/text/Collation.h"
#include "platform/text/Numbers.h"
#include "platform/text/ResourceString.h"
#include "platform/text/Unicode.h"

#include <algorithm>
#include <sstream>

using namespace tv::host;

namespace kx::sysvar {
namespace {

// The longest range whose numbers are offered one by one; longer ones are often sums of bits.
constexpr double kMostChoices = 10;

bool isChoice(const SysvarInfo& info) {
    if (info.limit == SysvarLimit::kOneOf) return true;
    const bool whole = info.type == TavoSysvarType::kInt16 || info.type == TavoSysvarType::kInt32;
    return whole && info.limit == SysvarLimit::kRange && info.maximum > info.minimum &&
           info.maximum - info.minimum <= kMostChoices;
}

std::vector<std::wstring> wordsOf(std::wstring_view filter) {
    std::wistringstream stream(tv::text::foldCase(filter));
    std::vector<std::wstring> words;
    for (std::wstring word; stream >> word;)
        words.push_back(std::move(word));
    return words;
}

bool matches(const SysVarEdits& edits, int index, const std::vector<std::wstring>& words) {
    if (words.empty()) return true;
    const std::wstring text =
        tv::text::foldCase(cellText(edits, index, kName) + L"\n" + cellText(edits, index, kDescription));
    return std::ranges::all_of(words,
                               [&](const std::wstring& word) { return text.find(word) != std::wstring::npos; });
}

} // namespace

std::wstring cellText(const SysVarEdits& edits, int index, SysVarColumn column) {
    const SysVarEntry& entry = edits.entries()[static_cast<std::size_t>(index)];
    switch (column) {
    case kMark:
        return edits.changed(index) ? L"*" : L"";
    case kName:
        return entry.name();
    case kValue:
        return edits.text(index);
    case kRange:
        if (entry.readOnly) return VORD_ResourceString("IDS_TAVO_SYSVARS_READ_ONLY", L"읽기 전용").c_str();
        return sysvarRangeText(entry.info).wstr();
    case kPlace:
        return sysvarHomeText(homeIn(entry.info, edits.GetDataBase().get())).wstr();
    case kDescription:
        return sysvarDescription(entry.name()).wstr();
    case kSysVarColumns:
        break;
    }
    return {};
}

SysVarEditor editorOf(const SysVarEntry& entry) {
    if (entry.readOnly || !entry.available) return SysVarEditor::none;
    const SysvarInfo& info = entry.info;
    if (info.type == TavoSysvarType::kColor) return SysVarEditor::color;
    if (info.type == TavoSysvarType::kObjectId && info.record != SysvarRecord::kNone &&
        info.record != SysvarRecord::kHandle)
        return SysVarEditor::record;
    if (!isChoice(info)) return SysVarEditor::text;
    const bool two = info.limit == SysvarLimit::kRange && info.maximum - info.minimum == 1;
    return two ? SysVarEditor::toggle : SysVarEditor::choice;
}

std::vector<std::wstring> choicesOf(const SysVarEntry& entry, const OdDbDatabase* database) {
    std::vector<std::wstring> texts;
    const SysvarInfo& info = entry.info;
    switch (editorOf(entry)) {
    case SysVarEditor::toggle:
    case SysVarEditor::choice:
        for (const std::int16_t value : info.allowed)
            texts.push_back(tv::text::printInt(value));
        if (info.limit == SysvarLimit::kRange)
            for (double value = info.minimum; value <= info.maximum; ++value)
                texts.push_back(tv::text::printInt(static_cast<std::int64_t>(value)));
        break;
    case SysVarEditor::record:
        if (!database) break;
        for (const OdString& name : recordNames(*database, info.record))
            texts.push_back(name.wstr());
        std::ranges::sort(texts, tv::text::Collator({.digitsAsNumbers = true, .ignoreCase = true}));
        if (info.record == SysvarRecord::kLinetype)
            for (const wchar_t* name : {L"ByBlock", L"ByLayer"})
                if (findRecord(*database, info.record, name).isNull()) texts.insert(texts.begin(), name);
        if (isFreeName(info, L"")) texts.insert(texts.begin(), L"");
        break;
    default:
        break;
    }
    return texts;
}

std::vector<int> shownRows(const SysVarEdits& edits, const SysVarView& view) {
    std::vector<int> rows;
    const auto words = wordsOf(view.filter);
    for (int i = 0; i < static_cast<int>(edits.entries().size()); ++i)
        if ((!view.onlyChanged || edits.changed(i)) && matches(edits, i, words)) rows.push_back(i);

    const tv::text::Collator collator({.digitsAsNumbers = true, .ignoreCase = true});
    std::vector<std::string> keys(edits.entries().size());
    for (const int row : rows)
        keys[static_cast<std::size_t>(row)] = collator.sortKey(cellText(edits, row, view.order));
    std::ranges::stable_sort(rows, [&](int a, int b) {
        const auto& left = keys[static_cast<std::size_t>(a)];
        const auto& right = keys[static_cast<std::size_t>(b)];
        return view.ascending ? left < right : right < left;
    });
    return rows;
}

} // namespace kx::sysvar
