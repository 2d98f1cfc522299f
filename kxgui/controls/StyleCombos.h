#pragma once

#include "kxgui/controls/PropertyCobx.h"

// The drawing's text styles; files of shapes are none.
class KXGUI_EXPORT CCobxTextStyle : public CCobxNameBase {
  public:
    CCobxTextStyle(CWnd& parent, const char* name)
        : CCobxNameBase(parent, name, kx::controls::Property::textStyle) {}
    OdDbObjectId GetStyleId() const { return GetSelectedId(); }
    void SelectStyle(OdDbObjectId style) { SelectId(style); }

  protected:
    void Fill(const OdDbDatabasePtr& database) override;
    std::wstring UndoName() const override;
};

// The drawing's dimension styles. In a toolbar a choice changes the selected dimensions while PICKFIRST is on,
// else DIMSTYLE.
class KXGUI_EXPORT CCobxDimStyle : public CCobxNameBase {
  public:
    CCobxDimStyle(CWnd& parent, const char* name)
        : CCobxNameBase(parent, name, kx::controls::Property::dimStyle) {}
    OdDbObjectId GetStyleId() const { return GetSelectedId(); }
    void SelectStyle(OdDbObjectId style) { SelectId(style); }

  protected:
    void Fill(const OdDbDatabasePtr& database) override;
    std::wstring UndoName() const override;
};

// The plot style of objects: by layer, by block, and the drawing's names; in a drawing whose plot styles follow
// colours one entry says so and nothing can be chosen. Which names belong together and what choosing another
// table does is not decided here yet.
class KXGUI_EXPORT CCobxPrintStyle : public CCobxNameBase {
  public:
    CCobxPrintStyle(CWnd& parent, const char* name)
        : CCobxNameBase(parent, name, kx::controls::Property::plotStyle) {}

  protected:
    void Fill(const OdDbDatabasePtr& database) override;
    int EntryOf(const tv::dwg::Value& value) override;
    std::optional<tv::dwg::Value> ValueOf(int index) const override;
    std::wstring UndoName() const override;
};

// Objects a dictionary of the drawing names, for a dialog to choose one. Item data is as in RecordItems.h.
class KXGUI_EXPORT CCobxDictionaryBase : public VORDCobxBase {
  public:
    using VORDCobxBase::VORDCobxBase;

    // Of this drawing instead of the current one.
    void SetDatabase(const OdDbDatabasePtr& database) { m_database = database; }
    // Fills the list at once and keeps what is selected where the new list has it.
    void SetComboBoxList() { RefillList(); }
    // Null when nothing is selected, or the object or its drawing is gone.
    OdDbObjectId GetSelectedId() const;
    // Selects it now or, when the list is filled later, then.
    void SelectId(OdDbObjectId id);

  protected:
    void RefillList() override;
    void OnSelChange() override;
    virtual std::vector<tv::ui::ListItem> Entries(const OdDbDatabase& database) const = 0;

  private:
    void showChosen();

    OdDbDatabasePtr m_database;
    std::weak_ptr<OdDbDatabase> m_filledFrom;
    OdDbObjectId m_chosen;
    bool m_asked = false; // for m_chosen since the list was filled
};

// The drawing's scales in their own order, but for those that came with external references.
class KXGUI_EXPORT CCobxScaleList : public CCobxDictionaryBase {
  public:
    using CCobxDictionaryBase::CCobxDictionaryBase;

  protected:
    std::vector<tv::ui::ListItem> Entries(const OdDbDatabase& database) const override;
};

// The styles of leaders that hold their text or block themselves.
class KXGUI_EXPORT CCobxMLeaderStyle : public CCobxDictionaryBase {
  public:
    using CCobxDictionaryBase::CCobxDictionaryBase;

  protected:
    std::vector<tv::ui::ListItem> Entries(const OdDbDatabase& database) const override;
};

// The styles of note leaders, in whichever dictionary the program that wrote the drawing keeps them.
class KXGUI_EXPORT CCobxILeaderStyle : public CCobxDictionaryBase {
  public:
    using CCobxDictionaryBase::CCobxDictionaryBase;

  protected:
    std::vector<tv::ui::ListItem> Entries(const OdDbDatabase& database) const override;
};
