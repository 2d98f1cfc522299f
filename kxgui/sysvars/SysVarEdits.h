#pragma once

#include "kxgui/Export.h"
#include "kxgui/frame/SysVarOverridesProcessor.h"
#include "platform/host/sysvars/SysvarInfo.h"

#include <string>
#include <string_view>
#include <vector>

namespace kx::sysvar {

// One variable of the host, as its values are edited.
struct SysVarEntry {
    _tSysVar_DlgItem* item; // in the table of all settings dialogs
    tv::host::SysvarInfo info;
    bool readOnly;
    bool available; // it has a value: not so for a variable of the drawing when there is none
    const std::wstring& name() const { return item->name; }
};

// What became of an entered text.
struct Entered {
    std::wstring refusal; // why nothing was taken, in one sentence
    std::wstring notice;  // what was made of it when that is not what was entered, in one sentence
    explicit operator bool() const { return refusal.empty(); }
};

// All system variables with the edits of a settings dialog, as texts. Every edit is staged; the drawing and the
// settings change with commit() only.
class KXGUI_EXPORT SysVarEdits : public SysVarOverridesProcessor {
  public:
    // The owner of its records in the table of settings dialogs.
    static constexpr int kOwner = 1;

    explicit SysVarEdits(OdDbDatabasePtr database);

    const std::vector<SysVarEntry>& entries() const { return m_entries; }
    int indexOf(std::wstring_view name) const; // letter case aside; -1 when there is no such variable

    // The staged value or the present one, as SETVAR shows it; empty for one that is not available.
    std::wstring text(int index) const;
    bool changed(int index) const;
    int changedCount() const;

    // Stages what a person entered. A number beyond its range is brought into it, which is said; other texts
    // the variable can't have are refused. The present value takes back what was staged.
    Entered enter(int index, std::wstring_view text);
    // Takes back what was staged.
    void reset(int index);
    // Stages the value of a fresh drawing or profile.
    Entered enterDefault(int index);

    // Writes what is staged as one undo step. Answers the names of the variables that were refused; these stay
    // staged.
    std::vector<std::wstring> commit();

  private:
    Entered enterNumber(SysVarEntry& entry, std::wstring_view text);
    Entered enterRecord(SysVarEntry& entry, std::wstring_view text);
    void stageLong(_tSysVar_DlgItem& item, int value);
    std::vector<SysVarEntry> m_entries;
};

} // namespace kx::sysvar
