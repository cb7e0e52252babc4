#include "adapters/registry/file_registry.h"

#include "adapters/files/atomic_file.h"
#include "base/failure.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <optional>
#include <string>
#include <utility>

namespace qbrpt {

namespace fs = std::filesystem;

namespace {

constexpr const char* MachineFolder = "/var/lib/qbrpt";
/// Far above any value of this system: a file that is larger is none of ours.
constexpr std::uintmax_t LargestValue = 1U << 20U;

std::vector<fs::path> UsualFolders() {
    const auto setting = [](const char* name) -> std::optional<fs::path> {
        const char* text = std::getenv(name);
        if (text == nullptr || *text == '\0') return std::nullopt;
        return fs::path(text);
    };
    if (auto chosen = setting("QBRPT_REGISTRY")) return {std::move(*chosen)};
    std::vector<fs::path> folders = {MachineFolder};
    if (const auto state = setting("XDG_STATE_HOME"); state && state->is_absolute())
        folders.push_back(*state / "qbrpt");
    else if (const auto home = setting("HOME"))
        folders.push_back(*home / ".local" / "state" / "qbrpt");
    return folders;
}

// Letters, digits and dashes stand for themselves; everything else goes by its code.
std::string FileNameOf(std::uint32_t root, const std::string& subKey, const std::string& valueName) {
    std::array<char, 12> code{};
    std::snprintf(code.data(), code.size(), "%08x", root);
    std::string name = code.data();
    for (const std::string& part : {subKey, valueName}) {
        name.push_back('.');
        for (const char c : part) {
            const bool plain = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
            if (plain) {
                name.push_back(c);
                continue;
            }
            std::snprintf(code.data(), code.size(), "-%02x", static_cast<unsigned char>(c));
            name += code.data();
        }
    }
    return name + ".value";
}

// What stands before the bytes: a file that was cut short or is something else does not agree with it.
std::string HeadOf(int valueType, std::size_t size) {
    return "qbrpt value " + std::to_string(valueType) + " " + std::to_string(size) + "\n";
}

std::optional<std::string> ReadFile(const fs::path& file) {
    std::error_code error;
    const std::uintmax_t size = fs::file_size(file, error);
    if (error || size > LargestValue) return std::nullopt;
    std::ifstream stream(file, std::ios::binary);
    if (!stream) return std::nullopt;
    return std::string(std::istreambuf_iterator<char>(stream), {});
}

} // namespace

FileRegistry::FileRegistry() : FileRegistry(UsualFolders()) {}

FileRegistry::FileRegistry(std::vector<fs::path> folders) : mFolders(std::move(folders)) {}

bool FileRegistry::DoReadValue(std::uint32_t root, const std::string& subKey, const std::string& valueName,
                               std::vector<std::uint8_t>& data, int valueType) {
    const std::string name = FileNameOf(root, subKey, valueName);
    for (const fs::path& folder : mFolders) {
        const auto content = ReadFile(folder / name);
        if (!content) continue;
        const std::size_t headEnd = content->find('\n');
        if (headEnd == std::string::npos) continue;
        const std::string head = content->substr(0, headEnd + 1);
        const std::string value = content->substr(headEnd + 1);
        if (head != HeadOf(valueType, value.size())) continue;
        data.assign(value.begin(), value.end());
        return true;
    }
    return false;
}

bool FileRegistry::DoWriteValue(std::uint32_t root, const std::string& subKey, const std::string& valueName,
                                const std::string& data, int valueType) {
    const std::string name = FileNameOf(root, subKey, valueName);
    for (const fs::path& folder : mFolders) {
        std::error_code error;
        fs::create_directories(folder, error);
        try {
            AtomicFile file(folder / name);
            file.Write(HeadOf(valueType, data.size()));
            file.Write(data);
            file.Settle();
            file.Commit();
            return true;
        } catch (const Failure&) { // a folder that is not open to this user
            continue;
        }
    }
    return false;
}

} // namespace qbrpt
