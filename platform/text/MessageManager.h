#pragma once

#include "platform/Export.h"
#include "platform/text/MessageCatalog.h"
#include "platform/text/Problem.h"
#include "platform/text/ResourceString.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

// The process-wide message manager: the texts of the current language. GUI thread only. It lives until the
// process ends, and every text it gave out with it, whatever is loaded later.
class KXPLATFORM_EXPORT CNativeRCMsgMgr {
  public:
    static CNativeRCMsgMgr* getInstance();

    // The text of one control of one dialog; `controlName` "CAPTION" asks for the window title. Without an
    // entry in the message files it is a kept copy of the default. Never null; null arguments count as empty.
    const wchar_t* GetVal(const wchar_t* dialogName, const wchar_t* controlName, const wchar_t* defaultText);

    // Goes up with every load, so that what was made of texts can be told to be out of date.
    unsigned generation() const { return m_generation; }

    // Whether the message files say anything about this dialog.
    bool hasDialog(std::string_view dialogName) const { return m_catalog.hasSection(dialogName); }
    // As GetVal for names in ASCII; null when the message files have no such text.
    const wchar_t* controlText(std::string_view dialogName, std::string_view controlName) {
        return m_catalog.find(dialogName, controlName);
    }

    // The text of a plain key, or `defaultText` itself. Use VORD_ResourceString instead.
    const wchar_t* textFor(const char* key, const wchar_t* defaultText);

    CNativeRCMsgMgr(const CNativeRCMsgMgr&) = delete;
    CNativeRCMsgMgr& operator=(const CNativeRCMsgMgr&) = delete;

  private:
    friend class VORD_MSGFunction;
    struct File {
        std::filesystem::path path;
        std::filesystem::path base; // the path without language suffix; empty when the file has no language
        bool follows = false;       // the next switch of the language takes another file of the same base
    };

    CNativeRCMsgMgr() = default;
    void addFile(File file);
    bool load();

    tv::text::TextPool m_pool;
    tv::text::MessageCatalog m_catalog{m_pool};
    std::vector<File> m_files;
    std::vector<tv::Problem> m_problems;
    std::vector<std::weak_ptr<std::function<void()>>> m_listeners;
    unsigned m_generation = 0;
    std::uint16_t m_language = 1042;
    std::uint16_t m_loadedLanguage = 1042;
};

// Language and message files of the process. GUI thread only.
class KXPLATFORM_EXPORT VORD_MSGFunction {
  public:
    // Windows language id; Korean (1042) until set. A new id takes effect with the next LoadFile.
    static std::uint16_t GetCurrentLanguageId();
    static void SetCurrentLanguageId(std::uint16_t id);

    // Adds a file by its full name, read by the next LoadFile. A name that ends in a language suffix is read as
    // it is now and follows the language at the next switch. Adding a file again changes nothing.
    static void AddFile(const std::filesystem::path& path);
    // Adds "<base><suffix>" for whatever language is current when LoadFile runs.
    static void AddFileBase(const std::filesystem::path& base);

    // Reads all added files anew; where several have a key, the file added last counts. A missing file is
    // passed over. False when a file can't be read or has broken lines, see problems(); all good lines are
    // loaded nevertheless. Listeners are told when the language is another one than at the load before.
    static bool LoadFile();
    // What the last LoadFile found wrong, in the order of files and lines.
    static const std::vector<tv::Problem>& problems();

    // Forgets all files and texts and goes back to Korean; texts given out stay valid, listeners stay
    // registered.
    static void Reset();

    // What message files of the language end in, e.g. "_en.ini"; "_kr.ini" for an id that is not delivered.
    static const char* languageSuffix(std::uint16_t id);
    // "<folder of the executable>/<baseName><suffix>"; the folder is what remains of the executable's full path
    // when it is cut after its last slash or backslash.
    static std::filesystem::path messageFileFor(const std::filesystem::path& executablePath,
                                                const std::filesystem::path& baseName, std::uint16_t id);

    // Calls `listener` after each language switch until the returned handle is destroyed.
    [[nodiscard]] static std::shared_ptr<void> onLanguageChanged(std::function<void()> listener);
};
