#include "platform/host/embedded/DefaultServices.h"

#include "platform/text/Format.h"
#include "platform/text/ResourceString.h"

#include <algorithm>
#include <optional>
#include <unordered_set>

namespace tv::host {

void DefaultHelp::search(CWnd*, const OdString& topic) {
    if (topic.isEmpty())
        m_commandLine.print(VORD_ResourceString("IDS_TAVO_HELP_START", L"명령 참조 도움말을 엽니다.").c_str());
    else
        m_commandLine.print(text::format(
            VORD_ResourceString("IDS_TAVO_HELP_TOPIC", L"명령 참조 도움말에서 \"%s\" 항목을 엽니다."), topic));
}

std::vector<OdDbObjectId> DefaultSelection::ids() const {
    std::vector<OdDbObjectId> alive;
    std::ranges::copy_if(m_ids, std::back_inserter(alive),
                         [](const OdDbObjectId& id) { return !id.isErased(); });
    return alive;
}

void DefaultSelection::set(const std::vector<OdDbObjectId>& ids) {
    std::vector<OdDbObjectId> fresh;
    std::unordered_set<OdDbObjectId> seen;
    for (const OdDbObjectId& id : ids)
        if (!id.isErased() && seen.insert(id).second) fresh.push_back(id);
    if (fresh == m_ids) return;
    m_ids = std::move(fresh);
    m_changed.notify();
}

void DefaultSelection::forget(const OdDbDatabase* database) {
    if (std::erase_if(m_ids, [&](const OdDbObjectId& id) { return id.database() == database; }) > 0)
        m_changed.notify();
}

OdString DefaultUnits::formatLinear(double value, int lunits, int luprec, const LengthOptions& options) const {
    return formatLength(value, lunits, luprec, options);
}

Tavo::ErrorStatus DefaultUnits::unformatLinear(const OdString& text, int lunits, double& value) const {
    const auto length = parseLength(text.view(), lunits);
    if (!length) return Tavo::eInvalidInput;
    value = *length;
    return Tavo::eOk;
}

OdString DefaultUnits::formatAngle(double radians, int aunits, int auprec, const AngleOptions& options) const {
    return tv::host::formatAngle(radians, aunits, auprec, options);
}

Tavo::ErrorStatus DefaultUnits::unformatAngle(const OdString& text, int aunits, double& radians) const {
    const auto angle = parseAngle(text.view(), aunits);
    if (!angle) return Tavo::eInvalidInput;
    radians = *angle;
    return Tavo::eOk;
}

bool DefaultUnits::isNumber(const OdString& text, int lunits) const {
    return parseLength(text.view(), lunits).has_value();
}

} // namespace tv::host
