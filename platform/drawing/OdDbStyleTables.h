#pragma once

// The tables that say how things are drawn, written and looked at.
#include "platform/drawing/OdDbDimStyleTable.h"
#include "platform/drawing/OdDbLinetypeTable.h"
#include "platform/drawing/OdDbTextStyleTable.h"
#include "platform/drawing/OdDbViewTables.h"
