#include "adapters/printing/pdf_folder.h"

#include <pwd.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <fstream>
#include <string>
#include <string_view>

namespace qbrpt {

namespace fs = std::filesystem;

namespace {

std::string Setting(const char* name) {
    const char* value = std::getenv(name);
    return value == nullptr ? "" : value;
}

fs::path HomeFolder() {
    if (const std::string home = Setting("HOME"); !home.empty()) return home;
    // A nightly job may run without HOME.
    std::array<char, 4096> buffer{};
    struct passwd entry {};
    struct passwd* found = nullptr;
    if (::getpwuid_r(::getuid(), &entry, buffer.data(), buffer.size(), &found) == 0 && found != nullptr)
        return found->pw_dir;
    return fs::temp_directory_path();
}

/// The documents folder as desktops keep it: a line XDG_DOCUMENTS_DIR="$HOME/..." of user-dirs.dirs.
fs::path DocumentsFolder(const fs::path& home) {
    const std::string config = Setting("XDG_CONFIG_HOME");
    std::ifstream lines((config.empty() ? home / ".config" : fs::path{config}) / "user-dirs.dirs");
    constexpr std::string_view key = "XDG_DOCUMENTS_DIR=\"";
    constexpr std::string_view homeWord = "$HOME/";
    for (std::string line; std::getline(lines, line);) {
        if (!line.starts_with(key) || line.size() == key.size() || line.back() != '"') continue;
        const std::string value = line.substr(key.size(), line.size() - key.size() - 1);
        if (value.starts_with(homeWord) && value.size() > homeWord.size())
            return home / value.substr(homeWord.size());
        if (value.starts_with('/')) return value;
    }
    return {};
}

} // namespace

fs::path PdfFolder() {
    if (const std::string chosen = Setting("QBRPT_PDF_FOLDER"); !chosen.empty()) return fs::absolute(chosen);
    const fs::path home = HomeFolder();
    const fs::path documents = DocumentsFolder(home);
    std::error_code unreadable;
    return fs::absolute((fs::is_directory(documents, unreadable) ? documents : home) / "qbrpt");
}

bool PdfPrinterIsOn() {
    return Setting("QBRPT_PDF_PRINTER") != "off";
}

} // namespace qbrpt
