#include "platform/drawing/OdResBuf.h"

OdResBuf::OdResBuf(const OdResBuf& other)
    : m_type(other.m_type), m_value(other.m_value), m_objectId(other.m_objectId) {
    OdResBuf* end = this;
    for (const OdResBuf* from = other.m_next.get(); from; from = from->m_next.get()) {
        auto copy = std::make_shared<OdResBuf>(from->m_type, from->m_value);
        copy->m_objectId = from->m_objectId;
        end->m_next = copy;
        end = copy.get();
    }
}

OdResBuf& OdResBuf::operator=(const OdResBuf& other) {
    if (this != &other) *this = OdResBuf(other);
    return *this;
}

// One after the other: a chain of a hundred thousand buffers must not end in as many nested calls.
OdResBuf::~OdResBuf() {
    OdResBufPtr chain = std::move(m_next);
    while (chain && chain.use_count() == 1) {
        OdResBufPtr following = std::move(chain->m_next);
        chain = std::move(following);
    }
}

OdResBufPtr OdResBuf::newObjectId(OdDbObjectId id) {
    OdResBufPtr out = newRb(kRtEntName);
    out->setObjectId(id);
    return out;
}

std::int32_t OdResBuf::getInt32() const {
    const auto* v = std::get_if<std::int64_t>(&m_value);
    return v ? static_cast<std::int32_t>(*v) : 0;
}

double OdResBuf::getDouble() const {
    if (const auto* v = std::get_if<double>(&m_value)) return *v;
    if (const auto* v = std::get_if<std::int64_t>(&m_value)) return static_cast<double>(*v);
    return 0;
}

OdString OdResBuf::getString() const {
    if (const auto* v = std::get_if<OdString>(&m_value)) return *v;
    if (const auto* v = std::get_if<OdDbHandle>(&m_value)) return OdString(v->text());
    return {};
}

OdGePoint3d OdResBuf::getPoint3d() const {
    if (const auto* v = std::get_if<OdGePoint3d>(&m_value)) return *v;
    if (const auto* v = std::get_if<OdGePoint2d>(&m_value)) return {v->x, v->y, 0};
    return {};
}

OdGePoint2d OdResBuf::getPoint2d() const {
    const OdGePoint3d point = getPoint3d();
    return {point.x, point.y};
}

OdDbHandle OdResBuf::getHandle() const {
    const auto* v = std::get_if<OdDbHandle>(&m_value);
    return v ? *v : OdDbHandle();
}

tv::dwg::Binary OdResBuf::getBinary() const {
    const auto* v = std::get_if<tv::dwg::Binary>(&m_value);
    return v ? *v : tv::dwg::Binary();
}

OdResBuf& OdResBuf::last() {
    OdResBuf* end = this;
    while (end->m_next)
        end = end->m_next.get();
    return *end;
}
