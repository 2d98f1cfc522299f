#pragma once

#include "kxgui/controls/VORDCobxBase.h"
#include "kxgui/frame/VORDBaseChildDlg.h"
#include "platform/text/ResourceString.h"
#include "platform/toolkit/Static.h"

#include <concepts>
#include <functional>
#include <string>
#include <vector>

// One member of the family of property lists, with the label before it and what a program gets from it behind
// it.
template <std::derived_from<VORDCobxBase> Combo>
struct Exhibit {
    // On the page they are called `name`, `name`_LABEL and `name`_VALUE.
    Exhibit(CWnd& page, const std::string& name)
        : label(page, (name + "_LABEL").c_str()), combo(page, name.c_str()),
          value(page, (name + "_VALUE").c_str()) {}
    CStatic label;
    Combo combo;
    CStatic value;
};

// A page of property lists. What is chosen in them is shown and used for nothing.
class CGalleryPage : public VORDBaseChildDlg {
  public:
    CGalleryPage(unsigned templateId, CWnd& parent, const char* name);

    virtual void SetText();
    // Fills the lists from the current drawing, as soon as what is under way has finished.
    virtual void Fill();
    void SetType(VORDCobxBase::ControlType type);
    // A list that can't be used anyway stays so.
    void EnableLists(bool enable);

    std::intptr_t WindowProc(unsigned message, std::uintptr_t wParam, std::intptr_t lParam) override;

  protected:
    // `value` says what a program gets when something is chosen.
    template <class Combo>
    void add(Exhibit<Combo>& exhibit, tv::text::TableText label, std::function<std::wstring(Combo&)> value) {
        Combo& combo = exhibit.combo;
        m_exhibits.push_back({&exhibit.label, &combo, &exhibit.value, label,
                              [&combo, value = std::move(value)] { return value(combo); }});
        wire(m_exhibits.back());
    }
    // The lists are filled.
    virtual void OnFilled() {}
    // A person chose in one of them.
    virtual void OnChosen(VORDCobxBase& /*combo*/) {}

  private:
    struct Shown {
        CStatic* label;
        VORDCobxBase* combo;
        CStatic* value;
        tv::text::TableText text;
        std::function<std::wstring()> chosen;
    };
    void wire(const Shown& shown);
    void showValues();
    void disableLists();

    std::vector<Shown> m_exhibits;
    bool m_enabled = true;
};
