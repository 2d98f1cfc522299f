#pragma once

#include "platform/text/OdString.h"

#include <QString>

inline QString toQt(std::wstring_view text) {
    return QString::fromWCharArray(text.data(), static_cast<qsizetype>(text.size()));
}
inline OdString fromQt(const QString& text) { return text.toStdWString(); }
