#include "platform/drawing/OdDbViewport.h"

#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbLayerTable.h"
#include "platform/drawing/dxf/RecordStore.h"
#include "platform/drawing/dxf/Subclass.h"

#include <algorithm>
#include <numbers>
#include <unordered_set>

using namespace tv::dwg;
using OdDb::DxfVersion;

namespace {

constexpr const char* kPart = "AcDbViewport";
constexpr double kDegree = std::numbers::pi / 180;

// Where the older form of a viewport has its values: their place between the braces of the data of "ACAD".
enum OldPlace : std::size_t {
    kOldTarget = 1,
    kOldDirection = 2,
    kOldTwist = 3,
    kOldHeight = 4,
    kOldCenterX = 5,
    kOldCenterY = 6,
    kOldLens = 7,
    kOldMode = 10,
    kOldHidden = 25,
    kOldFrozen = 26, // an opening brace, layer names and a closing brace
};

// The data of "ACAD" named MVIEW. Reads nothing when the viewport has the newer form.
class OldForm {
  public:
    explicit OldForm(const OdDbViewport& viewport) {
        if (findIn(viewport, kPart, 17) || findIn(viewport, kPart, 45)) return;
        m_chain = viewport.xData(L"ACAD");
        OdResBuf* buffer = m_chain.get();
        while (buffer && buffer->getString() != L"MVIEW")
            buffer = buffer->next().get();
        if (!buffer) return;
        for (buffer = buffer->next().get(); buffer; buffer = buffer->next().get())
            m_values.push_back(buffer);
        if (!m_values.empty()) m_values.erase(m_values.begin()); // the opening brace
    }

    explicit operator bool() const { return m_values.size() > kOldFrozen; }
    OdResBuf* at(std::size_t place) const { return place < m_values.size() ? m_values[place] : nullptr; }
    const OdResBuf* chain() const { return m_chain.get(); }

    std::vector<OdString> frozen() const {
        std::vector<OdString> out;
        for (std::size_t i = kOldFrozen + 1; i < m_values.size(); ++i) {
            if (m_values[i]->restype() != OdResBuf::kDxfXdLayerName) break;
            out.push_back(m_values[i]->getString());
        }
        return out;
    }
    void setFrozen(const std::vector<OdString>& names) {
        const std::size_t end = kOldFrozen + 1 + frozen().size();
        const OdResBufPtr rest = end < m_values.size() ? m_values[end - 1]->next() : nullptr;
        OdResBuf* last = m_values[kOldFrozen];
        last->setNext(nullptr);
        for (const OdString& name : names) {
            last->setNext(OdResBuf::newRb(OdResBuf::kDxfXdLayerName, name));
            last = last->next().get();
        }
        last->setNext(rest);
    }

  private:
    OdResBufPtr m_chain;
    std::vector<OdResBuf*> m_values;
};

struct OldValue {
    std::size_t place;
    Value value;
};

// Writes to whichever form the viewport has.
Tavo::ErrorStatus setView(OdDbViewport& viewport, const std::vector<TagValue>& values,
                          const std::vector<OldValue>& oldValues) {
    if (const auto status = checkWritable(viewport); status != Tavo::eOk) return status;
    if (const OldForm old(viewport); old) {
        for (const OldValue& wanted : oldValues)
            old.at(wanted.place)->setValue(wanted.value);
        return viewport.setXData(old.chain());
    }
    if (const auto status = viewport.database()->require(OdDb::Feature::kSheetSettings); status != Tavo::eOk)
        return status;
    return setIn(viewport, kPart, values, {69, 68, 41});
}

bool isLayer(OdDbDatabase* database, OdDbObjectId id) {
    return id.database() == database && id.open<OdDbLayerTableRecord>() != nullptr;
}

} // namespace

bool tv::dwg::isViewport(OdDbObjectId object) {
    if (object.isErased()) return false;
    const RecordStore& store = object.database()->store();
    const Section section = store.record(object.record()).section;
    return (section == Section::kEntities || section == Section::kBlocks) &&
           store.typeName(object.record()) == "VIEWPORT";
}

Tavo::ErrorStatus OdDbViewport::setCenterPoint(const OdGePoint3d& center) {
    return setIn(*this, kPart, {{10, center.x}, {20, center.y}, {30, center.z}});
}

Tavo::ErrorStatus OdDbViewport::setWidth(double width) {
    return width > 0 ? setIn(*this, kPart, {{40, width}}, {30, 20}) : Tavo::eOutOfRange;
}

