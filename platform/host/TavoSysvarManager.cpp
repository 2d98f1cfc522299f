#include "platform/host/TavoSysvarManager.h"

#include "platform/drawing/OdCmColor.h"
#include "platform/drawing/OdResBuf.h"
#include "platform/host/TavoInterfaces.h"
#include "platform/host/TavoSharedGlobals.h"
#include "platform/host/sysvars/SysvarColor.h"

#include <limits>

namespace {

TavoSysvarManager* installedManager() { return getSysvarManagerInterface(getTavoInterfaces()); }

template <class T>
Tavo::ErrorStatus get(const TvString& name, T& value, const OdDbDatabasePtr& database) {
    const auto* manager = installedManager();
    return manager ? manager->getVar(name, value, database) : Tavo::eNotHandled;
}

} // namespace

Tavo::ErrorStatus tvedGetVar(const TvString& name, int& value, const OdDbDatabasePtr& database) {
    OdResBuf buffer;
    if (const auto status = get(name, buffer, database); status != Tavo::eOk) return status;
    const auto* number = std::get_if<std::int64_t>(&buffer.value());
    if (!number) return Tavo::eWrongType;
    // Only colours have so large numbers.
    const bool maybeColor = *number < 0 || *number > std::numeric_limits<int>::max();
    if (maybeColor && installedManager()->type(name) == TavoSysvarType::kColor) {
        const auto index = tv::host::indexOfColor(*number);
        if (!index) return Tavo::eWrongType;
        value = *index;
    } else {
        value = static_cast<int>(*number);
    }
    return Tavo::eOk;
}

Tavo::ErrorStatus tvedGetVar(const TvString& name, OdCmColor& value, const OdDbDatabasePtr& database) {
    return get(name, value, database);
}

Tavo::ErrorStatus tvedGetVar(const TvString& name, OdDbObjectId& value, const OdDbDatabasePtr& database) {
    return get(name, value, database);
}

Tavo::ErrorStatus tvedSetVar(const TvString& name, int value, const OdDbDatabasePtr& database) {
    auto* manager = installedManager();
    return manager ? manager->setVar(name, OdResBuf(OdResBuf::kRtInt32, std::int64_t{value}), database)
                   : Tavo::eNotHandled;
}

bool TavoSharedGlobals::IsOnEXPERTMode(int level) {
    int expert = 0;
    tvedGetVar(L"EXPERT", expert, nullptr);
    return expert < level;
}
