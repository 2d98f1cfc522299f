#pragma once

#include "kxgui/controls/PropertyCobx.h"

#include <vector>

// Text heights, with one decimal: those the drawing's text styles have or had last and the current one, in
// rising order. Another one can be typed; Enter, or leaving the control, takes it. In a toolbar it changes the
// selected texts while PICKFIRST is on, else TEXTSIZE.
class KXGUI_EXPORT CCobxTextSize : public CCobxPropertyBase {
  public:
    CCobxTextSize(CWnd& parent, const char* name)
        : CCobxPropertyBase(parent, name, kx::controls::Property::textHeight, true) {}

    double GetTextSize() const; // 0 when nothing is chosen
    void SelectTextSize(double height) { SelectValue(height); }

    tv::ui::KeyRoute routeKey(const tv::ui::KeyEvent& key) override;
    void OnKillFocus() override;

  protected:
    // What a person is typing stays, unless it was for another drawing.
    void RefillList() override;
    void Fill(const OdDbDatabasePtr& database) override;
    int EntryOf(const tv::dwg::Value& value) override;
    std::optional<tv::dwg::Value> ValueOf(int index) const override;
    std::wstring TextOf(const tv::dwg::Value& value) const override;
    std::wstring UndoName() const override;

  private:
    bool isTyped() const;
    void takeTyped();
    std::vector<double> m_heights; // of the entries
};