Tavo::ErrorStatus OdDbViewport::setHeight(double height) {
    return height > 0 ? setIn(*this, kPart, {{41, height}}, {40, 30, 20}) : Tavo::eOutOfRange;
}

OdGePoint2d OdDbViewport::viewCenter() const {
    if (const OldForm old(*this); old)
        return {old.at(kOldCenterX)->getDouble(), old.at(kOldCenterY)->getDouble()};
    return {realAt(12), realAt(22)};
}

Tavo::ErrorStatus OdDbViewport::setViewCenter(OdGePoint2d center) {
    return setView(*this, {{12, center.x}, {22, center.y}}, {{kOldCenterX, center.x}, {kOldCenterY, center.y}});
}

double OdDbViewport::viewHeight() const {
    if (const OldForm old(*this); old) return old.at(kOldHeight)->getDouble();
    return realAt(45);
}

Tavo::ErrorStatus OdDbViewport::setViewHeight(double height) {
    return height > 0 ? setView(*this, {{45, height}}, {{kOldHeight, height}}) : Tavo::eOutOfRange;
}

OdGeVector3d OdDbViewport::viewDirection() const {
    OdGePoint3d out{realAt(16), realAt(26), realAt(36, 1)};
    if (const OldForm old(*this); old) out = old.at(kOldDirection)->getPoint3d();
    return {out.x, out.y, out.z};
}

Tavo::ErrorStatus OdDbViewport::setViewDirection(const OdGeVector3d& direction) {
    if (!(direction.length() > 0)) return Tavo::eInvalidInput;
    return setView(*this, {{16, direction.x}, {26, direction.y}, {36, direction.z}},
                   {{kOldDirection, OdGePoint3d{direction.x, direction.y, direction.z}}});
}

OdGePoint3d OdDbViewport::viewTarget() const {
    if (const OldForm old(*this); old) return old.at(kOldTarget)->getPoint3d();
    return {realAt(17), realAt(27), realAt(37)};
}

Tavo::ErrorStatus OdDbViewport::setViewTarget(const OdGePoint3d& target) {
    return setView(*this, {{17, target.x}, {27, target.y}, {37, target.z}}, {{kOldTarget, target}});
}

double OdDbViewport::twistAngle() const {
    if (const OldForm old(*this); old) return old.at(kOldTwist)->getDouble();
    return realAt(51) * kDegree;
}

Tavo::ErrorStatus OdDbViewport::setTwistAngle(double radians) {
    if (radians == twistAngle()) return checkWrite();
    return setView(*this, {{51, radians / kDegree}}, {{kOldTwist, radians}});
}

double OdDbViewport::lensLength() const {
    if (const OldForm old(*this); old) return old.at(kOldLens)->getDouble();
    return realAt(42, 50);
}

Tavo::ErrorStatus OdDbViewport::setLensLength(double length) {
    return length > 0 ? setView(*this, {{42, length}}, {{kOldLens, length}}) : Tavo::eOutOfRange;
}

double OdDbViewport::customScale() const {
    const double view = viewHeight();
    return view > 0 && height() > 0 ? height() / view : 0;
}

Tavo::ErrorStatus OdDbViewport::setCustomScale(double scale) {
    return scale > 0 && height() > 0 ? setViewHeight(height() / scale) : Tavo::eOutOfRange;
}

int OdDbViewport::flags() const {
    // The older form has the first bits only, and whether lines are hidden apart from them.
    if (const OldForm old(*this); old) return old.at(kOldMode)->getInt16() & 0x1F;
    return integerAt(90);
}

bool OdDbViewport::isOn() const { return integerAt(68, 1) != 0 && (flags() & kOff) == 0; }

Tavo::ErrorStatus OdDbViewport::setOn(bool on) {
    if (const auto status = checkWrite(); status != Tavo::eOk) return status;
    if (on == isOn()) return Tavo::eOk;
    const std::int64_t status = on ? std::max(number(), 1) : 0;
    if (!findIn(*this, kPart, 90)) return setIn(*this, kPart, {{68, status}}, {41});
    return setIn(*this, kPart, {{68, status}, {90, std::int64_t{on ? flags() & ~kOff : flags() | kOff}}}, {41});
}

