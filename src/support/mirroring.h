// Turns windows that were designed left to right into right-to-left ones, and back.
#pragma once

#include "platform/window_tree.h"

#include <cstdint>
#include <initializer_list>
#include <string_view>

namespace qbrpt {

/// Style bits of windows, buttons, tool bars and menu items that mirroring changes.
namespace WindowStyle {
constexpr std::uint32_t WS_EX_RIGHT = 0x1000;
constexpr std::uint32_t WS_EX_RTLREADING = 0x2000;
constexpr std::uint32_t WS_EX_LEFTSCROLLBAR = 0x4000;
constexpr std::uint32_t WS_EX_NOINHERITLAYOUT = 0x100000;
constexpr std::uint32_t WS_EX_LAYOUTRTL = 0x400000;
constexpr std::uint32_t WS_CAPTION = 0xC00000;
constexpr std::uint32_t BS_LEFTTEXT = 0x20;
constexpr std::uint32_t BS_RIGHT = 0x200;
constexpr std::uint32_t StaticText = 0x400; ///< set on a static text
constexpr std::uint32_t CCS_NORESIZE = 4;
constexpr std::uint32_t MFT_RIGHTORDER = 0x2000;
constexpr std::uint32_t MFT_RIGHTJUSTIFY = 0x4000;
} // namespace WindowStyle

/// Mirrors a window and all below it, each by its class. With `bMirrorWhole` the window alone is turned, by
/// its layout, and passes that on to none of its children: the way of a tab strip. With `bKeepToolbar` a
/// tool bar keeps its styles; its children do not. A window whose class cannot be read stays as it is.
void MirrorWindow(WindowHandle hWnd, bool bMirrorWhole, bool bKeepToolbar);

/// Takes the right-to-left styles off a window and all below it.
void UnmirrorWindow(WindowHandle hWnd);

/// Turns the top level of a window's menu bar; menus that drop down stay. Where the Arabic editing library
/// is installed menus turn by themselves, and are only ever turned back.
void MirrorMenu(WindowHandle hWnd, bool bRightToLeft);

/// Takes the bits of `nClear` off a window's style or extended style and puts those of `nSet` on.
void ChangeStyle(WindowHandle hWnd, std::uint32_t nClear, std::uint32_t nSet);
void ChangeExStyle(WindowHandle hWnd, std::uint32_t nClear, std::uint32_t nSet);

/// Where the first of `words` that occurs in `sClass` begins, from 1, without regard to case; 0 for none.
[[nodiscard]] std::int32_t ClassInList(std::string_view sClass,
                                       std::initializer_list<std::string_view> words);

} // namespace qbrpt
