#include "platform/host/embedded/DefaultCommands.h"

#include "platform/drawing/OdDbDatabase.h"
#include "platform/text/Format.h"
#include "platform/text/ResourceString.h"
#include "platform/text/Unicode.h"

#include <bit>
#include <exception>
#include <optional>

namespace tv::host {

namespace {

// The name behind what was typed: "_.units " is UNITS.
std::wstring commandName(const OdString& typed) {
    std::wstring_view name = typed.view();
    while (!name.empty() && std::wstring_view(L"_.' \t").find(name.front()) != std::wstring_view::npos)
        name.remove_prefix(1);
    while (!name.empty() && (name.back() == L' ' || name.back() == L'\t'))
        name.remove_suffix(1);
    return text::toUpper(name);
}

} // namespace

Tavo::ErrorStatus DefaultCommands::add(const OdString& name, Function function, Undo undo) {
    const std::wstring key = commandName(name);
    if (key.empty() || !function) return Tavo::eInvalidInput;
    if (m_commands.contains(key) || m_aliases.contains(key)) return Tavo::eDuplicate;
    m_commands.emplace(key, Command{std::move(function), undo});
    return Tavo::eOk;
}

Tavo::ErrorStatus DefaultCommands::addAlias(const OdString& alias, const OdString& name) {
    const std::wstring key = commandName(alias);
    if (key.empty()) return Tavo::eInvalidInput;
    const auto command = find(name);
    if (command == m_commands.end()) return Tavo::eKeyNotFound;
    if (m_commands.contains(key) || m_aliases.contains(key)) return Tavo::eDuplicate;
    m_aliases.emplace(key, command->first);
    return Tavo::eOk;
}

std::vector<OdString> DefaultCommands::names() const {
    std::vector<OdString> names;
    for (const auto& [name, command] : m_commands)
        names.emplace_back(name);
    return names;
}

DefaultCommands::Commands::const_iterator DefaultCommands::find(const OdString& typed) const {
    const std::wstring name = commandName(typed);
    const auto alias = m_aliases.find(name);
    return m_commands.find(alias == m_aliases.end() ? name : alias->second);
}

int DefaultCommands::run(const OdString& name) {
    const auto command = find(name);
    if (command == m_commands.end()) {
        m_commandLine.print(
            text::format(VORD_ResourceString("IDS_TAVO_COMMAND_UNKNOWN", L"알 수 없는 명령 \"%s\"입니다."),
                         commandName(name)));
        return RTERROR;
    }
    // A copy: the command may add or replace commands while it runs.
    const auto [key, copy] = *command;
    return call(key, copy);
}

int DefaultCommands::call(const std::wstring& name, const Command& command) {
    auto* document = m_documents.isClosing() ? nullptr : m_documents.currentDocument();
    TavoEdCommandContext context(document ? document->database() : nullptr, document);
    std::optional<OdDbUndoScope> undo;
    if (context.database() && command.undo == Undo::kOneStep) undo.emplace(*context.database(), L"_" + name);
    m_running.emplace_back(name);
    beginActivity(kActiveCommand);
    int result = RTERROR;
    const wchar_t* failed = nullptr;
    std::wstring reason;
    try {
        result = command.function(context);
    } catch (const std::exception& error) {
        failed = name.c_str();
        reason = text::fromUtf8(error.what());
    } catch (...) {
        failed = name.c_str();
    }
    endActivity(kActiveCommand);
    m_running.pop_back();
    if (failed)
        m_commandLine.print(text::format(
            VORD_ResourceString("IDS_TAVO_COMMAND_FAILED", L"명령 %s이(가) 오류로 중단되었습니다: %s"), failed,
            reason));
    return result;
}

int DefaultCommands::activity() const {
    int bits = 0;
    for (std::size_t i = 0; i < m_activities.size(); ++i)
        if (m_activities[i] > 0) bits |= 1 << i;
    return bits;
}

void DefaultCommands::beginActivity(TavoCommandActivity bit) { count(bit, 1); }
void DefaultCommands::endActivity(TavoCommandActivity bit) { count(bit, -1); }

void DefaultCommands::count(TavoCommandActivity bit, int step) {
    const int before = activity();
    int& depth = m_activities[static_cast<std::size_t>(std::countr_zero(static_cast<unsigned>(bit)))];
    if (depth + step < 0) return;
    depth += step;
    if (activity() != before) m_activityChanged.notify(activity());
}

} // namespace tv::host
