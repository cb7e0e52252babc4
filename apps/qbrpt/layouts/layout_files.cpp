#include "layouts/layout_files.h"

#include "adapters/files/atomic_file.h"
#include "adapters/layout/library.h"
#include "adapters/layout/mistakes.h"
#include "base/failure.h"
#include "templates/field_tables.h"

#include <algorithm>
#include <memory>
#include <string_view>
#include <system_error>

namespace qbrpt::layouts {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view HouseName = "house";

std::string FileNameOf(const layout::BuiltInFile& file) {
    return std::string(file.name) + ".toml";
}

void RefuseExisting(const fs::path& folder) {
    std::string there;
    for (const layout::BuiltInFile& file : layout::BuiltInFiles())
        if (fs::exists(fs::symlink_status(folder / FileNameOf(file))))
            there += (there.empty() ? "" : ", ") + FileNameOf(file);
    if (!there.empty())
        throw Failure(FailureNumber::FileAccess,
                      "The folder \"" + folder.string() + "\" has " + there +
                          " already. Nothing was written; --overwrite replaces them.");
}

void RefuseUnknown(const fs::path& file) {
    std::vector<std::string_view> known = {HouseName};
    for (const TemplateFacts& facts : AllTemplates())
        known.push_back(facts.name);
    const std::string name = file.stem().string();
    if (file.extension() == ".toml" && std::find(known.begin(), known.end(), name) != known.end()) return;
    throw Failure(FailureNumber::Layout, file.string() + ": a layout file is named after its template, as " +
                                             "PayOutRpt.toml, or house.toml" +
                                             layout::Suggestion(name, known));
}

std::vector<std::string> MistakesOf(const layout::Library& library, std::string_view name) {
    try {
        static_cast<void>(library.Load(std::string(name), FactsOf(name).fields));
    } catch (const layout::LayoutFailure& failure) {
        return failure.Lines();
    } catch (const Failure& failure) {
        if (failure.Number() != FailureNumber::Layout) throw;
        return {failure.Description()};
    }
    return {};
}

} // namespace

std::vector<std::string> ExportLayouts(const fs::path& folder, Existing existing) {
    std::error_code failed;
    fs::create_directories(folder, failed);
    if (failed)
        throw Failure(FailureNumber::FileAccess,
                      "The folder \"" + folder.string() + "\" cannot be made: " + failed.message() + ".");
    if (existing == Existing::Keep) RefuseExisting(folder);
    std::vector<std::unique_ptr<AtomicFile>> files;
    std::vector<std::string> names;
    for (const layout::BuiltInFile& builtIn : layout::BuiltInFiles()) {
        files.push_back(std::make_unique<AtomicFile>(folder / FileNameOf(builtIn)));
        files.back()->Write(builtIn.text);
        files.back()->Settle();
        names.push_back(FileNameOf(builtIn));
    }
    for (const auto& file : files)
        file->Commit();
    return names;
}

bool IsBuiltIn(const fs::path& file) {
    const std::span<const TemplateFacts> all = AllTemplates();
    const bool isTemplate = std::any_of(
        all.begin(), all.end(), [&](const TemplateFacts& facts) { return file.string() == facts.name; });
    return isTemplate && !fs::exists(file);
}

std::string TemplateOf(const fs::path& file) {
    RefuseUnknown(file);
    if (file.stem() == HouseName)
        throw Failure(FailureNumber::Layout,
                      file.string() +
                          ": the house style is no report by itself; name a layout file beside it.");
    return file.stem().string();
}

std::vector<std::string> MistakesIn(const fs::path& file) {
    RefuseUnknown(file);
    if (!fs::exists(file))
        throw Failure(FailureNumber::FileNotFound, file.string() + ": there is no such file.");
    const layout::Library library(file.parent_path().empty() ? "." : file.parent_path().string());
    std::vector<std::string> all;
    const auto check = [&](std::string_view name) {
        for (const std::string& mistake : MistakesOf(library, name))
            if (std::find(all.begin(), all.end(), mistake) == all.end()) all.push_back(mistake);
    };
    if (file.stem() != HouseName) {
        check(file.stem().string());
        return all;
    }
    for (const layout::BuiltInFile& builtIn : layout::BuiltInFiles())
        if (builtIn.name != HouseName) check(builtIn.name);
    return all;
}

} // namespace qbrpt::layouts
