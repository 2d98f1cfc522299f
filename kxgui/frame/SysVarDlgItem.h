#pragma once

#include "kxgui/Export.h"

#include <deque>
#include <string>

struct SysVarOverride;

// One dialog control that shows a system variable.
struct _tSysVar_DlgItem {
    // The kind that takes no part in shared marking.
    static constexpr int kNotMarked = 100;

    std::wstring name; // the variable's
    int owner = 0;     // records with the same owner and name stand for one variable shown in several places
    int kind = 0;
    bool overridden = false;        // a staged value exists
    bool shared = false;            // follows the staged state of its shared namesakes, and they its own
    SysVarOverride* node = nullptr; // the staged value, owned by the processor; null when not overridden
};

// The records of all settings dialogs, filled at run time. Records keep their place in memory while others are
// added behind them. One settings dialog stages at a time.
KXGUI_EXPORT std::deque<_tSysVar_DlgItem>& getSysVarDlgItems();
