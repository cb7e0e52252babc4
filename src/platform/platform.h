// The one object that bundles the ports of the process.
#pragma once

#include "base/ref.h"
#include "platform/port.h"

#include <memory>

namespace qbrpt {

namespace DAO {
class DBEngine;
}
namespace CrystalRuntime {
class Runtime;
}
class Clock;
class FontSource;
class Forms;
class Gdi;
class Locale;
class MessageBoxes;
class Printers;
class RegistryStore;
class Screen;
class Spooler;
class WindowTree;
class Windows;

/// Every port that the system's rooms use. A host or a test may fill one with its own adapters and
/// install it before the first command; else the real adapters stand behind it.
class Platform {
public:
    Ref<DAO::DBEngine> engine;            ///< opens databases; one for the process
    Ref<CrystalRuntime::Runtime> reports; ///< makes report objects
    Ref<Forms> forms;                     ///< builds the component's own windows
    Ref<Windows> windows;                 ///< foreground and owner windows
    Ref<WindowTree> tree;                 ///< classes, styles and relations of windows
    Ref<RegistryStore> registry;          ///< the values kept between runs
    Ref<Screen> screen;                   ///< the mouse pointer, the beep
    Ref<MessageBoxes> messages;           ///< message boxes
    Ref<Printers> printers;               ///< the printer collection and the current printer
    Ref<Spooler> spooler;                 ///< what a printer offers
    Ref<Gdi> gdi;                         ///< drawing by handles
    Ref<FontSource> fonts;                ///< enumerates the fonts of a character set
    Ref<Locale> locale;                   ///< date and time in words
    Ref<Clock> clock;                     ///< the time of printing
    PortObservers observers;              ///< trace and fault observers

    /// The process's platform. Built from the real adapters at the first use.
    static Platform& Current();
    /// Puts another platform in (empty: the real adapters are built at the next use). Returns the
    /// one that stood before.
    static std::unique_ptr<Platform> Install(std::unique_ptr<Platform> platform);
};

/// The platform with the real adapters behind it. Defined beside the adapters; a test program that links
/// none defines its own.
[[nodiscard]] std::unique_ptr<Platform> MakeRealPlatform();

} // namespace qbrpt
