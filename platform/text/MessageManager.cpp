#include "platform/text/MessageManager.h"

#include "platform/text/FileError.h"
#include "platform/text/Format.h"
#include "platform/text/Language.h"
#include "platform/text/ReadFile.h"
#include "platform/text/Unicode.h"

#include <algorithm>
#include <utility>

namespace {

// A file of another kind can have a fault in every line; nobody reads more than this many.
constexpr int maxFaultsPerFile = 50;

struct Fault {
    std::filesystem::path file;
    tv::text::MessageFault kind;
    std::int64_t line;
};

std::wstring faultReason(tv::text::MessageFault kind) {
    using tv::text::MessageFault;
    switch (kind) {
    case MessageFault::NoEquals:
        return VORD_ResourceString("IDS_TAVO_MSGFILE_NO_EQUALS", L"'='가 없습니다").c_str();
    case MessageFault::EmptyKey:
        return VORD_ResourceString("IDS_TAVO_MSGFILE_NO_KEY", L"'=' 앞에 키가 없습니다").c_str();
    case MessageFault::BadSection:
        return VORD_ResourceString("IDS_TAVO_MSGFILE_SECTION", L"[섹션] 이름이 올바르지 않아 그 아래 줄도 읽지 않았습니다").c_str();
    case MessageFault::UnknownEscape:
        return VORD_ResourceString("IDS_TAVO_MSGFILE_ESCAPE", L"백슬래시 뒤에 알 수 없는 문자가 있습니다")
            .c_str();
    case MessageFault::OpenQuote:
        return VORD_ResourceString("IDS_TAVO_MSGFILE_QUOTE", L"큰따옴표의 짝이 맞지 않습니다").c_str();
    case MessageFault::NotUtf8:
        return VORD_ResourceString("IDS_TAVO_MSGFILE_UTF8", L"UTF-8 텍스트가 아닙니다").c_str();
    case MessageFault::DuplicateKey:
        return VORD_ResourceString("IDS_TAVO_MSGFILE_DUPLICATE", L"같은 키가 앞에 이미 있습니다").c_str();
    }
    return {};
}

tv::Problem problemOf(const Fault& fault) {
    tv::Problem problem{Tavo::eBadFile, {}, tv::text::fromUtf8(fault.file.native()), fault.line};
    problem.sentence = tv::text::format(
        VORD_ResourceString("IDS_TAVO_MSGFILE_LINE", L"메시지 파일 \"%s\"의 %d번째 줄을 읽지 않았습니다: %s."),
        problem.file, fault.line, faultReason(fault.kind));
    return problem;
}

// Names in message files are ASCII or UTF-8.
std::string narrow(const wchar_t* name) { return name ? tv::text::toUtf8(name) : std::string(); }

std::filesystem::path withSuffix(std::filesystem::path base, const char* suffix) { return base += suffix; }

} // namespace

VORD_ResourceString::VORD_ResourceString(const char* key, const wchar_t* defaultText)
    : m_text(CNativeRCMsgMgr::getInstance()->textFor(key, defaultText)) {}

CNativeRCMsgMgr* CNativeRCMsgMgr::getInstance() {
    // Never destroyed: texts may be in use in the destructors of static objects.
    static CNativeRCMsgMgr* const instance = new CNativeRCMsgMgr;
    return instance;
}

const wchar_t* CNativeRCMsgMgr::GetVal(const wchar_t* dialogName, const wchar_t* controlName,
                                       const wchar_t* defaultText) {
    const std::string section = narrow(dialogName);
    const wchar_t* text = section.empty() ? nullptr : m_catalog.find(section, narrow(controlName));
    return text ? text : m_pool.keep(defaultText ? defaultText : L"");
}

const wchar_t* CNativeRCMsgMgr::textFor(const char* key, const wchar_t* defaultText) {
    const wchar_t* text = m_catalog.find({}, key);
    return text ? text : defaultText;
}

