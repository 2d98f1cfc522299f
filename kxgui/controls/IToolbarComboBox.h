#pragma once

#include "kxgui/Export.h"
#include "kxgui/controls/SelectedProperties.h"
#include "kxgui/controls/VORDCobxBase.h"
#include "platform/text/OdString.h"

#include <functional>
#include <string>

// A drop-down list of a drawing property as the host's toolbars hold it: under its control's name, with a
// caption, and with requests instead of commands. A request may come in the middle of any event; the list
// follows a moment later.
class KXGUI_EXPORT IToolbarComboBox {
  public:
    // `caption` answers in the current language.
    IToolbarComboBox(VORDCobxBase& combo, kx::controls::Property property,
                     std::function<std::wstring()> caption);
    virtual ~IToolbarComboBox() = default;

    VORDCobxBase& combo() const { return m_combo; }
    const std::string& name() const { return m_combo.name(); }
    kx::controls::Property property() const { return m_property; }
    std::wstring caption() const { return m_caption(); }
    // Makes the caption the list's hint and what a screen reader says.
    void ShowCaption();

    // The drawing changed, or another one is shown.
    void RequestUpdate();
    // Other objects are selected.
    void RequestSelection();
    // Whether the list shows something of this system variable (upper case).
    virtual bool Follows(std::wstring_view variable) const;
    // What was requested happens now.
    void Settle();

  protected:
    // Whether a person can choose: there is a drawing, and of the selected objects one at least has the
    // property.
    virtual bool available() const;

  private:
    VORDCobxBase& m_combo;
    kx::controls::Property m_property;
    std::function<std::wstring()> m_caption;
};
