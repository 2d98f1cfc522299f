#pragma once

#include "platform/Export.h"
#include "platform/text/Problem.h"

#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace tv {

// What the program remembers from one run to the next: texts under (section, key), both case sensitive.
// No name or text contains a NUL.
class KXPLATFORM_EXPORT SettingsStore {
  public:
    virtual ~SettingsStore() = default;

    virtual std::optional<std::wstring> getString(std::wstring_view section, std::wstring_view key) const = 0;
    virtual void setString(std::wstring_view section, std::wstring_view key, std::wstring_view value) = 0;
    virtual void erase(std::wstring_view section, std::wstring_view key) = 0;
    virtual void eraseSection(std::wstring_view section) = 0;
    // Makes what was set lasting. After a problem it can be tried again.
    virtual Problem flush() = 0;

    // Nothing too when the stored text is no whole number that fits.
    std::optional<int> getInt(std::wstring_view section, std::wstring_view key) const;
    void setInt(std::wstring_view section, std::wstring_view key, int value);
};

// Forgets everything with the process.
class KXPLATFORM_EXPORT MemorySettingsStore : public SettingsStore {
  public:
    std::optional<std::wstring> getString(std::wstring_view section, std::wstring_view key) const override;
    void setString(std::wstring_view section, std::wstring_view key, std::wstring_view value) override;
    void erase(std::wstring_view section, std::wstring_view key) override;
    void eraseSection(std::wstring_view section) override;
    Problem flush() override { return {}; }

  private:
    std::map<std::pair<std::wstring, std::wstring>, std::wstring> m_values;
};

// Keeps the settings in a readable UTF-8 INI file, which is read at construction and replaced as a whole by
// flush. Comments and settings of others stay in it.
class KXPLATFORM_EXPORT FileSettingsStore : public SettingsStore {
  public:
    explicit FileSettingsStore(const std::filesystem::path& file);
    ~FileSettingsStore() override;

    // Why the file could not be read; a missing file is no problem. Such a file is never written over: flush
    // gives the same problem again.
    const Problem& problem() const { return m_problem; }

    std::optional<std::wstring> getString(std::wstring_view section, std::wstring_view key) const override;
    void setString(std::wstring_view section, std::wstring_view key, std::wstring_view value) override;
    void erase(std::wstring_view section, std::wstring_view key) override;
    void eraseSection(std::wstring_view section) override;
    // Creates the folder too when it does not exist. Does nothing when nothing was changed.
    Problem flush() override;

  private:
    struct Ini;
    std::unique_ptr<Ini> m_ini;
    std::filesystem::path m_file;
    Problem m_problem;
    bool m_changed = false;
};

} // namespace tv
