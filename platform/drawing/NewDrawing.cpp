#include "platform/drawing/HeaderValue.h"
#include "platform/drawing/OdDbDatabase.h"

#include <array>
#include <string>
#include <utility>

// The smallest drawings other programs open, written by rule: every record that a version requires and no more.
namespace {

using OdDb::DxfVersion;

class Writer {
  public:
    explicit Writer(DxfVersion version) : m_full(version >= DxfVersion::kR2000), m_version(version) {}

    std::string write() {
        std::string head;
        sections();
        std::swap(head, m_out);
        header(); // last, for it names the next free handle
        return m_out + head;
    }

  private:
    void tag(int code, const std::string& value) {
        std::string number = std::to_string(code);
        if (number.size() < 3) number.insert(0, 3 - number.size(), ' ');
        m_out += number + "\r\n" + value + "\r\n";
    }
    void tag(int code, int value) { tag(code, std::to_string(value)); }
    void start(const std::string& section) {
        tag(0, "SECTION");
        tag(2, section);
    }
    static std::string hex(int handle) { return OdDbHandle(static_cast<std::uint64_t>(handle)).ascii(); }
    int fresh() { return m_nextHandle++; }

    void header() {
        start("HEADER");
        const auto var = [&](const char* name, int code, const std::string& value) {
            tag(9, std::string("$") + name);
            tag(code, value);
        };
        const auto point = [&](const char* name, const char* x, const char* y, const char* z) {
            var(name, 10, x);
            tag(20, y);
            if (z) tag(30, z);
        };
        var("ACADVER", 1, tv::dwg::versionText(m_version));
        if (m_full) var("DWGCODEPAGE", 3, "ANSI_1252");
        point("INSBASE", "0.0", "0.0", "0.0");
        point("EXTMIN", "1e+20", "1e+20", "1e+20");
        point("EXTMAX", "-1e+20", "-1e+20", "-1e+20");
        point("LIMMIN", "0.0", "0.0", nullptr);
        point("LIMMAX", "420.0", "297.0", nullptr);
        var("LTSCALE", 40, "1.0");
        var("TEXTSIZE", 40, "2.5");
        var("TEXTSTYLE", 7, "Standard");
        var("CLAYER", 8, "0");
        var("CELTYPE", 6, m_full ? "ByLayer" : "BYLAYER");
        var("CECOLOR", 62, "256");
        if (m_full) var("CELTSCALE", 40, "1.0");
        // The drawing's own dimension variables say what its style does.
        for (const auto& [name, code, value] : kDimensions)
            if (std::string(name) != "DIMGAP") var(name, code > 70 && code < 80 ? 70 : 40, value);
        var("DIMSTYLE", 2, m_full ? "Standard" : "STANDARD");
        var("DIMGAP", 40, "0.625");
        if (m_full) var("DIMTXSTY", 7, "Standard");
        var("LUNITS", 70, "2");
        var("LUPREC", 70, "4");
        var("AUNITS", 70, "0");
        var("AUPREC", 70, "0");
        var("ANGBASE", 50, "0.0");
        var("ANGDIR", 70, "0");
        if (!m_full) var("HANDLING", 70, "1");
        var("HANDSEED", 5, hex(m_nextHandle));
        var("TILEMODE", 70, "1");
        if (m_full) {
            var("CMLSTYLE", 2, "Standard");
            var("MEASUREMENT", 70, "1");
            var("CELWEIGHT", 370, "-1");
            var("LWDISPLAY", 290, "0");
            var("INSUNITS", 70, "4");
            var("PSTYLEMODE", 290, "1");
        }
        tag(0, "ENDSEC");
    }

    void sections() {
        if (m_full) {
            start("CLASSES");
            classes();
            tag(0, "ENDSEC");
        }
        start("TABLES");
        tables();
        tag(0, "ENDSEC");
        start("BLOCKS");
        if (m_full)
            for (int i = 0; i < 2; ++i)
                block(i);
        tag(0, "ENDSEC");
        start("ENTITIES");
        tag(0, "ENDSEC");
        if (m_full) {
            start("OBJECTS");
            objects();
            tag(0, "ENDSEC");
        }
        tag(0, "EOF");
    }

