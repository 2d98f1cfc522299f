#include "platform/drawing/dxf/ObjectFactory.h"

#include "platform/drawing/OdDbObject.h"

namespace tv::dwg {

OdDbObjectPtr makeObject(OdDbObjectId id, OdDb::OpenMode mode) {
    return std::make_shared<OdDbObject>(id, mode);
}

} // namespace tv::dwg
