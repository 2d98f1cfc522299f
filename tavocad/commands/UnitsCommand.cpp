#include "tavocad/commands/Commands.h"

#include "kxgui/frame/UnitsDlg.h"
#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdResBuf.h"
#include "platform/host/TavoCommandLine.h"
#include "platform/host/TavoInterfaces.h"
#include "platform/host/TavoSysvarManager.h"
#include "platform/text/ResourceString.h"
#include "platform/toolkit/Dialog.h"
#include "tavocad/TavoSession.h"

#include <cmath>
#include <numbers>

namespace {

// The whole-number variables behind the record's fields.
struct Field {
    const wchar_t* variable;
    int (*get)(const T_UNITS_D&);
    void (*set)(T_UNITS_D&, int);
};
constexpr Field fields[] = {
    {L"LUNITS", [](const T_UNITS_D& d) { return d.lunits; }, [](T_UNITS_D& d, int v) { d.lunits = v; }},
    {L"LUPREC", [](const T_UNITS_D& d) { return d.luprec; }, [](T_UNITS_D& d, int v) { d.luprec = v; }},
    {L"AUNITS", [](const T_UNITS_D& d) { return d.aunits; }, [](T_UNITS_D& d, int v) { d.aunits = v; }},
    {L"AUPREC", [](const T_UNITS_D& d) { return d.auprec; }, [](T_UNITS_D& d, int v) { d.auprec = v; }},
    {L"ANGDIR", [](const T_UNITS_D& d) { return int{d.clockwise}; },
     [](T_UNITS_D& d, int v) { d.clockwise = v != 0; }},
    {L"INSUNITS", [](const T_UNITS_D& d) { return d.insunits; }, [](T_UNITS_D& d, int v) { d.insunits = v; }},
};
constexpr wchar_t baseAngle[] = L"ANGBASE";

T_UNITS_D readUnits(TavoSysvarManager& manager, const OdDbDatabasePtr& database) {
    T_UNITS_D data;
    data.Init();
    OdResBuf buffer;
    for (const Field& field : fields)
        if (manager.getVar(field.variable, buffer, database) == Tavo::eOk) field.set(data, buffer.getInt32());
    if (manager.getVar(baseAngle, buffer, database) == Tavo::eOk) data.angbase = buffer.getDouble();
    return data;
}

// Only what the user changed. A variable the drawing can't hold is told and does not stop the others.
void writeUnits(TavoSession& session, const OdDbDatabasePtr& database, const T_UNITS_D& before,
                const T_UNITS_D& after) {
    TavoSysvarManager& manager = *session.host().sysvarManager();
    auto write = [&](const wchar_t* variable, const OdResBuf& value) {
        if (manager.setVar(variable, value, database) != Tavo::eOk) session.print(manager.lastProblem());
    };
    for (const Field& field : fields)
        if (field.get(before) != field.get(after))
            write(field.variable, OdResBuf(OdResBuf::kRtInt16, std::int64_t{field.get(after)}));
    // A base angle of zero comes back as a full turn when it was entered clockwise.
    const double angle = std::fmod(after.angbase, 2.0 * std::numbers::pi);
    if (before.angbase != after.angbase && before.angbase != angle)
        write(baseAngle, OdResBuf(OdResBuf::kRtDouble, angle));
}

int units(TavoSession& session, TavoEdCommandContext& context) {
    OdDbDatabasePtr database = context.database();
    if (!database) {
        session.host().commandLine()->print(
            VORD_ResourceString("IDS_TAVO_NO_DRAWING", L"열려 있는 도면이 없습니다."));
        return RTERROR;
    }
    if (const auto* insunits = tv::dwg::headerVarInfo(L"INSUNITS");
        insunits && database->form() < insunits->first)
        session.host().commandLine()->print(
            VORD_ResourceString("IDS_TAVO_UNITS_NO_INSUNITS",
                                L"이 버전의 도면에는 삽입 단위(INSUNITS)가 없습니다. 삽입 단위를 바꾸어도 "
                                L"도면에 저장되지 않습니다."));
    const T_UNITS_D before = readUnits(*session.host().sysvarManager(), database);
    CUnitsDlg dialog(database, before.angbase, nullptr);
    dialog.SetData(before);
    if (dialog.DoModal() != IDOK) return RTCAN;
    T_UNITS_D after;
    after.Init();
    dialog.GetData(after);
    writeUnits(session, database, before, after);
    return RTNORM;
}

} // namespace

void registerUnitsCommand(TavoSession& session) {
    session.addCommand({L"UNITS",
                        {L"UN", L"DDUNITS"},
                        [] {
                            return OdString(
                                VORD_ResourceString("IDS_TAVO_HELP_UNITS", L"도면의 단위와 정밀도를 정합니다"));
                        },
                        [&session](TavoEdCommandContext& context) { return units(session, context); }});
}
