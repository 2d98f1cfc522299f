#pragma once

#include "platform/Export.h"
#include "platform/drawing/Geometry.h"
#include "platform/drawing/OdDbEntity.h"

#include <string_view>

// Single-line texts: TEXT, and the attributes of blocks. Angles are radians; the file holds degrees.
class KXPLATFORM_EXPORT OdDbText : public OdDbEntity {
  public:
    using OdDbEntity::OdDbEntity;

    // As the file has it, with codes like %%d.
    OdString textString() const;
    virtual Tavo::ErrorStatus setTextString(std::wstring_view text);
    // "STANDARD" when the entity names none.
    OdString textStyleName() const;
    // eKeyNotFound for a style the drawing lacks.
    Tavo::ErrorStatus setTextStyle(std::wstring_view name);
    OdGePoint3d position() const;
    // The point the text is aligned at; counts where it isn't aligned left at its baseline.
    OdGePoint3d alignmentPoint() const;
    double height() const;
    // eOutOfRange unless above 0.
    Tavo::ErrorStatus setHeight(double height);
    double rotation() const;
    Tavo::ErrorStatus setRotation(double radians);
    double widthFactor() const;
    double oblique() const;
    int horizontalMode() const;
    virtual int verticalMode() const;
};
using OdDbTextPtr = std::shared_ptr<OdDbText>;

// What the attributes of a block's insert and of its definition share.
class KXPLATFORM_EXPORT OdDbAttributeText : public OdDbText {
  public:
    using OdDbText::OdDbText;

    OdString tag() const;
    // eInvalidInput for an empty one or one with blanks.
    Tavo::ErrorStatus setTag(std::wstring_view tag);
    bool isInvisible() const { return (attributeFlags() & 1) != 0; }
    bool isConstant() const { return (attributeFlags() & 2) != 0; }
    bool isVerifiable() const { return (attributeFlags() & 4) != 0; }
    bool isPreset() const { return (attributeFlags() & 8) != 0; }
    Tavo::ErrorStatus setInvisible(bool invisible);
    // Also changes the multiline text that stands inside the record of an attribute of several lines.
    Tavo::ErrorStatus setTextString(std::wstring_view text) override;
    bool isMultiline() const;
    int verticalMode() const override;

  protected:
    virtual std::string_view subclass() const = 0;
    int attributeFlags() const;
};

class KXPLATFORM_EXPORT OdDbAttribute : public OdDbAttributeText {
  public:
    using OdDbAttributeText::OdDbAttributeText;

  protected:
    std::string_view subclass() const override { return "AcDbAttribute"; }
};
using OdDbAttributePtr = std::shared_ptr<OdDbAttribute>;

class KXPLATFORM_EXPORT OdDbAttributeDefinition : public OdDbAttributeText {
  public:
    using OdDbAttributeText::OdDbAttributeText;
    OdString prompt() const;
    Tavo::ErrorStatus setPrompt(std::wstring_view prompt);

  protected:
    std::string_view subclass() const override { return "AcDbAttributeDefinition"; }
};
using OdDbAttributeDefinitionPtr = std::shared_ptr<OdDbAttributeDefinition>;