Tavo::ErrorStatus OdDbViewport::setLocked(bool locked) {
    if (const auto status = checkWrite(); status != Tavo::eOk) return status;
    if (locked == isLocked()) return Tavo::eOk;
    if (OldForm(*this)) return Tavo::eNotHandled;
    if (const auto status = database()->require(OdDb::Feature::kSheetSettings); status != Tavo::eOk)
        return status;
    return setIn(*this, kPart, {{90, std::int64_t{locked ? flags() | kLocked : flags() & ~kLocked}}},
                 {341, 331, 72, 69});
}

std::vector<OdDbObjectId> OdDbViewport::frozenLayers() const {
    std::vector<OdDbObjectId> out;
    if (const OldForm old(*this); old) {
        if (const auto layers = database()->layers())
            for (const OdString& name : old.frozen())
                if (const OdDbObjectId id = layers->getAt(name.view()); !id.isNull()) out.push_back(id);
        return out;
    }
    const RecordEditor record(format(), database()->store().text(objectId().record()));
    for (const std::size_t i : tagsIn(record, kPart)) {
        if (record.code(i) != 331 && record.code(i) != 341) continue;
        const auto handle = OdDbHandle::fromAscii(record.raw(i));
        const OdDbObjectId id = handle ? database()->getOdDbObjectId(*handle) : OdDbObjectId();
        if (!id.isNull()) out.push_back(id);
    }
    return out;
}

bool OdDbViewport::isLayerFrozenInViewport(OdDbObjectId layer) const {
    const std::vector<OdDbObjectId> frozen = frozenLayers();
    return std::find(frozen.begin(), frozen.end(), layer) != frozen.end();
}

Tavo::ErrorStatus OdDbViewport::freezeLayersInViewport(std::span<const OdDbObjectId> layers) {
    if (const auto status = checkWrite(); status != Tavo::eOk) return status;
    std::vector<OdDbObjectId> frozen = frozenLayers();
    std::unordered_set<OdDbObjectId> known(frozen.begin(), frozen.end());
    const std::size_t before = frozen.size();
    for (const OdDbObjectId id : layers) {
        if (!isLayer(database(), id)) return Tavo::eInvalidInput;
        if (known.insert(id).second) frozen.push_back(id);
    }
    return frozen.size() == before ? Tavo::eOk : setFrozen(frozen);
}

Tavo::ErrorStatus OdDbViewport::thawLayersInViewport(std::span<const OdDbObjectId> layers) {
    if (const auto status = checkWrite(); status != Tavo::eOk) return status;
    std::vector<OdDbObjectId> frozen = frozenLayers();
    const std::unordered_set<OdDbObjectId> gone(layers.begin(), layers.end());
    return std::erase_if(frozen, [&](OdDbObjectId id) { return gone.contains(id); }) == 0 ? Tavo::eOk
                                                                                          : setFrozen(frozen);
}

Tavo::ErrorStatus OdDbViewport::thawAllLayersInViewport() {
    if (const auto status = checkWrite(); status != Tavo::eOk) return status;
    return setFrozen({});
}

// Tags of layers that stay are left as they stand, those of missing ones go.
Tavo::ErrorStatus OdDbViewport::setFrozen(const std::vector<OdDbObjectId>& layers) {
    if (OldForm old(*this); old) {
        std::vector<OdString> names;
        const auto table = database()->layers();
        for (const OdDbObjectId id : layers)
            names.push_back(table->nameOf(id));
        old.setFrozen(names);
        return setXData(old.chain());
    }
    if (const auto status = database()->require(OdDb::Feature::kSheetSettings); status != Tavo::eOk)
        return status;
    RecordStore& store = database()->store();
    RecordEditor record(format(), store.text(objectId().record()));
    std::unordered_set<std::uint64_t> wanted;
    for (const OdDbObjectId id : layers) {
        if (id.handle().isNull()) return Tavo::eInvalidInput;
        wanted.insert(id.handle().value());
    }
    const std::vector<std::size_t> part = tagsIn(record, kPart);
    for (auto i = part.rbegin(); i != part.rend(); ++i) {
        if (record.code(*i) != 331 && record.code(*i) != 341) continue;
        const auto handle = OdDbHandle::fromAscii(record.raw(*i));
        if (!handle || wanted.erase(handle->value()) == 0) record.erase(*i);
    }
    std::size_t place = placeIn(record, tagsIn(record, kPart), {341, 331, 72});
    for (const OdDbObjectId id : layers)
        if (wanted.erase(id.handle().value()) != 0) record.insert(place++, 331, id.handle());
    if (record.edited()) store.replace(objectId().record(), record.bytes());
    return Tavo::eOk;
}
