// A private X server, with a window manager where one is wanted, and plain windows on it.
#pragma once

#include "tools/child_process.h"

#include <xcb/xcb.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace qbrpt::test {

/// Whether something comes true within ten seconds; `between` runs between two looks.
bool Soon(
    const std::function<bool()>& holds, const std::function<void()>& between = [] {});

class XDesktop {
public:
    XDesktop();
    ~XDesktop();
    XDesktop(const XDesktop&) = delete;
    XDesktop& operator=(const XDesktop&) = delete;

    void StartManager();
    void StopManager() { mManager.reset(); }
    /// SIGSTOP, SIGCONT: a manager that is long about its work.
    void SignalManager(int number) const { mManager->Signal(number); }
    [[nodiscard]] xcb_connection_t* Connection() const { return mConnection; }

private:
    std::unique_ptr<ChildProcess> mServer;
    std::unique_ptr<ChildProcess> mManager;
    xcb_connection_t* mConnection = nullptr;
};

/// A window of this process that no toolkit knows of.
class XWindow {
public:
    explicit XWindow(xcb_connection_t* connection, xcb_window_t parent = XCB_WINDOW_NONE);
    [[nodiscard]] xcb_window_t Id() const { return mId; }

    void SetNumber(const char* property, xcb_atom_t type, std::uint32_t value) const;
    void SetNumbers(const char* property, const std::vector<std::uint32_t>& values) const;
    void SetText(const char* property, const char* type, std::string_view text) const;
    void BelongTo(const XWindow& owner) const;
    void Show() const;
    void Destroy() const;
    /// Ask the window manager, as a task bar does.
    void Activate() const;
    void Maximise() const;
    void Minimise() const;

    [[nodiscard]] bool Viewable() const;

private:
    [[nodiscard]] xcb_atom_t Atom(std::string_view name) const;
    void Ask(const char* message, const std::vector<std::uint32_t>& data) const;

    xcb_connection_t* mConnection;
    xcb_window_t mId;
};

} // namespace qbrpt::test
