#include "adapters/layout/library.h"

#include "adapters/layout/builder.h"
#include "base/failure.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>

namespace qbrpt::layout {

namespace {

constexpr std::string_view HouseName = "house";
constexpr std::uintmax_t LargestFile = 1'000'000;

const BuiltInFile* FindBuiltIn(std::string_view name) {
    for (const BuiltInFile& file : BuiltInFiles())
        if (file.name == name) return &file;
    return nullptr;
}

std::string BuiltInName(std::string_view name) {
    return "built-in " + std::string(name) + ".toml";
}

struct OwnFile {
    std::string path;
    std::string text;
};

/// The café's file of this name; nothing where the folder has none.
std::optional<OwnFile> ReadOwnFile(const std::string& folder, std::string_view name) {
    if (folder.empty()) return std::nullopt;
    const std::filesystem::path path = std::filesystem::path(folder) / (std::string(name) + ".toml");
    std::error_code error;
    if (!std::filesystem::exists(path, error)) return std::nullopt;
    const auto unreadable = [&path] {
        return Failure(FailureNumber::FileAccess, path.string() + ": the layout file cannot be read.");
    };
    if (!std::filesystem::is_regular_file(path, error)) throw unreadable();
    if (std::filesystem::file_size(path, error) > LargestFile)
        throw Failure(FailureNumber::Layout, path.string() + ": the file is too large for a layout.");
    std::ifstream stream(path, std::ios::binary);
    if (error || !stream.is_open()) throw unreadable();
    OwnFile file{path.string(), {std::istreambuf_iterator<char>(stream), {}}};
    return file;
}

/// The house style: the built-in one, and the café's laid over it.
Node House(const std::string& folder) {
    const BuiltInFile* builtIn = FindBuiltIn(HouseName);
    Node house = builtIn == nullptr ? Node{} : Parse(builtIn->text, BuiltInName(HouseName));
    if (const auto own = ReadOwnFile(folder, HouseName)) house = Merge(house, Parse(own->text, own->path));
    return house;
}

BuiltLayout BuildOnHouse(const std::string& name, std::string_view text, const std::string& fileName,
                         std::span<const Field> fields, const Node& house, Mistakes& mistakes) {
    return BuildLayout(name, Merge(house, Parse(text, fileName)), fields, mistakes);
}

} // namespace

Library::Library(std::string folder) : mFolder(std::move(folder)) {}

Library Library::FromEnvironment() {
    const char* folder = std::getenv("QBRPT_LAYOUTS");
    return Library(folder == nullptr ? "" : folder);
}

std::shared_ptr<const report::Definition> Library::Load(const std::string& name,
                                                        std::span<const Field> fields) const {
    if (const auto own = ReadOwnFile(mFolder, name)) return Read(name, own->text, own->path, fields);
    const BuiltInFile* file = FindBuiltIn(name);
    if (file == nullptr)
        throw Failure(FailureNumber::NotInCollection,
                      "There is no layout for the report template \"" + name + "\".");
    return Read(name, file->text, BuiltInName(name), fields);
}

std::shared_ptr<const report::Definition> Library::Read(const std::string& name, std::string_view text,
                                                        const std::string& fileName,
                                                        std::span<const Field> fields) const {
    const Node house = House(mFolder);
    Mistakes mistakes;
    const BuiltLayout layout = BuildOnHouse(name, text, fileName, fields, house, mistakes);
    mistakes.RaiseIfAny();
    const BuiltInFile* builtIn = FindBuiltIn(name);
    if (builtIn != nullptr && builtIn->text != text) {
        Mistakes others;
        CheckStandIn(layout, BuildOnHouse(name, builtIn->text, BuiltInName(name), fields, House({}), others),
                     mistakes);
        mistakes.RaiseIfAny();
    }
    return layout.definition;
}

} // namespace qbrpt::layout
