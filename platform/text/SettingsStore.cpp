#include "platform/text/SettingsStore.h"

#include "platform/text/AtomicFile.h"
#include "platform/text/Format.h"
#include "platform/text/MessageFile.h"
#include "platform/text/Numbers.h"
#include "platform/text/ReadFile.h"
#include "platform/text/ResourceString.h"
#include "platform/text/Unicode.h"

// Texts are UTF-8 on both sides; the templates are instantiated here, so that no library needs to be linked.
#define SI_NO_CONVERSION
#define SI_IMPLEMENTATION
#include <SimpleIni.h>

#include <algorithm>
#include <limits>

namespace tv {
namespace {

// Sections and keys are names, but may come from a drawing: what would end or comment out a name is written as
// %XX.
std::string encodedName(std::wstring_view name) {
    const std::string utf8 = text::toUtf8(name);
    std::string encoded;
    for (std::size_t i = 0; i < utf8.size(); ++i) {
        const auto c = static_cast<unsigned char>(utf8[i]);
        const bool atEnd = i == 0 || i + 1 == utf8.size();
        if (c < ' ' || (c == ' ' && atEnd) ||
            std::string_view("%=[];#\"").find(utf8[i]) != std::string_view::npos)
            encoded += {'%', "0123456789ABCDEF"[c >> 4], "0123456789ABCDEF"[c & 15]};
        else
            encoded += utf8[i];
    }
    return encoded;
}

Problem notText(const std::filesystem::path& file, std::string_view bytes) {
    if (text::isUtf8(bytes) && bytes.find('\0') == std::string_view::npos) return {};
    std::int64_t line = 1;
    for (std::string_view rest = bytes; !rest.empty(); ++line) {
        const std::string_view first = rest.substr(0, rest.find('\n'));
        if (!text::isUtf8(first) || first.find('\0') != std::string_view::npos) break;
        rest.remove_prefix(std::min(first.size() + 1, rest.size()));
    }
    Problem problem{Tavo::eBadFile, {}, text::fromUtf8(file.native()), line};
    problem.sentence = text::format(
        VORD_ResourceString(
            "IDS_TAVO_SETTINGS_NOT_TEXT",
            L"설정 파일 \"%s\"의 %d번째 줄이 UTF-8 텍스트가 아니어서 설정을 읽거나 저장하지 않습니다."),
        problem.file, line);
    return problem;
}

} // namespace

std::optional<int> SettingsStore::getInt(std::wstring_view section, std::wstring_view key) const {
    const auto value = getString(section, key);
    const auto number = value ? text::parseInt(*value) : std::nullopt;
    if (!number || *number < std::numeric_limits<int>::min() || *number > std::numeric_limits<int>::max())
        return std::nullopt;
    return static_cast<int>(*number);
}

void SettingsStore::setInt(std::wstring_view section, std::wstring_view key, int value) {
    setString(section, key, text::printInt(value));
}

std::optional<std::wstring> MemorySettingsStore::getString(std::wstring_view section,
                                                           std::wstring_view key) const {
    const auto at = m_values.find({std::wstring(section), std::wstring(key)});
    return at == m_values.end() ? std::nullopt : std::optional(at->second);
}

void MemorySettingsStore::setString(std::wstring_view section, std::wstring_view key, std::wstring_view value) {
    m_values[{std::wstring(section), std::wstring(key)}] = value;
}

void MemorySettingsStore::erase(std::wstring_view section, std::wstring_view key) {
    m_values.erase({std::wstring(section), std::wstring(key)});
}

void MemorySettingsStore::eraseSection(std::wstring_view section) {
    std::erase_if(m_values, [&](const auto& entry) { return entry.first.first == section; });
}

struct FileSettingsStore::Ini {
    CSimpleIniCaseA file{true};
};

FileSettingsStore::FileSettingsStore(const std::filesystem::path& file)
    : m_ini(std::make_unique<Ini>()), m_file(file) {
    m_ini->file.SetAllowKeyOnly(); // lines without an equals sign are somebody's too
    std::string bytes;
    m_problem = readFile(file, bytes);
    if (m_problem.status == Tavo::eFileNotFound) m_problem = {};
    if (!m_problem) m_problem = notText(file, bytes);
    if (!m_problem) m_ini->file.LoadData(bytes);
}

FileSettingsStore::~FileSettingsStore() = default;

std::optional<std::wstring> FileSettingsStore::getString(std::wstring_view section,
                                                         std::wstring_view key) const {
    const char* value = m_ini->file.GetValue(encodedName(section).c_str(), encodedName(key).c_str());
    return value ? std::optional(text::unquoteMessageText(value)) : std::nullopt;
}

void FileSettingsStore::setString(std::wstring_view section, std::wstring_view key, std::wstring_view value) {
    if (getString(section, key) == value) return;
    m_ini->file.SetValue(encodedName(section).c_str(), encodedName(key).c_str(),
                         text::quoteMessageText(value).c_str());
    m_changed = true;
}

void FileSettingsStore::erase(std::wstring_view section, std::wstring_view key) {
    if (m_ini->file.Delete(encodedName(section).c_str(), encodedName(key).c_str(), true)) m_changed = true;
}

void FileSettingsStore::eraseSection(std::wstring_view section) {
    if (m_ini->file.Delete(encodedName(section).c_str(), nullptr)) m_changed = true;
}

Problem FileSettingsStore::flush() {
    if (m_problem) return m_problem;
    if (!m_changed) return {};
    std::string bytes;
    m_ini->file.Save(bytes);
    std::error_code ignored; // a folder that can't be made is reported by the write that follows
    if (m_file.has_parent_path()) std::filesystem::create_directories(m_file.parent_path(), ignored);
    Problem problem = writeFileAtomically(m_file, bytes);
    if (!problem) m_changed = false;
    return problem;
}

} // namespace tv
