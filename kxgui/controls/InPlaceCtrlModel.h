#pragma once

#include "kxgui/controls/InPlaceDescriptors.h"
#include "platform/toolkit/ListModel.h"

#include <cstdint>
#include <string>
#include <vector>

// What became of a text a person entered in a cell.
struct InPlaceAnswer {
    std::wstring refusal; // why nothing was taken, in one sentence
    std::wstring notice;  // what was made of it when that is not what was entered, in one sentence
};

// Rows that say of each cell what it is edited with, and take what was entered.
class KXGUI_EXPORT CInPlaceCtrlModel : public tv::ui::ListModel {
  public:
    enum class Editor {
        none,
        edit,    // a text
        list,    // one of choices()
        combo,   // one of choices(), or another text
        toggle,  // the other one of the two choices(), without an editor
        command, // one of choices(); the last one runs runCommand()
    };

    virtual Editor editor(int row, int column) const = 0;
    // The text an edit begins with.
    virtual std::wstring editText(int row, int column) const { return text(row, column); }
    virtual std::vector<tv::ui::ListItem> choices(int /*row*/, int /*column*/) const { return {}; }
    // The drop-down list to make; null: a plain one.
    virtual const CRuntimeClass* comboClass(int /*row*/, int /*column*/) const { return nullptr; }
    // Checks a text and takes it. Nothing changes when it is refused.
    virtual InPlaceAnswer setValue(int row, int column, const std::wstring& text) = 0;
    // Asks for the value by other means, such as a dialog.
    virtual InPlaceAnswer runCommand(int /*row*/, int /*column*/) { return {}; }

    // What a row stands for wherever it is, and for as long as the list shows it; and the row it is at now, -1
    // when it is not there. An edit goes to the row it was begun on.
    virtual std::uintptr_t rowKey(int row) const { return static_cast<std::uintptr_t>(identity(row)); }
    virtual int rowOfKey(std::uintptr_t key) const;
};
