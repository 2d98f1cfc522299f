#pragma once

#include "platform/Export.h"
#include "platform/drawing/OdDbObjectId.h"
#include "platform/drawing/Value.h"

#include <memory>
#include <utility>
#include <vector>

class OdResBuf;
using OdResBufPtr = std::shared_ptr<OdResBuf>;

// One typed value of a chain. The type is one of ValueType or a DXF group code; it is kept as set and says how
// wide a whole number is. The next buffer is owned; copying a buffer copies its whole chain.
class KXPLATFORM_EXPORT OdResBuf {
  public:
    enum ValueType : std::int16_t {
        kRtNone = 5000,
        kRtDouble = 5001,
        kRtPoint2d = 5002,
        kRtInt16 = 5003,
        kRtAngle = 5004, // radians
        kRtString = 5005,
        kRtEntName = 5006,
        kRtPickSet = 5007,
        kRtOrient = 5008, // radians
        kRtPoint3d = 5009,
        kRtInt32 = 5010,
        // Group codes of extended data.
        kDxfXdAsciiString = 1000,
        kDxfRegAppName = 1001,
        kDxfXdControlString = 1002,
        kDxfXdLayerName = 1003,
        kDxfXdBinaryChunk = 1004,
        kDxfXdHandle = 1005,
        kDxfXdXCoord = 1010,
        kDxfXdReal = 1040,
        kDxfXdInteger16 = 1070,
        kDxfXdInteger32 = 1071,
    };

    OdResBuf() = default;
    explicit OdResBuf(int type, tv::dwg::Value value = {}) : m_type(type), m_value(std::move(value)) {}
    OdResBuf(const OdResBuf& other);
    OdResBuf& operator=(const OdResBuf& other);
    OdResBuf(OdResBuf&&) = default;
    OdResBuf& operator=(OdResBuf&&) = default;
    ~OdResBuf();

    static OdResBufPtr newRb(int type = kRtNone, tv::dwg::Value value = {}) {
        return std::make_shared<OdResBuf>(type, std::move(value));
    }
    static OdResBufPtr newInt16(int v) { return newRb(kRtInt16, std::int64_t{v}); }
    static OdResBufPtr newInt32(std::int32_t v) { return newRb(kRtInt32, std::int64_t{v}); }
    static OdResBufPtr newReal(double v) { return newRb(kRtDouble, v); }
    static OdResBufPtr newText(OdString v) { return newRb(kRtString, std::move(v)); }
    static OdResBufPtr newObjectId(OdDbObjectId id);

    int restype() const { return m_type; }
    void setRestype(int type) { m_type = type; }
    const tv::dwg::Value& value() const { return m_value; }
    void setValue(tv::dwg::Value value) { m_value = std::move(value); }
    // The object a kRtEntName buffer names, null otherwise. Buffers read from a file hold handles instead.
    OdDbObjectId objectId() const { return m_objectId; }
    void setObjectId(OdDbObjectId id) {
        m_objectId = id;
        m_value = id.handle();
    }

    // The value in the asked form; 0, an empty text or the origin when it is something else. Reals are not
    // rounded to whole numbers; whole numbers are given as reals.
    std::int32_t getInt32() const;
    std::int16_t getInt16() const { return static_cast<std::int16_t>(getInt32()); }
    bool getBool() const { return getInt32() != 0; }
    double getDouble() const;
    OdString getString() const;
    OdGePoint2d getPoint2d() const;
    OdGePoint3d getPoint3d() const;
    OdDbHandle getHandle() const;
    tv::dwg::Binary getBinary() const;

    void setInt16(int v) { m_value = std::int64_t{v}; }
    void setInt32(std::int32_t v) { m_value = std::int64_t{v}; }
    void setBool(bool v) { m_value = std::int64_t{v}; }
    void setDouble(double v) { m_value = v; }
    void setString(OdString v) { m_value = std::move(v); }
    void setPoint2d(OdGePoint2d v) { m_value = v; }
    void setPoint3d(const OdGePoint3d& v) { m_value = v; }

    OdResBufPtr next() const { return m_next; }
    void setNext(OdResBufPtr next) { m_next = std::move(next); }
    // The last buffer of the chain, this one when it stands alone.
    OdResBuf& last();
    // Puts a buffer, or a chain of them, at the end of this chain.
    void append(OdResBufPtr more) { last().setNext(std::move(more)); }

  private:
    int m_type = kRtNone;
    tv::dwg::Value m_value;
    OdDbObjectId m_objectId;
    OdResBufPtr m_next;
};
