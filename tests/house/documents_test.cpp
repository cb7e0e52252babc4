// What the documents list is what the sources hold.
#include "tools/temp_folder.h"

#include <gmock/gmock.h>

#include <regex>
#include <set>

namespace qbrpt::test {
namespace {

namespace fs = std::filesystem;

const fs::path Home = QBRPT_SOURCE_DIR;

/// The environment variables of our own that a source asks for: texts in quotes.
std::set<std::string> SettingsOf(const std::string& source) {
    static const std::regex name(R"re("(QBRPT_[A-Z_]+)")re");
    std::set<std::string> names;
    for (std::sregex_iterator found(source.begin(), source.end(), name), end; found != end; ++found)
        names.insert((*found)[1]);
    return names;
}

TEST(Documents, EverySettingIsInTheTable) {
    const std::string table = ContentOf(Home / "docs" / "settings.md");
    std::set<std::string> names;
    for (const char* folder : {"src", "apps"})
        for (const auto& entry : fs::recursive_directory_iterator(Home / folder))
            if (entry.path().extension() == ".cpp") names.merge(SettingsOf(ContentOf(entry.path())));
    EXPECT_THAT(names, ::testing::IsSupersetOf({"QBRPT_TRACE", "QBRPT_PDF_FOLDER"}))
        << "the search finds them";
    for (const std::string& name : names)
        EXPECT_THAT(table, ::testing::HasSubstr("`" + name + "`"));
}

TEST(Documents, EveryRoomIsInTheArchitecture) {
    const std::string text = ContentOf(Home / "docs" / "architecture.md");
    for (const char* parent : {"src", "src/adapters"})
        for (const auto& entry : fs::directory_iterator(Home / parent)) {
            if (!entry.is_directory() || fs::is_empty(entry.path())) continue;
            EXPECT_THAT(text, ::testing::ContainsRegex("[ `*]" + entry.path().filename().string() + "[/`.]"));
        }
}

TEST(Documents, EveryLayoutKeyIsExplained) {
    static const std::regex asked(
        R"re((?:Text|Flag|Number|Length|Child|Has|Choice<[^>]*>|ReadCondition|ReadAlign)\((?:reader, )?"([a-z_0-9]+)")re");
    const std::string text = ContentOf(Home / "docs" / "layout-keys.md");
    std::set<std::string> keys;
    for (const auto& entry : fs::directory_iterator(Home / "src" / "adapters" / "layout")) {
        const std::string source = ContentOf(entry.path());
        for (std::sregex_iterator found(source.begin(), source.end(), asked), end; found != end; ++found)
            keys.insert((*found)[1]);
    }
    EXPECT_GT(keys.size(), 80U) << "the search finds them";
    for (const std::string& key : keys)
        EXPECT_TRUE(std::regex_search(text, std::regex("\\b" + key + "\\b"))) << key;
}

TEST(Documents, LinksPointAtFiles) {
    static const std::regex link(R"re(\]\(([^)#:]+)\))re");
    for (const char* name :
         {"README.md", "docs/architecture.md", "docs/dependencies.md", "docs/settings.md", "docs/layouts.md",
          "docs/layout-keys.md", "docs/reports.md", "docs/testing.md", "docs/performance.md"}) {
        const std::string text = ContentOf(Home / name);
        EXPECT_FALSE(text.empty()) << name;
        for (std::sregex_iterator found(text.begin(), text.end(), link), end; found != end; ++found)
            EXPECT_TRUE(fs::exists((Home / name).parent_path() / (*found)[1].str()))
                << name << ": " << (*found)[1];
    }
}

} // namespace
} // namespace qbrpt::test
