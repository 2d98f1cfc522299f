#include "platform/toolkit/Snapshot.h"

#include "platform/text/Unicode.h"
#include "platform/toolkit/Dialog.h"
#include "platform/toolkit/Menu.h"

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

std::vector<MenuSnapshot> describeMenu(const std::vector<MenuItem>& items) {
    std::vector<MenuSnapshot> out;
    for (const MenuItem& item : items)
        out.push_back(
            {menuText(item.text), item.keys, item.available(), item.checked, describeMenu(item.items)});
    return out;
}

void write(std::string& out, const std::vector<MenuSnapshot>& entries, int depth) {
    for (const auto& entry : entries) {
        out.append(static_cast<std::size_t>(depth) * 2, ' ');
        out += entry.text.empty() ? "---" : text::toUtf8(entry.text);
        if (entry.checked) out += *entry.checked ? " [x]" : " [ ]";
        if (!entry.enabled && !entry.text.empty()) out += " disabled";
        out += '\n';
        write(out, entry.items, depth + 1);
    }
}

} // namespace

DialogSnapshot snapshot(const CDialog& dialog, int firstRow, int rowCount) {
    DialogSnapshot out{dialog.templateName(),
                       dialog.GetWindowText(),
                       dialog.GetWindowRect().Size(),
                       describeChildren(dialog, firstRow, rowCount),
                       std::nullopt,
                       {}};
    const Toolkit* toolkit = Toolkit::current();
    if (const Menu* menu = toolkit ? toolkit->menu() : nullptr; menu && menu->owner().dialog() == &dialog) {
        out.menu = describeMenu(menu->items());
        out.menuOwner = menu->owner().name();
    }
    return out;
}

std::string toText(const DialogSnapshot& snapshot) {
    std::string out = snapshot.templateName + " \"" + text::toUtf8(snapshot.title) + "\" " +
                      std::to_string(snapshot.size.cx) + "x" + std::to_string(snapshot.size.cy) + "\n";
    write(out, snapshot.controls, 1);
    if (snapshot.menu) {
        out += "  menu of " + snapshot.menuOwner + "\n";
        write(out, *snapshot.menu, 2);
    }
    return out;
}

} // namespace tv::ui
