#include "kxgui/layers/LayerCsv.h"

#include "kxgui/layers/CsvText.h"
#include "kxgui/layers/LayerBoxes.h"
#include "kxgui/layers/LayerCsvFields.h"
#include "kxgui/layers/LayerRecord.h"
#include "kxgui/layers/LayerTexts.h"
#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbLayerTable.h"
#include "platform/drawing/dxf/RecordStore.h"
#include "platform/text/AtomicFile.h"
#include "platform/text/Format.h"
#include "platform/text/ReadFile.h"
#include "platform/text/ResourceString.h"
#include "platform/text/Unicode.h"

#include <algorithm>
#include <optional>
#include <unordered_map>
#include <unordered_set>

namespace kx::layers {
namespace {

using tv::text::format;
using Kind = LayerCsvLine::Kind;

tv::Problem unusable(std::wstring sentence) { return {Tavo::eBadFile, std::move(sentence), {}, 0}; }

const LayerCsvColumn* columnOf(std::wstring_view heading) {
    for (const LayerCsvColumn& known : kLayerCsvColumns)
        if (tv::text::equalNoCase(heading, known.heading)) return &known;
    for (const LayerCsvColumn& known : kLayerCsvColumns)
        if (tv::text::equalNoCase(heading, layerColumnText(known.column))) return &known;
    return nullptr;
}

// A refused field or line: which column, and why.
struct Refusal {
    std::wstring column, reason;
};

class Planner {
  public:
    Planner(const OdDbDatabase& database, LayerCsvPlan& plan)
        : m_database(database), m_table(database.layers()), m_current(currentLayer(database)), m_plan(plan) {}

    void read(std::string_view bytes) {
        CsvReader reader(bytes);
        if (!reader.readable()) {
            m_plan.problem = unusable(
                VORD_ResourceString("IDS_TAVO_LAYCSV_NOT_UTF8",
                                    L"파일이 UTF-8 텍스트가 아닙니다. UTF-8로 다시 저장한 뒤 불러오십시오.")
                    .c_str());
            return;
        }
        CsvLine line;
        if (!reader.next(line)) {
            m_plan.problem =
                unusable(VORD_ResourceString("IDS_TAVO_LAYCSV_EMPTY", L"파일에 제목 줄이 없습니다.").c_str());
            return;
        }
        if (!headings(line)) return;
        while (reader.next(line))
            take(line);
    }

  private:
    bool headings(const CsvLine& line) {
        bool named = false;
        for (const std::wstring& field : line.fields) {
            const std::wstring heading(withoutBlanks(field));
            const LayerCsvColumn* column = columnOf(heading);
            if (column && std::ranges::find(m_columns, column) != m_columns.end()) {
                m_plan.problem = unusable(format(
                    VORD_ResourceString("IDS_TAVO_LAYCSV_HEADING_TWICE", L"제목 \"%s\"이(가) 두 번 있습니다."),
                    heading));
                return false;
            }
            if (!column && !heading.empty()) m_plan.ignored.push_back(heading);
            m_columns.push_back(column);
            named |= column && column->column == LayerColumn::name;
        }
        if (!named)
            m_plan.problem = unusable(
                VORD_ResourceString("IDS_TAVO_LAYCSV_NO_NAME",
                                    L"제목 줄에 \"Name\" 열이 없습니다. 도면층 목록이 맞는지 확인하십시오.")
                    .c_str());
        return named;
    }

