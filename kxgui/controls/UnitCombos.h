#pragma once

#include "kxgui/controls/VORDCobxBase.h"

#include <vector>

// The drop-down lists of a drawing's unit settings. Each is given the drawing, then filled with SetComboBoxList; item
// data is the value of the system variable.
class KXGUI_EXPORT CCobxUnitBase : public VORDCobxBase {
  public:
    using VORDCobxBase::VORDCobxBase;

    void SetDatabase(OdDbDatabasePtr database) { m_database = std::move(database); }
    const OdDbDatabasePtr& GetDatabase() const { return m_database; }
    // Fills the list anew and keeps what is selected where the new list has it.
    void SetComboBoxList();

    // The selected value, or `otherwise` when nothing is selected.
    int GetValue(int otherwise) const;
    // Selects the entry that stands for `value`; false, and nothing selected, when there is none.
    bool SelectValue(int value);

  protected:
    void RefillList() override { SetComboBoxList(); }
    virtual tv::ui::SharedItems entries() const = 0;
    virtual int entryFor(int value) const { return FindItemData(static_cast<std::uintptr_t>(value)); }

  private:
    OdDbDatabasePtr m_database;
};

// A precision list: what it shows depends on the unit type.
class KXGUI_EXPORT CCobxPrecisionBase : public CCobxUnitBase {
  public:
    using CCobxUnitBase::CCobxUnitBase;
    void SetUnitType(int type) { m_unitType = type; }
    int GetUnitType() const { return m_unitType; }

  private:
    int m_unitType = -1;
};

// A unit type list: a choice refills the precision lists that depend on it.
class KXGUI_EXPORT CCobxUnitTypeBase : public CCobxUnitBase {
  public:
    using CCobxUnitBase::CCobxUnitBase;
    // The controls must live as long as this one.
    void SetChild(std::vector<CCobxPrecisionBase*> children) { m_children = std::move(children); }
    // As SelectValue, and the precision lists follow.
    void SelectType(int type);

  protected:
    void OnSelChange() override;

  private:
    void refillChildren();
    std::vector<CCobxPrecisionBase*> m_children;
};

// Length type: the values of LUNITS.
class KXGUI_EXPORT CCobxLUnit : public CCobxUnitTypeBase {
  public:
    using CCobxUnitTypeBase::CCobxUnitTypeBase;

  protected:
    tv::ui::SharedItems entries() const override;
};

// Length precision, 0 to 8: the values of LUPREC.
class KXGUI_EXPORT CCobxLPrec : public CCobxPrecisionBase {
  public:
    using CCobxPrecisionBase::CCobxPrecisionBase;

  protected:
    tv::ui::SharedItems entries() const override;
};

// Angle type: the values of AUNITS.
class KXGUI_EXPORT CCobxAUnit : public CCobxUnitTypeBase {
  public:
    using CCobxUnitTypeBase::CCobxUnitTypeBase;

  protected:
    tv::ui::SharedItems entries() const override;
};

// Angle precision: the values of AUPREC. Degrees, minutes and seconds have one entry for 1 and 2 (minutes) and one for
// 3 and 4 (seconds); a selected value stays what it was.
class KXGUI_EXPORT CCobxAPrec : public CCobxPrecisionBase {
  public:
    using CCobxPrecisionBase::CCobxPrecisionBase;

  protected:
    tv::ui::SharedItems entries() const override;
    int entryFor(int value) const override;
};
