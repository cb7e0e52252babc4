// Tests see no display and no printers, whoever runs them: one that wants them makes its own. Else a preview
// would open before the developer and wait for him, and his printer would print.
#include <cstdlib>
#include <initializer_list>

namespace {

const bool hidden = [] {
    for (const char* variable : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "LPDEST", "PRINTER"})
        ::unsetenv(variable);
    ::setenv("CUPS_SERVER", "/nonexistent/no-print-service", 1);
    return true;
}();

} // namespace
