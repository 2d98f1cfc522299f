#include "platform/toolkit/Snapshot.h"

#include "platform/text/Unicode.h"
#include "platform/toolkit/Dialog.h"

#include <algorithm>

namespace tv::ui {
namespace {

std::vector<ControlSnapshot> describeChildren(const CWnd& parent, int firstRow, int rowCount) {
    std::vector<ControlSnapshot> out;
    for (const CWnd* child : parent.children()) {
        auto& control = out.emplace_back();
        control.wantedFirst = firstRow;
        control.wantedCount = rowCount;
        child->describe(control);
        control.children = describeChildren(*child, firstRow, rowCount);
    }
    return out;
}

void write(std::string& out, const std::vector<ControlSnapshot>& controls, int depth) {
    for (const auto& c : controls) {
        out.append(static_cast<std::size_t>(depth) * 2, ' ');
        out += c.name + " (" + kindName(c.kind) + ")";
        if (!c.label.empty()) out += " \"" + text::toUtf8(c.label) + "\"";
        if (!c.text.empty() && c.text != c.label) out += " = \"" + text::toUtf8(c.text) + "\"";
        if (c.checked) out += *c.checked == 0 ? " [ ]" : *c.checked == 1 ? " [x]" : " [-]";
        if (c.icon) out += " icon " + *c.icon;
        if (c.selection) {
            out += " selected";
            constexpr std::size_t most = 20; // enough for a person
            for (std::size_t i = 0; i < std::min(most, c.selection->size()); ++i)
                out += " " + std::to_string((*c.selection)[i]);
            if (c.selection->size() > most) out += " ...";
        }
        if (c.rowCount) out += " of " + std::to_string(*c.rowCount);
        if (!c.enabled) out += " disabled";
        if (!c.visible) out += " hidden";
        if (c.focused) out += " focused";
        out += '\n';
        write(out, c.children, depth + 1);
    }
}

} // namespace

DialogSnapshot snapshot(const CDialog& dialog, int firstRow, int rowCount) {
    return {dialog.templateName(), dialog.GetWindowText(), dialog.GetWindowRect().Size(),
            describeChildren(dialog, firstRow, rowCount)};
}

std::string toText(const DialogSnapshot& snapshot) {
    std::string out = snapshot.templateName + " \"" + text::toUtf8(snapshot.title) + "\" " +
                      std::to_string(snapshot.size.cx) + "x" + std::to_string(snapshot.size.cy) + "\n";
    write(out, snapshot.controls, 1);
    return out;
}

} // namespace tv::ui
