#include "kxgui/sysvars/SysVarModel.h"

#include "kxgui/frame/ColorNames.h"
#include "platform/host/sysvars/SysvarBuffer.h"
#include "platform/host/sysvars/SysvarColor.h"
#include "platform/host/sysvars/SysvarRules.h"
#include "platform/text/ResourceString.h"
#include "platform/toolkit/Pictures.h"

#include <algorithm>

using namespace tv::host;

namespace kx::sysvar {
namespace {

std::optional<OdCmColor> colorOf(std::wstring_view text) {
    const auto code = colorOfText(text);
    return code ? colorOfCode(*code) : std::nullopt;
}

// None for ByLayer and ByBlock, which look different everywhere.
tv::ui::Picture colorSample(std::wstring_view text) {
    const auto color = colorOf(text);
    if (!color || color->isByLayer() || color->isByBlock()) return nullptr;
    return tv::ui::colorPicture(kx::frame::swatchRgb(color->rgb()));
}

} // namespace

void SysVarModel::refresh(const SysVarView& view) {
    m_view = view;
    m_rows = shownRows(m_edits, m_view);
    m_natural = m_rows;
    std::ranges::sort(m_natural);
    m_rowOfEntry.assign(m_edits.entries().size(), -1);
    for (int row = 0; row < rowCount(); ++row)
        m_rowOfEntry[static_cast<std::size_t>(m_rows[static_cast<std::size_t>(row)])] = row;
}

int SysVarModel::entryOf(int row) const {
    return row >= 0 && row < rowCount() ? m_rows[static_cast<std::size_t>(row)] : -1;
}

const SysVarEntry& SysVarModel::entry(int row) const {
    return m_edits.entries()[static_cast<std::size_t>(entryOf(row))];
}

std::wstring SysVarModel::text(int row, int column) const {
    return entryOf(row) < 0 ? std::wstring()
                            : cellText(m_edits, entryOf(row), static_cast<SysVarColumn>(column));
}

tv::ui::ListCell SysVarModel::cell(int row, int column) const {
    tv::ui::ListCell cell;
    if (entryOf(row) < 0) return cell;
    cell.text = text(row, column);
    cell.bold = m_edits.changed(entryOf(row)) && (column == kName || column == kValue);
    cell.editable = editor(row, column) != Editor::none;
    if (column == kValue && entry(row).info.type == TavoSysvarType::kColor)
        cell.picture = colorSample(cell.text);
    return cell;
}

void SysVarModel::sort(int column, bool ascending) {
    SysVarView view = m_view;
    view.order = static_cast<SysVarColumn>(column);
    view.ascending = ascending;
    refresh(view);
}

int SysVarModel::identity(int row) const {
    return static_cast<int>(std::ranges::lower_bound(m_natural, entryOf(row)) - m_natural.begin());
}

int SysVarModel::rowOf(int identity) const {
    if (identity < 0 || identity >= rowCount()) return -1;
    return rowOfKey(static_cast<std::uintptr_t>(m_natural[static_cast<std::size_t>(identity)]));
}

int SysVarModel::rowOfKey(std::uintptr_t key) const {
    return key < m_rowOfEntry.size() ? m_rowOfEntry[key] : -1;
}

CInPlaceCtrlModel::Editor SysVarModel::editor(int row, int column) const {
    if (column != kValue || entryOf(row) < 0) return Editor::none;
    switch (editorOf(entry(row))) {
    case SysVarEditor::text:
        return Editor::edit;
    case SysVarEditor::toggle: {
        // A drawing may hold neither of the two.
        const auto two = choicesOf(entry(row), nullptr);
        return std::ranges::find(two, text(row, column)) != two.end() ? Editor::toggle : Editor::list;
    }
    case SysVarEditor::choice:
    case SysVarEditor::record:
        return Editor::list;
    case SysVarEditor::color:
        return Editor::command;
    case SysVarEditor::none:
        break;
    }
    return Editor::none;
}

std::vector<tv::ui::ListItem> SysVarModel::choices(int row, int column) const {
    std::vector<tv::ui::ListItem> items;
    if (entryOf(row) < 0) return items;
    const auto add = [&items](std::wstring text, tv::ui::Picture picture = nullptr) {
        items.push_back({std::move(text), 0, std::move(picture)});
    };
    const std::wstring present = text(row, column);
    const bool color = editor(row, column) == Editor::command;
    std::vector<std::wstring> texts = choicesOf(entry(row), m_edits.GetDataBase().get());
    if (color)
        for (const std::int64_t index : {256, 0, 1, 2, 3, 4, 5, 6, 7})
            texts.push_back(textOfColor(*colorOfIndex(index)));
    // The drawing may hold what would not be offered.
    if (std::ranges::find(texts, present) == texts.end()) texts.insert(texts.begin(), present);
    for (std::wstring& one : texts)
        add(one, color ? colorSample(one) : nullptr);
    if (color) add(VORD_ResourceString("IDC_TBMNU_497", L"Select Color...").c_str());
    return items;
}

InPlaceAnswer SysVarModel::setValue(int row, int, const std::wstring& text) {
    if (entryOf(row) < 0) return {};
    Entered entered = m_edits.enter(entryOf(row), text);
    return {std::move(entered.refusal), std::move(entered.notice)};
}

bool SysVarModel::indexOnly(const SysVarEntry& entry) const {
    return homeIn(entry.info, m_edits.GetDataBase().get()) == SysvarHome::kHeader;
}

InPlaceAnswer SysVarModel::runCommand(int row, int column) {
    if (!chooseColor || editor(row, column) != Editor::command) return {};
    const int index = entryOf(row);
    const OdCmColor present = colorOf(m_edits.text(index)).value_or(OdCmColor());
    const auto chosen = chooseColor(present, indexOnly(entry(row)));
    if (!chosen) return {};
    Entered entered = m_edits.enter(index, textOfColor(codeOfColor(*chosen)));
    return {std::move(entered.refusal), std::move(entered.notice)};
}

} // namespace kx::sysvar
