#include "adapters/layout/library.h"

#include "adapters/layout/builder.h"
#include "adapters/layout/own_file.h"
#include "base/failure.h"

#include <cstdlib>
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

/// The café's layout of this name; nothing where the folder has none.
std::optional<OwnFile> ReadOwnLayout(const std::string& folder, std::string_view name) {
    return ReadOwnFile(folder, std::string(name) + ".toml", LargestFile, "layout file");
}

/// The house style: the built-in one, and the café's laid over it.
Node House(const std::string& folder) {
    const BuiltInFile* builtIn = FindBuiltIn(HouseName);
    Node house = builtIn == nullptr ? Node{} : Parse(builtIn->text, BuiltInName(HouseName));
    if (const auto own = ReadOwnLayout(folder, HouseName)) house = Merge(house, Parse(own->text, own->path));
    return house;
}

BuiltLayout BuildOnHouse(const std::string& name, std::string_view text, const std::string& fileName,
                         std::span<const Field> fields, const Node& house, const PictureShelf& pictures,
                         Mistakes& mistakes) {
    return BuildLayout(name, Merge(house, Parse(text, fileName)), fields, pictures, mistakes);
}

} // namespace

Library::Library(std::string folder) : mFolder(std::move(folder)) {}

Library Library::FromEnvironment() {
    const char* folder = std::getenv("QBRPT_LAYOUTS");
    return Library(folder == nullptr ? "" : folder);
}

std::shared_ptr<const report::Definition> Library::Load(const std::string& name,
                                                        std::span<const Field> fields) const {
    if (const auto own = ReadOwnLayout(mFolder, name)) return Read(name, own->text, own->path, fields);
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
    const BuiltLayout layout =
        BuildOnHouse(name, text, fileName, fields, house, PictureShelf(mFolder, mistakes), mistakes);
    mistakes.RaiseIfAny();
    const BuiltInFile* builtIn = FindBuiltIn(name);
    if (builtIn != nullptr && builtIn->text != text) {
        Mistakes others;
        const BuiltLayout original = BuildOnHouse(name, builtIn->text, BuiltInName(name), fields, House({}),
                                                  PictureShelf({}, others), others);
        CheckStandIn(layout, original, mistakes);
        mistakes.RaiseIfAny();
    }
    return layout.definition;
}

} // namespace qbrpt::layout
