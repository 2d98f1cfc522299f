#pragma once

#include "kxgui/controls/SelectedProperties.h"
#include "kxgui/controls/VORDCobxBase.h"

#include <memory>
#include <optional>

// The base of the lists of a drawing property. In a toolbar (typeToolbar) such a list shows what the selected
// objects have in common, or what new objects get, and a choice changes that at once, as one undo step; objects
// that don't agree show as "*varies*". Everywhere else it holds a value for the dialog it stands in.
class KXGUI_EXPORT CCobxPropertyBase : public VORDCobxBase {
  public:
    CCobxPropertyBase(CWnd& parent, const char* name, kx::controls::Property property, bool editable = false)
        : VORDCobxBase(parent, name, editable), m_property(property) {}

    // Whether it shows and changes the drawing's present state by itself.
    bool FollowsDrawing() const { return m_mayFollow && GetType() == typeToolbar; }
    // Keeps it a plain list, whatever its type.
    void SetFollowsDrawing(bool follows) { m_mayFollow = follows; }

    // The chosen value, or what was last asked to be shown; nothing for "*varies*".
    std::optional<tv::dwg::Value> GetValue() const;
    // Shows a value; no handler runs. One without an entry shows as its text, and stands until the list has
    // one.
    void SelectValue(const tv::dwg::Value& value);
    void SelectVaries();
    bool Varies() const { return m_varies; }

    void OnSelectionSetChanged() override;

  protected:
    void RefillList() override;
    void OnSelChange() override;

    // Adds the entries. The list is empty, the drawing the current one.
    virtual void Fill(const OdDbDatabasePtr& database) = 0;
    // The entry of a value, -1 for none; the value of an entry, nothing for one that only opens something.
    virtual int EntryOf(const tv::dwg::Value& value) = 0;
    virtual std::optional<tv::dwg::Value> ValueOf(int index) const = 0;
    // A value as the closed list shows it when no entry stands for it.
    virtual std::wstring TextOf(const tv::dwg::Value& value) const;
    // A person chose an entry without a value. The entry selected before is selected again afterwards.
    virtual void OnSpecialEntry(int /*index*/) {}
    // What the undo step of a change is called.
    virtual std::wstring UndoName() const = 0;

    // What is selected becomes the value a refill shows again.
    void KeepSelected();
    // Remembers the drawing, has the entries added and shows the value that is to be seen.
    void FillFrom(const OdDbDatabasePtr& database);
    // Shows the chosen value again.
    void ShowChosen();
    // As if a person had chosen the value.
    void ChooseValue(const tv::dwg::Value& value);
    // The drawing the entries come from; null when it was closed.
    OdDbDatabasePtr filledFrom() const { return m_filledFrom.lock(); }

  private:
    void showValue(const OdDbDatabasePtr& database);

    kx::controls::Property m_property;
    bool m_mayFollow = true;
    bool m_varies = false;
    std::optional<tv::dwg::Value> m_value;
    std::weak_ptr<OdDbDatabase> m_filledFrom;
};

// The same for values that are names of the drawing's records: entries are those records, after and before
// entries of the member's own.
class KXGUI_EXPORT CCobxNameBase : public CCobxPropertyBase {
  public:
    using CCobxPropertyBase::CCobxPropertyBase;

    // Null when nothing is selected, for an entry that is no record, and when the drawing was closed.
    OdDbObjectId GetSelectedId() const;
    std::wstring GetName() const; // empty when nothing is selected
    void SelectId(OdDbObjectId id);
    void SelectName(std::wstring_view name) { SelectValue(kx::controls::nameValue(name)); }

  protected:
    int EntryOf(const tv::dwg::Value& value) override;
    std::optional<tv::dwg::Value> ValueOf(int index) const override;
};
