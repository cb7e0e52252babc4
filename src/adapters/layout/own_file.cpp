#include "adapters/layout/own_file.h"

#include "base/failure.h"

#include <filesystem>
#include <fstream>
#include <iterator>

namespace qbrpt::layout {

std::optional<OwnFile> ReadOwnFile(const std::string& folder, const std::string& name, std::uintmax_t largest,
                                   const std::string& what) {
    if (folder.empty()) return std::nullopt;
    const std::filesystem::path path = std::filesystem::path(folder) / name;
    std::error_code error;
    if (!std::filesystem::exists(path, error)) return std::nullopt;
    const auto unreadable = [&] {
        return Failure(FailureNumber::FileAccess, path.string() + ": the " + what + " cannot be read.");
    };
    if (!std::filesystem::is_regular_file(path, error)) throw unreadable();
    if (std::filesystem::file_size(path, error) > largest)
        throw Failure(FailureNumber::Layout, path.string() + ": the file is too large for a " + what + ".");
    std::ifstream stream(path, std::ios::binary);
    if (error || !stream.is_open()) throw unreadable();
    return OwnFile{path.string(), {std::istreambuf_iterator<char>(stream), {}}};
}

} // namespace qbrpt::layout
