#pragma once

#include "platform/Export.h"
#include "platform/host/TavoFonts.h"

#include <filesystem>
#include <memory>
#include <optional>

namespace tv::host {

// The machine's fonts, looked for when somebody first asks.
class KXPLATFORM_EXPORT DefaultFonts final : public TavoFonts {
  public:
    DefaultFonts();
    ~DefaultFonts() override;
    DefaultFonts(const DefaultFonts&) = delete;
    DefaultFonts& operator=(const DefaultFonts&) = delete;

    // The fonts of these folders instead of the machine's.
    void setFolders(std::vector<std::filesystem::path> folders);
    // Where files of stroked fonts are looked for, in this order; nowhere until set.
    void setShapeFolders(std::vector<std::filesystem::path> folders);

    std::vector<OdString> families() const override;
    std::vector<Style> styles(const OdString& family) const override;
    std::vector<OdString> shapeFonts() const override;

  private:
    struct Found;
    const Found& found() const;

    std::optional<std::vector<std::filesystem::path>> m_folders;
    std::vector<std::filesystem::path> m_shapeFolders;
    mutable std::unique_ptr<Found> m_found;
    mutable std::optional<std::vector<OdString>> m_shapeFonts;
};

// Whether a file is one of stroked fonts, by how it begins.
KXPLATFORM_EXPORT bool isShapeFontFile(const std::filesystem::path& file);

} // namespace tv::host
