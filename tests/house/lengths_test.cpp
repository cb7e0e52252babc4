// Files stay short enough to be read in one go.
#include "tools/temp_folder.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <set>

namespace qbrpt::test {
namespace {

namespace fs = std::filesystem;

std::vector<fs::path> WrittenFiles() {
    static const std::set<std::string> kinds = {".h", ".cpp", ".cmake", ".txt", ".toml", ".sh", ".md"};
    std::vector<fs::path> files;
    for (const char* folder : {"src", "apps", "tests", "bench", "cmake", "packaging", "docs"}) {
        if (!fs::exists(fs::path{QBRPT_SOURCE_DIR} / folder)) continue;
        for (const auto& entry : fs::recursive_directory_iterator(fs::path{QBRPT_SOURCE_DIR} / folder))
            if (kinds.contains(entry.path().extension().string())) files.push_back(entry.path());
    }
    return files;
}

TEST(Lengths, NoSourceIsLongerThanSixHundredLines) {
    const std::vector<fs::path> files = WrittenFiles();
    ASSERT_GT(files.size(), 100U);
    for (const fs::path& file : files) {
        const std::string content = ContentOf(file);
        EXPECT_LE(std::count(content.begin(), content.end(), '\n'), 600) << file;
    }
}

TEST(Lengths, EveryFileEndsWithALineFeed) {
    for (const fs::path& file : WrittenFiles()) {
        const std::string content = ContentOf(file);
        EXPECT_TRUE(content.empty() || content.ends_with('\n')) << file;
    }
}

} // namespace
} // namespace qbrpt::test