    // The kinds of objects that a reader has to be told about.
    void classes() {
        const auto one = [&](const char* name, const char* type, int flags, int count) {
            tag(0, "CLASS");
            tag(1, name);
            tag(2, type);
            tag(3, "ObjectDBX Classes");
            tag(90, flags);
            if (m_version >= DxfVersion::kR2004) tag(91, count);
            tag(280, 0);
            tag(281, 0);
        };
        one("ACDBDICTIONARYWDFLT", "AcDbDictionaryWithDefault", 0, 1);
        if (m_version < DxfVersion::kR2004) {
            one("ACDBPLACEHOLDER", "AcDbPlaceHolder", 0, 1);
            one("LAYOUT", "AcDbLayout", 0, 2);
        }
        if (hasScales()) one("SCALE", "AcDbScale", 1153, 1);
    }
    bool hasScales() const { return m_version >= DxfVersion::kR2007; }

    // Start of a table; its records hang below the handle kept in m_table.
    void table(const char* name, int count) {
        tag(0, "TABLE");
        tag(2, name);
        if (m_full) {
            m_table = fresh();
            tag(5, hex(m_table));
            tag(330, "0");
            tag(100, "AcDbSymbolTable");
        }
        tag(70, count);
        if (m_full && std::string(name) == "DIMSTYLE") {
            tag(100, "AcDbDimStyleTable");
            tag(71, 1);
        }
    }
    int record(const char* type, const char* subclass, const std::string& name, int handleCode = 5) {
        tag(0, type);
        const int handle = fresh();
        // Table records of the old versions carry no handle.
        if (m_full) {
            tag(handleCode, hex(handle));
            tag(330, hex(m_table));
            tag(100, "AcDbSymbolTableRecord");
            tag(100, subclass);
        }
        tag(2, name);
        return handle;
    }
    void points(std::initializer_list<std::pair<int, const char*>> tags) {
        for (const auto& [code, value] : tags)
            tag(code, value);
    }

    void tables() {
        table("VPORT", 1);
        record("VPORT", "AcDbViewportTableRecord", "*ACTIVE");
        points({{70, "0"},     {10, "0.0"},   {20, "0.0"}, {11, "1.0"},  {21, "1.0"},  {12, "210.0"},
                {22, "148.5"}, {13, "0.0"},   {23, "0.0"}, {14, "10.0"}, {24, "10.0"}, {15, "10.0"},
                {25, "10.0"},  {16, "0.0"},   {26, "0.0"}, {36, "1.0"},  {17, "0.0"},  {27, "0.0"},
                {37, "0.0"},   {40, "297.0"}, {41, "1.5"}, {42, "50.0"}, {43, "0.0"},  {44, "0.0"},
                {50, "0.0"},   {51, "0.0"},   {71, "0"},   {72, "100"},  {73, "1"},    {74, "3"},
                {75, "0"},     {76, "0"},     {77, "0"},   {78, "0"}});
        tag(0, "ENDTAB");

        table("LTYPE", m_full ? 3 : 1);
        const auto linetype = [&](const char* name, const char* text) {
            record("LTYPE", "AcDbLinetypeTableRecord", name);
            points({{70, "0"}, {3, text}, {72, "65"}, {73, "0"}, {40, "0.0"}});
        };
        if (m_full) {
            linetype("ByBlock", "");
            linetype("ByLayer", "");
        }
        linetype(m_full ? "Continuous" : "CONTINUOUS", "Solid line");
        tag(0, "ENDTAB");

        table("LAYER", 1);
        // The plot style a layer names is written with the objects, whose handle is known beforehand.
        m_plotStyle = fresh();
        record("LAYER", "AcDbLayerTableRecord", "0");
        points({{70, "0"}, {62, "7"}, {6, m_full ? "Continuous" : "CONTINUOUS"}});
        if (m_full) {
            tag(370, -3);
            tag(390, hex(m_plotStyle));
        }
        tag(0, "ENDTAB");

        table("STYLE", 1);
        m_textStyle = record("STYLE", "AcDbTextStyleTableRecord", "Standard");
        points({{70, "0"}, {40, "0.0"}, {41, "1.0"}, {50, "0.0"}, {71, "0"}, {42, "2.5"}, {3, "txt"}, {4, ""}});
        tag(0, "ENDTAB");

        table("VIEW", 0);
        tag(0, "ENDTAB");
        table("UCS", 0);
        tag(0, "ENDTAB");
        table("APPID", 1);
        record("APPID", "AcDbRegAppTableRecord", "ACAD");
        tag(70, 0);
        tag(0, "ENDTAB");
        table("DIMSTYLE", 1);
        record("DIMSTYLE", "AcDbDimStyleTableRecord", m_full ? "Standard" : "STANDARD", 105);
        tag(70, 0);
        if (!m_full) points({{3, ""}, {4, ""}, {5, ""}, {6, ""}, {7, ""}});
        for (const auto& [name, code, value] : kDimensions)
            tag(code, value);
        if (m_full) tag(340, hex(m_textStyle));
        tag(0, "ENDTAB");

        if (!m_full) return;
        table("BLOCK_RECORD", 2);
        for (std::size_t i = 0; i < 2; ++i) {
            m_layouts[i] = fresh();
            m_blocks[i] = record("BLOCK_RECORD", "AcDbBlockTableRecord", kBlockNames[i]);
            tag(340, hex(m_layouts[i]));
        }
        tag(0, "ENDTAB");
    }

