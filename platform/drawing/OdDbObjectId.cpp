#include "platform/drawing/OdDbObjectId.h"

#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/dxf/ObjectFactory.h"
#include "platform/drawing/dxf/RecordStore.h"

bool OdDbObjectId::isErased() const { return isNull() || m_database->store().isErased(m_record); }

OdDbHandle OdDbObjectId::handle() const {
    return isNull() ? OdDbHandle() : OdDbHandle(m_database->store().record(m_record).handle);
}

OdDbObjectPtr OdDbObjectId::openObject(OdDb::OpenMode mode) const {
    return isErased() ? nullptr : tv::dwg::makeObject(*this, mode);
}
