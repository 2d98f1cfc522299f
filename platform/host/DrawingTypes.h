#pragma once

#include <memory>

// The drawing's types as far as the host's interfaces only pass them on.
class OdDbDatabase;
using OdDbDatabasePtr = std::shared_ptr<OdDbDatabase>;
class OdDbObjectId;
class OdCmColor;
class OdResBuf;
struct OdGePoint3d;