    void take(const CsvLine& line) {
        LayerCsvLine out;
        out.line = line.number;
        LayerUpdate update;
        update.fields = 0;
        if (const auto refusal = understand(line, out, update)) {
            ++m_plan.refused;
            if (m_plan.refused > LayerCsvPlan::mostRefusals) return;
            out.kind = Kind::refused;
            out.changes.clear();
            out.refusal = refusal->column.empty()
                              ? format(VORD_ResourceString("IDS_TAVO_LAYCSV_REFUSED_LINE", L"%d행: %s"),
                                       line.number, refusal->reason)
                              : format(VORD_ResourceString("IDS_TAVO_LAYCSV_REFUSED", L"%d행, \"%s\" 열: %s"),
                                       line.number, refusal->column, refusal->reason);
        } else {
            ++(out.kind == Kind::made ? m_plan.made : out.kind == Kind::changed ? m_plan.changed : m_plan.same);
            if (out.kind != Kind::same) m_plan.updates.push_back(std::move(update));
        }
        m_plan.lines.push_back(std::move(out));
    }

    std::optional<Refusal> understand(const CsvLine& line, LayerCsvLine& out, LayerUpdate& update) {
        if (line.broken)
            return Refusal{
                {},
                VORD_ResourceString("IDS_TAVO_LAYCSV_BROKEN", L"따옴표가 올바르게 닫히지 않았습니다.").c_str()};
        if (line.fields.size() != m_columns.size())
            return Refusal{
                {},
                format(VORD_ResourceString("IDS_TAVO_LAYCSV_FIELDS", L"필드가 %d개인데 제목은 %d개입니다."),
                       static_cast<int>(line.fields.size()), static_cast<int>(m_columns.size()))};
        if (auto refusal = findLayer(line, out, update)) return refusal;
        for (std::size_t i = 0; i < m_columns.size(); ++i)
            if (m_columns[i] && m_columns[i]->field)
                if (auto refusal = takeField(line.fields[i], *m_columns[i], out, update)) return refusal;
        if (update.kind == kLayerNew) {
            out.kind = Kind::made;
            update.fields = kAllLayerFields;
        } else if (!out.changes.empty()) {
            out.kind = Kind::changed;
        }
        return std::nullopt;
    }

    std::optional<Refusal> findLayer(const CsvLine& line, LayerCsvLine& out, LayerUpdate& update) {
        const auto place = std::ranges::find_if(m_columns, [](const LayerCsvColumn* column) {
            return column && column->column == LayerColumn::name;
        });
        const std::wstring& field = line.fields[static_cast<std::size_t>(place - m_columns.begin())];
        OdDbObjectId id = m_table ? m_table->getAt(field) : OdDbObjectId();
        out.name = id.isNull() ? std::wstring(withoutBlanks(field)) : field;
        if (id.isNull() && m_table && !out.name.empty()) id = m_table->getAt(out.name);
        const auto refused = [](std::wstring reason) {
            return Refusal{layerColumnText(LayerColumn::name), std::move(reason)};
        };
        if (id.isNull())
            if (std::wstring reason = newNameFault(out.name); !reason.empty())
                return refused(std::move(reason));
        const auto [known, first] = m_lines.emplace(tv::text::foldComposed(out.name), line.number);
        if (!first)
            return refused(
                format(VORD_ResourceString("IDS_TAVO_LAYCSV_DUPLICATE", L"같은 도면층이 %d행에 이미 있습니다."),
                       known->second));
        update.kind = id.isNull() ? kLayerNew : kLayerProperty;
        update.row = id.isNull() ? T_LAYER_DATA() : readLayer(id, m_current);
        if (id.isNull()) update.row.name = out.name;
        return std::nullopt;
    }

    // Of a name the table lacks.
    std::wstring newNameFault(const std::wstring& name) {
        LayerTextFault fault = name.empty() ? LayerTextFault::empty : checkLayerDescription(name);
        if (fault == LayerTextFault::none && looksTaken(name)) fault = LayerTextFault::taken;
        if (fault != LayerTextFault::none) return firstLine(nameBox(fault).text);
        const auto status = tv::dwg::checkTableName(m_database.store().format(), name);
        return status == Tavo::eOk ? std::wstring() : notWrittenBox(m_database, status).text;
    }