    void block(int i) {
        const auto n = static_cast<std::size_t>(i);
        const auto common = [&](const char* type, const char* subclass) {
            tag(0, type);
            tag(5, hex(fresh()));
            tag(330, hex(m_blocks[n]));
            tag(100, "AcDbEntity");
            if (i == 1) tag(67, 1);
            tag(8, "0");
            tag(100, subclass);
        };
        common("BLOCK", "AcDbBlockBegin");
        points({{2, kBlockNames[n]},
                {70, "0"},
                {10, "0.0"},
                {20, "0.0"},
                {30, "0.0"},
                {3, kBlockNames[n]},
                {1, ""}});
        common("ENDBLK", "AcDbBlockEnd");
    }

    void object(const char* type, int handle, int owner, const char* subclass) {
        tag(0, type);
        tag(5, hex(handle));
        tag(330, owner ? hex(owner) : "0");
        if (subclass) tag(100, subclass);
    }

    void objects() {
        const int root = fresh();
        const int groups = fresh();
        const int layouts = fresh();
        const int lines = fresh();
        const int settings = fresh();
        const int plotStyles = fresh();
        const int scales = hasScales() ? fresh() : 0;
        const auto entry = [&](const char* name, int handle) {
            tag(3, name);
            tag(350, hex(handle));
        };
        object("DICTIONARY", root, 0, "AcDbDictionary");
        tag(281, 1);
        entry("ACAD_GROUP", groups);
        entry("ACAD_LAYOUT", layouts);
        entry("ACAD_MLINESTYLE", lines);
        entry("ACAD_PLOTSETTINGS", settings);
        entry("ACAD_PLOTSTYLENAME", plotStyles);
        if (scales) entry("ACAD_SCALELIST", scales);
        object("DICTIONARY", groups, root, "AcDbDictionary");
        tag(281, 1);
        object("DICTIONARY", layouts, root, "AcDbDictionary");
        tag(281, 1);
        entry("Model", m_layouts[0]);
        entry("Layout1", m_layouts[1]);
        const int line = fresh();
        object("DICTIONARY", lines, root, "AcDbDictionary");
        tag(281, 1);
        entry("Standard", line);
        object("DICTIONARY", settings, root, "AcDbDictionary");
        tag(281, 1);
        object("ACDBDICTIONARYWDFLT", plotStyles, root, "AcDbDictionary");
        tag(281, 1);
        entry("Normal", m_plotStyle);
        tag(100, "AcDbDictionaryWithDefault");
        tag(340, hex(m_plotStyle));
        object("ACDBPLACEHOLDER", m_plotStyle, plotStyles, nullptr);
        object("MLINESTYLE", line, lines, "AcDbMlineStyle");
        points({{2, "STANDARD"},
                {70, "0"},
                {3, ""},
                {62, "256"},
                {51, "90.0"},
                {52, "90.0"},
                {71, "2"},
                {49, "0.5"},
                {62, "256"},
                {6, "BYLAYER"},
                {49, "-0.5"},
                {62, "256"},
                {6, "BYLAYER"}});
        if (scales) {
            const int whole = fresh();
            object("DICTIONARY", scales, root, "AcDbDictionary");
            tag(281, 1);
            entry("A0", whole);
            object("SCALE", whole, scales, "AcDbScale");
            points({{70, "0"}, {300, "1:1"}, {140, "1.0"}, {141, "1.0"}, {290, "1"}});
        }
        for (int i = 0; i < 2; ++i)
            layout(i, layouts);
    }

