// Single and multiline texts, attributes.

#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/entities/OdDbMText.h"
#include "platform/drawing/entities/OdDbText.h"
#include "platform/drawing/entities/TagAccess.h"
#include "platform/drawing/entities/properties/Families.h"
#include "platform/drawing/entities/properties/Words.h"

#include <cmath>

namespace tv::dwg {
namespace {

using namespace properties;

constexpr int kTextOrder[] = {39, 10, 20, 30, 40, 1, 50, 41, 51, 7, 71, 72, 11, 21, 31, 210, 220, 230};
constexpr int kMTextOrder[] = {10,  20,  30, 40, 41, 46, 71, 72, 3,  1,  7, 210,
                               220, 230, 11, 21, 31, 42, 43, 50, 73, 44, 90};

// Horizontal and vertical mode as one choice: the vertical one counts tens.
constexpr PropertyChoice kJustify[] = {{0, L"Left"},         {1, L"Center"},         {2, L"Right"},
                                       {3, L"Aligned"},      {4, L"Middle"},         {5, L"Fit"},
                                       {10, L"Bottom left"}, {11, L"Bottom center"}, {12, L"Bottom right"},
                                       {20, L"Middle left"}, {21, L"Middle center"}, {22, L"Middle right"},
                                       {30, L"Top left"},    {31, L"Top center"},    {32, L"Top right"}};

Value justify(OdDbObjectId id) {
    return of<OdDbText>(id, [](const OdDbText& text) {
        return std::int64_t{text.verticalMode()} * 10 + text.horizontalMode();
    });
}
Status setJustify(OdDbObjectId id, const Value& value) {
    return on<OdDbText, std::int64_t>(id, value, [&](OdDbText& text, std::int64_t choice) {
        const std::int64_t before = std::int64_t{text.verticalMode()} * 10 + text.horizontalMode();
        if (choice == before) return Tavo::eOk;
        static constexpr int kOrder[] = {39, 10, 20, 30, 40, 1,   50,  41,  51,  7,
                                         71, 72, 11, 21, 31, 210, 220, 230, 100, 73};
        static constexpr int kAttributeOrder[] = {280, 2, 3, 70, 73, 74};
        const OdDbUndoScope step(*id.database(), L"JUSTIFYTEXT");
        const OdGePoint3d at = text.position();
        if (before == 0)
            for (const auto& [code, coordinate] : {std::pair{11, at.x}, {21, at.y}, {31, at.z}})
                writeTag(text, {"AcDbText", code}, coordinate, kOrder);
        const auto status = writeTag(text, {"AcDbText", 72}, choice % 10, kOrder);
        if (status != Tavo::eOk) return status;
        if (id.open<OdDbAttributeDefinition>())
            return writeTag(text, {"AcDbAttributeDefinition", 74}, choice / 10, kAttributeOrder);
        if (id.open<OdDbAttribute>())
            return writeTag(text, {"AcDbAttribute", 74}, choice / 10, kAttributeOrder);
        return writeTag(text, {"AcDbText", 73}, choice / 10, kOrder);
    });
}

Status setMTextRotation(OdDbObjectId id, const Value& value) {
    return on<OdDbMText, double>(id, value, [](OdDbMText& text, double angle) {
        if (!std::isfinite(angle)) return Tavo::eOutOfRange;
        if (angle == text.rotation()) return Tavo::eOk;
        if (!text.find(11))
            return writeTag(text, {"AcDbMText", 50}, angle,
                            std::initializer_list<int>{1, 7, 210, 220, 230, 42, 43});
        const OdDbUndoScope step(*text.database(), L"ROTATE");
        if (text.find(50)) writeTag(text, {"AcDbMText", 50}, angle);
        writeTag(text, {"AcDbMText", 11}, std::cos(angle));
        return writeTag(text, {"AcDbMText", 21}, std::sin(angle));
    });
}

constexpr PropertyChoice kAttachment[] = {{1, L"Top left"},    {2, L"Top center"},    {3, L"Top right"},
                                          {4, L"Middle left"}, {5, L"Middle center"}, {6, L"Middle right"},
                                          {7, L"Bottom left"}, {8, L"Bottom center"}, {9, L"Bottom right"}};
constexpr PropertyChoice kDrawingDirection[] = {{1, L"Horizontal"}, {3, L"Vertical"}, {5, L"By style"}};
constexpr PropertyChoice kLineSpacing[] = {{1, L"At least"}, {2, L"Exactly"}};

constexpr auto kSingleText =
    list(tag(L"Contents", kText, 1), tag(L"TextStyle", kTextStyle, 7),
         EntityProperty{.name = L"Justify",
                        .kind = kEnum,
                        .groupCode = 72,
                        .choices = kJustify,
                        .get = justify,
                        .set = setJustify},
         tag(L"Height", kLength, 40), tag(L"Rotation", kAngle, 50), tag(L"WidthFactor", kReal, 41, 1),
         tag(L"Oblique", kAngle, 51), xyz<L"Position">(10), xyz<L"Alignment">(11), flag(L"Backward", 71, 2),
         flag(L"UpsideDown", 71, 4), tag(L"Thickness", kLength, 39));

using Attribute = OdDbAttributeText;
constexpr EntityProperty kTag =
    computed(L"Tag", kText, got<Attribute, &Attribute::tag>, put<Attribute, OdString, &Attribute::setTag>, 2);
constexpr EntityProperty kValue = computed(L"Value", kText, got<Attribute, &Attribute::textString>,
                                           put<Attribute, OdString, &Attribute::setTextString>, 1);
constexpr auto flags(const char* subclass) {
    return list(in(subclass, flag(L"Invisible", 70, 1)), in(subclass, flag(L"Constant", 70, 2)),
                in(subclass, flag(L"Verify", 70, 4)), in(subclass, flag(L"Preset", 70, 8)));
}
constexpr auto kAttribute = [] {
    auto out = list(kTag, kValue, flags("AcDbAttribute"));
    out[3].writable = false; // only its definition says that it is constant
    return out;
}();
constexpr auto kAttributeDefinition = list(kTag, in("AcDbAttributeDefinition", tag(L"Prompt", kText, 3)),
                                           kValue, flags("AcDbAttributeDefinition"));

constexpr auto kMultiText =
    list(computed(L"Contents", kText, got<OdDbMText, &OdDbMText::contents>,
                  put<OdDbMText, OdString, &OdDbMText::setContents>, 1),
         tag(L"TextStyle", kTextStyle, 7), choice(L"Attachment", 71, kAttachment, 1),
         choice(L"Direction", 72, kDrawingDirection, 1), tag(L"Height", kLength, 40),
         computed(L"Rotation", kAngle, got<OdDbMText, &OdDbMText::rotation>, setMTextRotation, 50),
         tag(L"DefinedWidth", kLength, 41), tag(L"DefinedHeight", kLength, 46),
         tag(L"LineSpaceFactor", kReal, 44, 1), choice(L"LineSpaceStyle", 73, kLineSpacing, 1),
         flag(L"BackgroundFill", 90, 1), xyz<L"Position">(10));

constexpr EntityKind kKinds[] = {
    {L"Attribute", "ATTRIB", "AcDbText", kTextOrder, kAttribute, kSingleText},
    {L"Attribute Definition", "ATTDEF", "AcDbText", kTextOrder, kAttributeDefinition, kSingleText},
    {L"MText", "MTEXT", "AcDbMText", kMTextOrder, kMultiText},
    {L"Shape", "SHAPE", {}, {}, {}},
    {L"Text", "TEXT", "AcDbText", kTextOrder, kSingleText},
};

} // namespace

std::span<const EntityKind> textKinds() { return kKinds; }

} // namespace tv::dwg
