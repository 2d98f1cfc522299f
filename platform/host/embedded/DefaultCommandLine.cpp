#include "platform/host/embedded/DefaultCommandLine.h"

#include <utility>

namespace tv::host {

void DefaultCommandLine::print(const OdString& text) {
    std::wstring_view rest = text.view();
    while (true) {
        const auto end = rest.find(L'\n');
        std::wstring_view line = rest.substr(0, end);
        if (line.ends_with(L'\r')) line.remove_suffix(1);
        const OdString printed(line);
        for (auto* list : {&m_lines, &m_new}) {
            if (list->size() == kMaxLines) list->erase(list->begin());
            list->push_back(printed);
        }
        m_printed.notify(printed);
        if (end == std::wstring_view::npos) return;
        rest.remove_prefix(end + 1);
    }
}

std::vector<OdString> DefaultCommandLine::takeNew() { return std::exchange(m_new, {}); }

} // namespace tv::host