    void layout(int i, int owner) {
        const auto n = static_cast<std::size_t>(i);
        object("LAYOUT", m_layouts[n], owner, "AcDbPlotSettings");
        points({{1, ""},
                {2, ""},
                {4, ""},
                {6, ""},
                {40, "0.0"},
                {41, "0.0"},
                {42, "0.0"},
                {43, "0.0"},
                {44, "0.0"},
                {45, "0.0"},
                {46, "0.0"},
                {47, "0.0"},
                {48, "0.0"},
                {49, "0.0"},
                {140, "0.0"},
                {141, "0.0"},
                {142, "1.0"},
                {143, "1.0"}});
        tag(70, i == 0 ? 1712 : 688);
        points(
            {{72, "0"}, {73, "0"}, {74, "5"}, {7, ""}, {75, "16"}, {147, "1.0"}, {148, "0.0"}, {149, "0.0"}});
        tag(100, "AcDbLayout");
        tag(1, i == 0 ? "Model" : "Layout1");
        tag(70, 1);
        tag(71, i);
        points({{10, "0.0"},    {20, "0.0"},   {11, "420.0"}, {21, "297.0"}, {12, "0.0"},    {22, "0.0"},
                {32, "0.0"},    {14, "1e+20"}, {24, "1e+20"}, {34, "1e+20"}, {15, "-1e+20"}, {25, "-1e+20"},
                {35, "-1e+20"}, {146, "0.0"},  {13, "0.0"},   {23, "0.0"},   {33, "0.0"},    {16, "1.0"},
                {26, "0.0"},    {36, "0.0"},   {17, "0.0"},   {27, "1.0"},   {37, "0.0"},    {76, "0"}});
        tag(330, hex(m_blocks[n]));
    }

    // What a metric dimension style sets: header variable, group code in the style, value.
    struct Dimension {
        const char* name;
        int code;
        const char* value;
    };
    static constexpr std::array<Dimension, 9> kDimensions = {{{"DIMSCALE", 40, "1.0"},
                                                              {"DIMASZ", 41, "2.5"},
                                                              {"DIMEXO", 42, "0.625"},
                                                              {"DIMDLI", 43, "3.75"},
                                                              {"DIMEXE", 44, "1.25"},
                                                              {"DIMTXT", 140, "2.5"},
                                                              {"DIMCEN", 141, "2.5"},
                                                              {"DIMTAD", 77, "1"},
                                                              {"DIMGAP", 147, "0.625"}}};
    static constexpr std::array<const char*, 2> kBlockNames = {"*Model_Space", "*Paper_Space"};

    bool m_full; // with handles, subclasses and objects
    DxfVersion m_version;
    std::string m_out;
    int m_nextHandle = 1;
    int m_table = 0;
    int m_plotStyle = 0;
    int m_textStyle = 0;
    std::array<int, 2> m_blocks{};
    std::array<int, 2> m_layouts{};
};

} // namespace

OdDbDatabasePtr OdDbDatabase::create(OdDb::DxfVersion version) {
    if (version == DxfVersion::kUnknown) version = DxfVersion::kR2018;
    if (version == DxfVersion::kR13 || version == DxfVersion::kR14) version = DxfVersion::kR2000;
    return openBytes(Writer(version).write()).database;
}
