#include "platform/drawing/entities/EntityTexts.h"

#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/dxf/RecordStore.h"
#include "platform/drawing/entities/Hyperlink.h"
#include "platform/drawing/entities/OdDbBlockReference.h"
#include "platform/drawing/entities/OdDbDimension.h"
#include "platform/drawing/entities/OdDbLeader.h"
#include "platform/drawing/entities/OdDbMText.h"
#include "platform/drawing/entities/OdDbTable.h"
#include "platform/drawing/entities/OdDbText.h"
#include "platform/drawing/entities/TagAccess.h"

namespace tv::dwg {
namespace {

using enum TextFieldKind;

class Collector {
  public:
    void entity(OdDbObjectId id) {
        m_entity = id;
        const OdDbObjectPtr object = id.openObject();
        if (const auto* definition = dynamic_cast<const OdDbAttributeDefinition*>(object.get())) {
            add(kAttributeTag, definition->tag());
            add(kAttributePrompt, definition->prompt());
            add(kAttributeValue, definition->textString());
        } else if (const auto* attribute = dynamic_cast<const OdDbAttribute*>(object.get())) {
            add(kAttributeTag, attribute->tag());
            add(kAttributeValue, attribute->textString(), attribute->isMultiline());
        } else if (const auto* text = dynamic_cast<const OdDbText*>(object.get())) {
            add(kText, text->textString());
        } else if (const auto* mtext = dynamic_cast<const OdDbMText*>(object.get())) {
            add(kMText, mtext->contents(), true);
        } else if (const auto* dimension = dynamic_cast<const OdDbDimension*>(object.get())) {
            add(kDimensionText, dimension->dimensionText(), true);
        } else if (const auto* leader = dynamic_cast<const OdDbMLeader*>(object.get())) {
            add(kLeaderText, leader->contents(), true);
        } else if (const auto* table = dynamic_cast<const OdDbTable*>(object.get())) {
            cells(*table);
        } else if (object && object->isA() == L"TOLERANCE") {
            add(kTolerance, object->textAt(1), true);
        }
        if (const auto link = hyperlinkOf(id)) {
            add(kHyperlink, link->url);
            add(kHyperlinkDescription, link->description);
        }
        if (const auto* insert = dynamic_cast<const OdDbBlockReference*>(object.get()))
            for (const OdDbObjectId attribute : insert->attributes())
                entity(attribute);
    }

    std::vector<TextField> fields;

  private:
    void add(TextFieldKind kind, OdString value, bool formatted = false) {
        if (!value.isEmpty()) fields.push_back({kind, m_entity, 0, 0, formatted, std::move(value)});
    }
    void cells(const OdDbTable& table) {
        const int columns = table.numColumns();
        int number = 0;
        for (const OdDbTable::Cell& cell : table.cells()) {
            if (columns > 0 && !cell.text.isEmpty() && !cell.isBlock)
                fields.push_back({kTableCell, m_entity, number / columns, number % columns, true, cell.text});
            ++number;
        }
    }

    OdDbObjectId m_entity;
};

template <class T, class Set>
Tavo::ErrorStatus on(OdDbObjectId id, Set&& set) {
    if (id.isErased()) return Tavo::eWasErased;
    const auto object = id.open<T>(OdDb::kForWrite);
    return object ? set(*object) : Tavo::eWrongType;
}

} // namespace

std::vector<TextField> textFieldsOf(OdDbObjectId entity) {
    Collector collector;
    if (!entity.isErased()) collector.entity(entity);
    return std::move(collector.fields);
}

Tavo::ErrorStatus setTextField(const TextField& field, std::wstring_view value) {
    switch (field.kind) {
    case kText:
    case kAttributeValue:
        return on<OdDbText>(field.entity, [&](OdDbText& text) { return text.setTextString(value); });
    case kMText:
        return on<OdDbMText>(field.entity, [&](OdDbMText& text) { return text.setContents(value); });
    case kAttributeTag:
        return on<OdDbAttributeText>(field.entity, [&](OdDbAttributeText& text) { return text.setTag(value); });
    case kAttributePrompt:
        return on<OdDbAttributeDefinition>(
            field.entity, [&](OdDbAttributeDefinition& definition) { return definition.setPrompt(value); });
    case kDimensionText:
        return on<OdDbDimension>(field.entity,
                                 [&](OdDbDimension& dimension) { return dimension.setDimensionText(value); });
    case kLeaderText:
        return on<OdDbMLeader>(field.entity, [&](OdDbMLeader& leader) { return leader.setContents(value); });
    case kTableCell:
        return on<OdDbTable>(field.entity, [&](OdDbTable& table) {
            return table.setTextString(field.row, field.column, value);
        });
    case kTolerance:
        return on<OdDbEntity>(field.entity, [&](OdDbEntity& entity) {
            if (entity.isA() != L"TOLERANCE") return Tavo::eWrongType;
            return writeTag(entity, {"AcDbFcf", 1}, OdString(value));
        });
    case kHyperlink:
    case kHyperlinkDescription: {
        auto link = hyperlinkOf(field.entity);
        if (!link) return Tavo::eKeyNotFound;
        (field.kind == kHyperlink ? link->url : link->description) = OdString(value);
        return setHyperlink(field.entity, *link);
    }
    }
    return Tavo::eInvalidInput;
}

} // namespace tv::dwg
