#include "tests/drawing/RandomEdits.h"

#include "platform/drawing/LayerOverrides.h"
#include "platform/drawing/NameReferences.h"
#include "platform/drawing/OdDbBlockTable.h"
#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbDictionary.h"
#include "platform/drawing/OdDbDimStyleTable.h"
#include "platform/drawing/OdDbEntity.h"
#include "platform/drawing/OdDbGroup.h"
#include "platform/drawing/OdDbLayerTable.h"
#include "platform/drawing/OdDbLayout.h"
#include "platform/drawing/OdDbLinetypeTable.h"
#include "platform/drawing/OdDbTextStyleTable.h"
#include "platform/drawing/OdDbViewport.h"
#include "platform/drawing/OdDbXrecord.h"
#include "platform/drawing/UsageData.h"
#include "platform/drawing/entities/EntityProperties.h"
#include "platform/drawing/entities/EntityTexts.h"
#include "platform/drawing/entities/Hyperlink.h"
#include "platform/drawing/entities/NewEntity.h"

#include <array>
#include <iterator>
#include <string>
#include <vector>

using namespace tv::dwg;

namespace drawings {
namespace {

constexpr std::array<const wchar_t*, 9> kTables = {L"LAYER", L"LTYPE", L"STYLE", L"DIMSTYLE", L"BLOCK_RECORD",
                                                   L"APPID", L"VIEW",  L"VPORT", L"UCS"};

class Editor {
  public:
    Editor(OdDbDatabase& database, const Random& random) : m_db(database), m_random(random) {}

    void one() {
        using Edit = void (Editor::*)();
        static constexpr Edit kEdits[] = {
            &Editor::header,   &Editor::addRecord, &Editor::renameRecord, &Editor::eraseRecord, &Editor::layer,
            &Editor::linetype, &Editor::textStyle, &Editor::dimStyle,     &Editor::block,       &Editor::entity,
            &Editor::entity,   &Editor::texts,     &Editor::xdata,        &Editor::named,       &Editor::group,
            &Editor::layout,   &Editor::overrides, &Editor::retarget,     &Editor::property,    &Editor::append,
        };
        (this->*kEdits[m_random(std::size(kEdits))])();
    }

  private:
    std::wstring name() { return L"N" + std::to_wstring(m_random(12)); }
    bool maybe() { return m_random(2) == 0; }
    OdCmColor color() {
        return maybe() ? OdCmColor::byIndex(1 + static_cast<int>(m_random(255))) : OdCmColor::byRgb(1, 2, 3);
    }
    OdDb::LineWeight weight() { return OdDb::kLineWeights[m_random(OdDb::kLineWeights.size())]; }

    OdDbSymbolTablePtr table() {
        return m_db.getTableId(kTables[m_random(kTables.size())], m_random(8) == 0)
            .open<OdDbSymbolTable>(OdDb::kForWrite);
    }
    // A few steps into the records or entities; null when there are none.
    template <class T>
    std::shared_ptr<T> someRecord(OdDbObjectId tableId) {
        const auto table = tableId.open<OdDbSymbolTable>();
        if (!table) return nullptr;
        OdDbObjectId id = table->first();
        for (unsigned steps = m_random(6); steps > 0 && !id.isNull(); --steps)
            if (const OdDbObjectId next = table->next(id); !next.isNull()) id = next;
        return id.open<T>(OdDb::kForWrite);
    }
    OdDbObjectId someEntity() {
        OdDbObjectId found;
        unsigned steps = m_random(24);
        for (const OdDbObjectId id : maybe() ? m_db.modelSpace() : m_db.paperSpace()) {
            found = id;
            if (steps-- == 0) break;
        }
        return found;
    }

