#include "platform/host/embedded/DefaultFonts.h"

#include "platform/text/Unicode.h"

#include <fontconfig/fontconfig.h>

#include <algorithm>
#include <array>
#include <fstream>
#include <map>
#include <string_view>
#include <tuple>

namespace tv::host {
namespace {

struct Free {
    void operator()(FcConfig* config) const { FcConfigDestroy(config); }
    void operator()(FcPattern* pattern) const { FcPatternDestroy(pattern); }
    void operator()(FcObjectSet* objects) const { FcObjectSetDestroy(objects); }
    void operator()(FcFontSet* fonts) const { FcFontSetDestroy(fonts); }
};
template <class T>
using Owned = std::unique_ptr<T, Free>;

// What a file begins with; shorter when the file is.
std::string beginningOf(const std::filesystem::path& file, std::size_t size) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(file, error)) return {};
    std::ifstream in(file, std::ios::binary);
    std::string bytes(size, '\0');
    in.read(bytes.data(), static_cast<std::streamsize>(size));
    bytes.resize(static_cast<std::size_t>(std::max<std::streamsize>(in.gcount(), 0)));
    return bytes;
}

// The list of fonts may be older than the files.
bool isOutlineFontFile(const std::filesystem::path& file) {
    using namespace std::string_view_literals;
    constexpr std::array beginnings{"\0\1\0\0"sv, "OTTO"sv, "true"sv, "ttcf"sv};
    return std::find(beginnings.begin(), beginnings.end(), beginningOf(file, 4)) != beginnings.end();
}

std::wstring textOf(const FcPattern& font, const char* object) {
    FcChar8* text = nullptr;
    // The first name is the one in English, where the font has one.
    return FcPatternGetString(&font, object, 0, &text) == FcResultMatch
               ? text::fromUtf8(reinterpret_cast<const char*>(text))
               : std::wstring();
}

int numberOf(const FcPattern& font, const char* object, int otherwise) {
    int number = otherwise;
    return FcPatternGetInteger(&font, object, 0, &number) == FcResultMatch ? number : otherwise;
}

} // namespace

struct DefaultFonts::Found {
    struct Face {
        Style style;
        int slant = 0, weight = 0;
    };
    struct Family {
        std::wstring name;
        std::vector<Face> faces;
    };
    std::map<std::wstring, Family> families; // by folded name

    void add(const FcPattern& font);
    void sort();
};

void DefaultFonts::Found::add(const FcPattern& font) {
    const std::wstring name = textOf(font, FC_FAMILY);
    const std::filesystem::path file = text::toUtf8(textOf(font, FC_FILE));
    // Names that begin with a dot are the system's own.
    if (name.empty() || name.front() == L'.' || !isOutlineFontFile(file)) return;
    Face face;
    face.slant = numberOf(font, FC_SLANT, FC_SLANT_ROMAN);
    face.weight = numberOf(font, FC_WEIGHT, FC_WEIGHT_REGULAR);
    face.style = {textOf(font, FC_STYLE), face.weight >= FC_WEIGHT_DEMIBOLD, face.slant != FC_SLANT_ROMAN};
    Family& family = families[text::foldCase(name)];
    if (family.name.empty()) family.name = name;
    const bool known = std::any_of(family.faces.begin(), family.faces.end(),
                                   [&](const Face& other) { return other.style.name == face.style.name; });
    if (!known) family.faces.push_back(std::move(face));
}

void DefaultFonts::Found::sort() {
    for (auto& [key, family] : families)
        std::stable_sort(family.faces.begin(), family.faces.end(), [](const Face& a, const Face& b) {
            return std::tie(a.slant, a.weight) < std::tie(b.slant, b.weight);
        });
}

DefaultFonts::DefaultFonts() = default;
DefaultFonts::~DefaultFonts() = default;

void DefaultFonts::setFolders(std::vector<std::filesystem::path> folders) {
    m_folders = std::move(folders);
    m_found.reset();
}

void DefaultFonts::setShapeFolders(std::vector<std::filesystem::path> folders) {
    m_shapeFolders = std::move(folders);
    m_shapeFonts.reset();
}

const DefaultFonts::Found& DefaultFonts::found() const {
    if (m_found) return *m_found;
    m_found = std::make_unique<Found>();
    const Owned<FcConfig> config(m_folders ? FcConfigCreate() : FcInitLoadConfigAndFonts());
    if (!config) return *m_found;
    if (m_folders)
        for (const auto& folder : *m_folders)
            FcConfigAppFontAddDir(config.get(), reinterpret_cast<const FcChar8*>(folder.c_str()));
    const Owned<FcPattern> outlines(FcPatternCreate());
    const Owned<FcObjectSet> wanted(
        FcObjectSetBuild(FC_FAMILY, FC_STYLE, FC_SLANT, FC_WEIGHT, FC_FILE, static_cast<char*>(nullptr)));
    if (!outlines || !wanted) return *m_found;
    FcPatternAddBool(outlines.get(), FC_SCALABLE, FcTrue);
    const Owned<FcFontSet> fonts(FcFontList(config.get(), outlines.get(), wanted.get()));
    for (int i = 0; fonts && i < fonts->nfont; ++i)
        m_found->add(*fonts->fonts[i]);
    m_found->sort();
    return *m_found;
}

std::vector<OdString> DefaultFonts::families() const {
    std::vector<OdString> names;
    for (const auto& [key, family] : found().families)
        names.emplace_back(family.name);
    return names;
}

std::vector<TavoFonts::Style> DefaultFonts::styles(const OdString& family) const {
    std::vector<Style> styles;
    const auto at = found().families.find(text::foldCase(family.view()));
    if (at == found().families.end()) return styles;
    for (const Found::Face& face : at->second.faces)
        styles.push_back(face.style);
    return styles;
}

std::vector<OdString> DefaultFonts::shapeFonts() const {
    if (m_shapeFonts) return *m_shapeFonts;
    std::map<std::wstring, OdString> found; // by folded name: the first on the path counts
    for (const auto& folder : m_shapeFolders) {
        std::error_code error;
        for (std::filesystem::directory_iterator it(folder, error), end; !error && it != end;
             it.increment(error)) {
            const std::wstring name = text::fromUtf8(it->path().filename().string());
            const std::wstring folded = text::foldCase(name);
            if (folded.ends_with(L".shx") && isShapeFontFile(it->path())) found.try_emplace(folded, name);
        }
    }
    m_shapeFonts.emplace();
    for (auto& [folded, name] : found)
        m_shapeFonts->push_back(std::move(name));
    return *m_shapeFonts;
}

bool isShapeFontFile(const std::filesystem::path& file) {
    // One line says what the file is; a control character ends it.
    const std::string bytes = beginningOf(file, 64);
    const std::string_view line = std::string_view(bytes).substr(0, bytes.find('\x1a'));
    if (line.size() == bytes.size()) return false;
    for (const std::string_view kind : {" shapes 1.", " unifont 1.", " bigfont 1."})
        if (line.find(kind) != std::string_view::npos) return true;
    return false;
}

} // namespace tv::host
