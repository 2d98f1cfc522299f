#include "platform/host/embedded/DefaultServices.h"

#include "platform/text/Format.h"
#include "platform/text/ResourceString.h"

namespace tv::host {

void DefaultHelp::search(CWnd*, const OdString& topic) {
    if (topic.isEmpty())
        m_commandLine.print(VORD_ResourceString("IDS_TAVO_HELP_START", L"명령 참조 도움말을 엽니다.").c_str());
    else
        m_commandLine.print(text::format(
            VORD_ResourceString("IDS_TAVO_HELP_TOPIC", L"명령 참조 도움말에서 \"%s\" 항목을 엽니다."), topic));
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