    void header() {
        const auto vars = headerVars();
        const HeaderVarInfo& var = vars[m_random(static_cast<unsigned>(vars.size()))];
        const std::string_view narrow = var.name;
        const std::wstring wide(narrow.begin(), narrow.end());
        if (wide == L"ACADVER" || wide == L"HANDSEED") return;
        m_db.setHeaderVar(wide, var.coordinates ? HeaderValue::point(OdGePoint3d{1, 2, 3})
                                : maybe()       ? HeaderValue::integer(m_random(9))
                                                : HeaderValue::text(name()));
    }
    void addRecord() {
        if (const auto found = table()) found->add(name());
    }
    void renameRecord() {
        if (const auto record =
                someRecord<OdDbSymbolTableRecord>(m_db.getTableId(kTables[m_random(kTables.size())])))
            record->setName(name());
    }
    void eraseRecord() {
        if (const auto found = table())
            if (const auto record = found->getAt(name()).openObject(OdDb::kForWrite)) record->erase();
    }
    void layer() {
        const auto record = someRecord<OdDbLayerTableRecord>(m_db.getLayerTableId());
        if (!record) return;
        const OdDbUndoScope step(m_db, L"_LAYER");
        record->setColor(color());
        record->setIsOff(maybe());
        record->setIsFrozen(maybe());
        record->setLineWeight(weight());
        record->setTransparency(OdCmTransparency::byPercent(static_cast<int>(m_random(91))));
        record->setDescription(name());
        record->setPlotStyleName(L"Normal");
        record->setIsPlottable(maybe());
    }
    void linetype() {
        const auto record = someRecord<OdDbLinetypeTableRecord>(m_db.getLinetypeTableId());
        if (!record) return;
        std::vector<OdDbLinetypeTableRecord::Element> pattern(m_random(5));
        for (auto& element : pattern) {
            element.length = m_random(3) - 1.0;
            if (m_random(3) == 0) element.kind = OdDbLinetypeTableRecord::Element::kText;
            element.text = OdString(L"GAS");
        }
        record->setPattern(pattern);
        record->setComments(name());
    }
    void textStyle() {
        const auto record = someRecord<OdDbTextStyleTableRecord>(m_db.getTextStyleTableId());
        if (!record) return;
        record->setFont({OdString(name()), maybe(), maybe(), 34});
        record->setObliquingAngle(m_random(3) / 10.0);
        record->setIsUpsideDown(maybe());
        record->setAnnotative(maybe());
    }
    void dimStyle() {
        const auto record = someRecord<OdDbDimStyleTableRecord>(m_db.getDimStyleTableId());
        if (!record) return;
        const auto all = OdDbDimStyleTableRecord::variables();
        const auto& variable = all[m_random(static_cast<unsigned>(all.size()))];
        if (maybe())
            record->setVariable(variable, maybe() ? Value(std::int64_t{1}) : Value(0.5));
        else
            record->removeVariable(
                std::wstring(variable.name, variable.name + std::string_view(variable.name).size()));
        record->setAnnotative(maybe());
    }
    void block() {
        const auto record = someRecord<OdDbBlockTableRecord>(m_db.getBlockTableId());
        if (!record) return;
        record->setOrigin({1, 2, 3});
        record->setComments(name());
        if (maybe()) record->setXrefKind(OdDbBlockTableRecord::XrefKind::kOverlaid);
        record->setPathName(name());
        record->setExplodable(maybe());
        record->setBlockInsertUnits(static_cast<int>(m_random(5)));
        record->setAnnotative(maybe());
    }
    void entity() {
        const auto entity = someEntity().open<OdDbEntity>(OdDb::kForWrite);
        if (!entity) return;
        switch (m_random(8)) {
        case 0:
            entity->erase();
            break;
        case 1:
            entity->setLayer(name());
            break;
        case 2:
            entity->setVisible(maybe());
            break;
        case 3:
            entity->setLinetypeScale(m_random(9) / 4.0);
            break;
        case 4:
            entity->setTransparency(OdCmTransparency::byPercent(static_cast<int>(m_random(91))));
            break;
        case 5:
            entity->setPlotStyleName(OdDb::kPlotStyleNameByBlock);
            break;
        case 6:
            setHyperlink(entity->objectId(), {OdString(name()), OdString(name()), OdString()});
            break;
        default:
            entity->setColor(maybe() ? color() : OdCmColor());
            entity->setLineWeight(weight());
        }
    }
    void texts() {
        for (const TextField& field : textFieldsOf(someEntity()))
            setTextField(field, name() + L" \uBB38\uC790 \u00E9 \\ {x}");
    }
    void property() {
        const OdDbObjectId id = someEntity();
        const auto all = propertiesOf(entityKindOf(id));
        const EntityProperty& property = *all[m_random(static_cast<unsigned>(all.size()))];
        if (maybe())
            setPropertyValue(id, property,
                             maybe() ? Value(m_random(9) / 4.0) : Value(std::int64_t{m_random(9)}));
        else
            setPropertyValue(id, property, OdString(name()));
    }
    void append() {
        const auto blocks = m_db.getBlockTableId().open<OdDbBlockTable>();
        const EntityHome home = maybe()   ? EntityHome::modelSpace(m_db)
                                : maybe() ? EntityHome::paperSpace(m_db)
                                          : EntityHome::block(blocks ? blocks->first() : OdDbObjectId());
        if (maybe()) {
            copyEntity(someEntity(), home);
        } else if (maybe()) {
            appendEntity(home, NewDimension{maybe(), {}, {3, 4, 0}, {0, 9, 0}, 0, OdString(name()), {}});
        } else {
            PolylineGeometry line;
            line.vertices.resize(m_random(3));
            line.is3d = maybe();
            appendEntity(home, line);
        }
    }
    void xdata() {
        const auto object = someEntity().openObject(OdDb::kForWrite);
        if (!object) return;
        m_db.newRegApp(L"KXTEST");
        const OdResBufPtr chain = OdResBuf::newRb(OdResBuf::kDxfRegAppName, OdString(L"KXTEST"));
        if (maybe()) {
            chain->append(OdResBuf::newRb(OdResBuf::kDxfXdAsciiString, OdString(name())));
            chain->append(OdResBuf::newRb(OdResBuf::kDxfXdXCoord, OdGePoint3d{1, 2, 3}));
        }
        object->setXData(chain.get());
    }
    void named() {
        const OdDbObjectId styles = m_db.getPlotStyleNameDictionaryId(maybe());
        const OdDbObjectId dictionary = m_db.getNamedDictionaryId(L"KX_" + name(), maybe());
        const OdResBufPtr chain = OdResBuf::newRb(90, std::int64_t{m_random(100)});
        chain->append(OdResBuf::newRb(1, OdString(name())));
        if (!dictionary.isNull()) writeXrecord(dictionary, name(), chain.get());
        if (const auto open = styles.open<OdDbDictionary>(OdDb::kForWrite); open && maybe())
            open->remove(name());
    }
    void group() {
        const std::array members = {someEntity()};
        const OdDbObjectId id = addGroup(m_db, name());
        if (const auto made = id.open<OdDbGroup>(OdDb::kForWrite)) {
            made->append(members);
            if (maybe()) made->erase();
        }
    }
    void layout() {
        const auto all = m_db.layoutIds();
        if (all.empty()) return;
        const auto record = all[m_random(static_cast<unsigned>(all.size()))].open<OdDbLayout>(OdDb::kForWrite);
        if (!record) return;
        record->setLayoutName(name());
        record->setCurrentStyleSheet(name());
        record->setLimits({0, 0}, {1, 1});
        m_db.setCurrentLayout(record->objectId());
    }
    void overrides() {
        const auto layer = someRecord<OdDbLayerTableRecord>(m_db.getLayerTableId());
        if (!layer) return;
        for (const OdDbObjectId id : m_db.paperSpace())
            if (const auto viewport = id.open<OdDbViewport>(OdDb::kForWrite)) {
                overrideColor(layer->objectId(), id, maybe() ? std::optional(color()) : std::nullopt);
                overrideLineWeight(layer->objectId(), id, weight());
                if (maybe()) removeOverrides(layer->objectId(), id);
                return;
            }
    }
    void retarget() {
        const auto a = someRecord<OdDbLayerTableRecord>(m_db.getLayerTableId());
        const auto b = someRecord<OdDbLayerTableRecord>(m_db.getLayerTableId());
        if (a && b) retargetReferences(a->objectId(), b->objectId());
        m_db.usageData().generate(m_db, NamedKind::kLayer);
    }

    OdDbDatabase& m_db;
    const Random& m_random;
};

} // namespace

void editAnything(OdDbDatabase& database, const Random& random) { Editor(database, random).one(); }

} // namespace drawings
