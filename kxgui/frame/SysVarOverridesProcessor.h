#pragma once

#include "kxgui/Export.h"
#include "kxgui/frame/SysVarDlgItem.h"
#include "platform/drawing/Geometry.h"
#include "platform/drawing/OdCmColor.h"
#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbObjectId.h"
#include "platform/drawing/OdResBuf.h"
#include "platform/host/TavoSysvarManager.h"
#include "platform/text/OdString.h"

#include <cstddef>
#include <list>
#include <string_view>
#include <vector>

// One staged value and the record it was staged for.
struct SysVarOverride {
    _tSysVar_DlgItem* item;
    OdResBuf value;
};

// The edits of a settings dialog while it is open: they are staged here, shown wherever their variable is
// shown, and written in one pass when the user confirms. Dropped when the processor dies. Variables are read
// and written through the system-variable manager that is installed when the processor is made.
class KXGUI_EXPORT SysVarOverridesProcessor {
  public:
    // How many values can be staged at once.
    static constexpr std::size_t kMaxOverrides = 10000;

    // `database` may be null: then only variables that live elsewhere can be read and written.
    explicit SysVarOverridesProcessor(OdDbDatabasePtr database);
    // A copy works on the same database and starts without staged values, which stay with the one that staged
    // them.
    SysVarOverridesProcessor(const SysVarOverridesProcessor& other);
    SysVarOverridesProcessor& operator=(const SysVarOverridesProcessor& other);
    virtual ~SysVarOverridesProcessor();

    const OdDbDatabasePtr& GetDataBase() const { return m_database; }

    // Stages a value. True when it was staged; false when it equals the drawing's, which removes what was
    // staged, or can't be: an integer beyond 16 bits, an object without a name, too many values. Buffers: 5003
    // truth values and integers, 5001, 5005, 5002, 5009, 5010 colours (32-bit encoding), 5005 objects (name).
    virtual bool overrideSysVar(_tSysVar_DlgItem& item, bool value);
    virtual bool overrideSysVar(_tSysVar_DlgItem& item, int value);
    virtual bool overrideSysVar(_tSysVar_DlgItem& item, double value);
    virtual bool overrideSysVar(_tSysVar_DlgItem& item, const TvString& value);
    virtual bool overrideSysVar(_tSysVar_DlgItem& item, const OdGePoint2d& value);
    virtual bool overrideSysVar(_tSysVar_DlgItem& item, const OdGePoint3d& value);
    virtual bool overrideSysVar(_tSysVar_DlgItem& item, const OdCmColor& value);
    virtual bool overrideSysVar(_tSysVar_DlgItem& item, const OdDbObjectId& value);
    // A literal is a text, not a truth value.
    bool overrideSysVar(_tSysVar_DlgItem& item, const wchar_t* value) {
        return overrideSysVar(item, TvString(value));
    }

    // The staged value (true) or the drawing's (false). A staged buffer of another type, and a failed read,
    // leave `value` untouched.
    virtual bool getSysVarWithOverrides(const _tSysVar_DlgItem& item, bool& value) const;
    virtual bool getSysVarWithOverrides(const _tSysVar_DlgItem& item, int& value) const;
    virtual bool getSysVarWithOverrides(const _tSysVar_DlgItem& item, double& value) const;
    virtual bool getSysVarWithOverrides(const _tSysVar_DlgItem& item, TvString& value) const;
    virtual bool getSysVarWithOverrides(const _tSysVar_DlgItem& item, OdGePoint2d& value) const;
    virtual bool getSysVarWithOverrides(const _tSysVar_DlgItem& item, OdGePoint3d& value) const;
    virtual bool getSysVarWithOverrides(const _tSysVar_DlgItem& item, OdCmColor& value) const;
    virtual bool getSysVarWithOverrides(const _tSysVar_DlgItem& item, OdDbObjectId& value) const;

    // The same by name, the first staged value with exactly this name. Letter case counts here, and only here.
    virtual bool getSysVarWithOverrides(std::wstring_view name, bool& value) const;
    virtual bool getSysVarWithOverrides(std::wstring_view name, int& value) const;
    virtual bool getSysVarWithOverrides(std::wstring_view name, double& value) const;
    virtual bool getSysVarWithOverrides(std::wstring_view name, TvString& value) const;
    virtual bool getSysVarWithOverrides(std::wstring_view name, OdGePoint2d& value) const;
    virtual bool getSysVarWithOverrides(std::wstring_view name, OdGePoint3d& value) const;
    virtual bool getSysVarWithOverrides(std::wstring_view name, OdCmColor& value) const;
    virtual bool getSysVarWithOverrides(std::wstring_view name, OdDbObjectId& value) const;

    // Makes the other shared records of the same owner and variable follow this record's staged state.
    virtual void markOverrideSysVar(const _tSysVar_DlgItem& item);

    // Brings `value` into the variable's range. False when it had to be changed. A variable without a range, or
    // whose maximum is not above its minimum, takes every value.
    virtual bool validateSysvarValue(std::wstring_view name, double& value) const;
    virtual bool validateSysvarValue(std::wstring_view name, int& value) const;

    // Writes every staged value in the order of staging, as one undo step. A value the manager refuses is told
    // on the command line and does not stop the others. Answers the names of the refused variables. The values
    // stay staged.
    virtual std::vector<OdString> saveVariablesToDataBase();

    // Forgets every staged value.
    virtual void cleanStorage();

    virtual TavoSysvarType getVarType(std::wstring_view name) const;

  protected:
    // False when the list is full, which is told on the command line.
    virtual bool putSysVarToOverridesList(_tSysVar_DlgItem& item, const OdResBuf& value);
    // Removes the staged value of the variable with this record's name, letter case aside.
    virtual void eraseSysVarFromOverridesList(_tSysVar_DlgItem& item);

  private:
    using Overrides = std::list<SysVarOverride>;
    const OdResBuf* staged(const _tSysVar_DlgItem& item) const;
    const OdResBuf* staged(std::wstring_view name) const;
    template <class T>
    bool stage(_tSysVar_DlgItem& item, const T& value);
    template <class T>
    bool read(std::wstring_view name, const OdResBuf* staged, T& value) const;
    Tavo::ErrorStatus write(const SysVarOverride& entry);

    Overrides m_overrides;
    TavoSysvarManager* m_manager;
    OdDbDatabasePtr m_database;
};
