#pragma once

#include "platform/drawing/OdResBuf.h"
#include "platform/drawing/dxf/DxfTags.h"
#include "platform/drawing/dxf/RecordEditor.h"
#include "platform/text/Problem.h"

#include <string_view>

namespace tv::dwg {

// See OdDbObject::xData and setXData.
OdResBufPtr readXData(const DxfFormat& format, TagCursor tags, std::wstring_view appName);
Tavo::ErrorStatus replaceXData(RecordEditor& record, const OdResBuf* chain);

} // namespace tv::dwg