    // Whether a layer has a name that looks the same in another Unicode form.
    bool looksTaken(const std::wstring& name) {
        if (!m_table || std::ranges::all_of(name, [](wchar_t c) { return c < 0x80; })) return false;
        if (!m_namesKnown)
            m_table->forEach(
                [&](OdDbObjectId id) { m_names.insert(tv::text::foldComposed(m_table->nameOf(id).view())); });
        m_namesKnown = true;
        return m_names.contains(tv::text::foldComposed(name));
    }

    std::optional<Refusal> takeField(const std::wstring& field, const LayerCsvColumn& column, LayerCsvLine& out,
                                     LayerUpdate& update) const {
        const bool isText = column.column == LayerColumn::description;
        const std::wstring_view text = isText ? std::wstring_view(field) : withoutBlanks(field);
        const std::wstring before = layerCsvField(update.row, column.column);
        if (text == before || (text.empty() && !isText)) return std::nullopt;
        std::wstring reason = readLayerCsvField(m_database, text, column.column, update.row);
        if (!reason.empty()) return Refusal{layerColumnText(column.column), std::move(reason)};
        const std::wstring after = layerCsvField(update.row, column.column);
        if (after == before) return std::nullopt;
        update.fields |= column.field;
        out.changes.push_back({column.column, update.kind == kLayerNew ? std::wstring() : before, after});
        return std::nullopt;
    }

    const OdDbDatabase& m_database;
    std::shared_ptr<OdDbLayerTable> m_table;
    OdDbObjectId m_current;
    LayerCsvPlan& m_plan;
    std::vector<const LayerCsvColumn*> m_columns;  // null: not read
    std::unordered_map<std::wstring, int> m_lines; // which line named a layer
    std::unordered_set<std::wstring> m_names;      // of the drawing's layers
    bool m_namesKnown = false;
};

} // namespace

std::string exportLayers(const OdDbDatabase& database) {
    std::vector<std::wstring> fields;
    for (const LayerCsvColumn& column : kLayerCsvColumns)
        fields.emplace_back(column.heading);
    std::string out = "\xEF\xBB\xBF" + tv::text::toUtf8(csvLine(fields));
    const OdDbObjectId current = currentLayer(database);
    if (const auto table = database.layers())
        table->forEach([&](OdDbObjectId id) {
            const T_LAYER_DATA layer = readLayer(id, current);
            for (std::size_t i = 0; i < fields.size(); ++i)
                fields[i] = layerCsvField(layer, kLayerCsvColumns[i].column);
            out += tv::text::toUtf8(csvLine(fields));
        });
    return out;
}

tv::Problem exportLayersTo(const OdDbDatabase& database, const std::filesystem::path& file) {
    return tv::writeFileAtomically(file, exportLayers(database));
}

LayerCsvPlan planLayerImport(const OdDbDatabase& database, std::string_view bytes) {
    LayerCsvPlan plan;
    Planner(database, plan).read(bytes);
    return plan;
}

LayerCsvPlan planLayerImportFile(const OdDbDatabase& database, const std::filesystem::path& file) {
    std::string bytes;
    if (tv::Problem problem = tv::readFile(file, bytes)) {
        LayerCsvPlan plan;
        plan.problem = std::move(problem);
        return plan;
    }
    return planLayerImport(database, bytes);
}

tv::Problem applyLayerImport(OdDbDatabase& database, LayerCsvPlan& plan, bool skipRefused) {
    if (plan.problem) return plan.problem;
    if (plan.refused > 0 && !skipRefused)
        return {Tavo::eInvalidInput,
                format(VORD_ResourceString("IDS_TAVO_LAYCSV_HAS_REFUSED",
                                           L"가져올 수 없는 줄이 %d개 있어 아무것도 바꾸지 않았습니다."),
                       plan.refused),
                {},
                0};
    const Tavo::ErrorStatus status = writeLayers(database, plan.updates);
    if (status == Tavo::eOk) return {};
    return {status, notWrittenBox(database, status).text, {}, 0};
}

} // namespace kx::layers
