#pragma once

#include "kxgui/Export.h"
#include "platform/toolkit/ComboBox.h"

#include <concepts>
#include <memory>
#include <optional>
#include <string>
#include <utility>

// What a column of a VORDBaseListCtrl is edited with. The descriptors are kept with the columns' headers.

// A class of drop-down lists, as a value: what to make when an editor opens.
struct CRuntimeClass {
    std::unique_ptr<CComboBox> (*create)(CWnd& parent, const char* name, bool editable);
};

// That of `Combo`, which is made with its parent, its name and, when it wants to know, whether its text can be
// typed.
template <std::derived_from<CComboBox> Combo>
const CRuntimeClass* runtimeClass() {
    static constexpr CRuntimeClass one{
        [](CWnd& parent, const char* name, [[maybe_unused]] bool editable) -> std::unique_ptr<CComboBox> {
            if constexpr (std::constructible_from<Combo, CWnd&, const char*, bool>)
                return std::make_unique<Combo>(parent, name, editable);
            else
                return std::make_unique<Combo>(parent, name);
        }};
    return &one;
}

// Supplies what an editor opens on. Either may do nothing.
class KXGUI_EXPORT ICtrlFiller {
  public:
    virtual ~ICtrlFiller() = default;
    // Fills the drop-down list of a cell.
    virtual void FillCombo(CComboBox& /*combo*/, int /*item*/, int /*column*/) {}
    // The text an edit begins with; without one, the cell's.
    virtual std::optional<std::wstring> EditText(int /*item*/, int /*column*/) { return std::nullopt; }
};
using ICtrlFillerPtr = std::shared_ptr<ICtrlFiller>;

enum InPlaceStyle : unsigned {
    kInPlacePlain = 0,
    kEditReadOnly = 1,  // an edit whose text can only be looked at and copied
    kComboEditable = 2, // a drop-down list below an edit field
};

struct KXGUI_EXPORT HeaderInplaceData {
    enum Kind { kCombobox = 0, kEdit = 1 };
    const Kind kind;
    unsigned style; // InPlaceStyle
    ICtrlFillerPtr filler;
    virtual ~HeaderInplaceData() = default;

  protected:
    HeaderInplaceData(Kind k, unsigned bits, ICtrlFillerPtr fills)
        : kind(k), style(bits), filler(std::move(fills)) {}
};

struct KXGUI_EXPORT HeaderInplaceComboboxData : HeaderInplaceData {
    HeaderInplaceComboboxData(const CRuntimeClass* made, int given, unsigned bits, ICtrlFillerPtr fills)
        : HeaderInplaceData(kCombobox, bits, std::move(fills)), runtime(made), value(given) {}
    const CRuntimeClass* runtime; // null: a plain drop-down list
    int value;                    // whatever it means to the list that declared it
};

struct KXGUI_EXPORT HeaderInplaceEditData : HeaderInplaceData {
    HeaderInplaceEditData(unsigned bits, ICtrlFillerPtr fills)
        : HeaderInplaceData(kEdit, bits, std::move(fills)) {}
};