void CNativeRCMsgMgr::addFile(File file) {
    const auto same =
        std::find_if(m_files.begin(), m_files.end(), [&](const File& known) { return known.path == file.path; });
    if (same == m_files.end()) m_files.push_back(std::move(file));
}

bool CNativeRCMsgMgr::load() {
    ++m_generation;
    m_problems.clear();
    m_catalog = tv::text::MessageCatalog(m_pool); // the new texts take the memory of the old ones
    std::vector<Fault> faults;
    std::vector<std::filesystem::path> refused;
    for (File& file : m_files) {
        if (m_language != m_loadedLanguage && file.follows)
            file.path = withSuffix(file.base, VORD_MSGFunction::languageSuffix(m_language));
        file.follows = !file.base.empty();
        std::string bytes;
        if (const tv::Problem problem = tv::readFile(file.path, bytes)) {
            if (problem.status != Tavo::eFileNotFound) refused.push_back(file.path);
            continue;
        }
        int count = 0;
        m_catalog.add(std::move(bytes), [&](tv::text::MessageFault kind, std::int64_t line) {
            if (count++ < maxFaultsPerFile) faults.push_back({file.path, kind, line});
        });
    }
    // Only now, so that the sentences are in the language just loaded.
    std::string bytes;
    for (const auto& path : refused)
        if (tv::Problem problem = tv::readFile(path, bytes)) m_problems.push_back(std::move(problem));
    for (const Fault& fault : faults)
        m_problems.push_back(problemOf(fault));

    if (m_language != std::exchange(m_loadedLanguage, m_language)) {
        const auto listeners = m_listeners;
        for (const auto& weak : listeners)
            if (const auto listener = weak.lock()) (*listener)();
    }
    return m_problems.empty();
}

std::uint16_t VORD_MSGFunction::GetCurrentLanguageId() { return CNativeRCMsgMgr::getInstance()->m_language; }

void VORD_MSGFunction::SetCurrentLanguageId(std::uint16_t id) {
    CNativeRCMsgMgr::getInstance()->m_language = id;
}

void VORD_MSGFunction::AddFile(const std::filesystem::path& path) {
    std::filesystem::path base;
    if (const auto* language = tv::text::languageOfFile(path.c_str())) {
        const std::string& name = path.native();
        base = name.substr(0, name.size() - std::string_view(language->fileSuffix).size());
    }
    CNativeRCMsgMgr::getInstance()->addFile({path, base, false});
}

void VORD_MSGFunction::AddFileBase(const std::filesystem::path& base) {
    CNativeRCMsgMgr::getInstance()->addFile({withSuffix(base, languageSuffix(GetCurrentLanguageId())), base, true});
}

bool VORD_MSGFunction::LoadFile() { return CNativeRCMsgMgr::getInstance()->load(); }

const std::vector<tv::Problem>& VORD_MSGFunction::problems() {
    return CNativeRCMsgMgr::getInstance()->m_problems;
}

void VORD_MSGFunction::Reset() {
    CNativeRCMsgMgr& manager = *CNativeRCMsgMgr::getInstance();
    manager.m_files.clear();
    manager.m_language = tv::text::languageFor(0).id;
    manager.load();
}

const char* VORD_MSGFunction::languageSuffix(std::uint16_t id) { return tv::text::languageFor(id).fileSuffix; }

std::filesystem::path VORD_MSGFunction::messageFileFor(const std::filesystem::path& executablePath,
                                                       const std::filesystem::path& baseName,
                                                       std::uint16_t id) {
    const std::string& executable = executablePath.native();
    const std::string folder = executable.substr(0, executable.find_last_of("/\\") + 1);
    return folder + baseName.native() + languageSuffix(id);
}

std::shared_ptr<void> VORD_MSGFunction::onLanguageChanged(std::function<void()> listener) {
    auto& listeners = CNativeRCMsgMgr::getInstance()->m_listeners;
    std::erase_if(listeners, [](const auto& weak) { return weak.expired(); });
    auto handle = std::make_shared<std::function<void()>>(std::move(listener));
    listeners.push_back(handle);
    return handle;
}
