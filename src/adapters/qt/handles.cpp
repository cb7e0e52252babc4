#include "adapters/qt/handles.h"

#include <algorithm>
#include <utility>

namespace qbrpt::qt {

Handles& Handles::Table() {
    static Handles table;
    return table;
}

WindowHandle Handles::Add(QWidget& widget, std::string className, std::uint32_t style, WindowHandle parent) {
    const WindowHandle handle = mNext++;
    TreeWindow& window = mWindows[handle];
    window.widget = &widget;
    window.className = std::move(className);
    window.style = style;
    window.parent = parent;
    if (TreeWindow* holder = Find(parent)) holder->children.push_back(handle);
    return handle;
}

void Handles::Remove(WindowHandle window) {
    const auto found = mWindows.find(window);
    if (found == mWindows.end()) return;
    const TreeWindow gone = std::move(found->second);
    mWindows.erase(found);
    if (TreeWindow* holder = Find(gone.parent)) std::erase(holder->children, window);
    for (const WindowHandle child : gone.children)
        Remove(child);
}

TreeWindow* Handles::Find(WindowHandle window) {
    const auto found = mWindows.find(window);
    return found == mWindows.end() || found->second.widget.isNull() ? nullptr : &found->second;
}

WindowHandle Handles::HandleOf(const QWidget* widget) const {
    if (widget == nullptr) return 0;
    const auto found = std::find_if(mWindows.begin(), mWindows.end(),
                                    [&](const auto& row) { return row.second.widget == widget; });
    return found == mWindows.end() ? 0 : found->first;
}

std::vector<WindowHandle> Handles::Tops() const {
    std::vector<WindowHandle> tops;
    for (const auto& [handle, window] : mWindows) {
        if (window.parent == 0 && !window.widget.isNull()) tops.push_back(handle);
    }
    return tops;
}

} // namespace qbrpt::qt
