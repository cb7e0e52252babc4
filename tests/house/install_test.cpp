// The installed component, as a host programmer meets it.
#include "tools/child_process.h"
#include "tools/x_desktop.h"

#include <gmock/gmock.h>

#include <sstream>

namespace qbrpt::test {
namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;
using ::testing::SizeIs;
using ::testing::StartsWith;

const fs::path Host = fs::path{QBRPT_SOURCE_DIR} / "tests" / "house" / "host";
const fs::path CafeHost = fs::path{QBRPT_SOURCE_DIR} / "apps" / "host";

class Installed : public ::testing::Test {
protected:
    void SetUp() override {
        Must({"cmake", "--install", QBRPT_BINARY_DIR, "--prefix", Prefix().string()});
        Must({(Prefix() / "bin" / "qbrpt").string(), "sample", (mFolder / "café 1.db").string(), "--days",
              "3", "--sessions-per-day", "5"});
    }

    [[nodiscard]] fs::path Prefix() const { return mFolder / "the prefix"; }

    /// The folder that holds the library: its name depends on the system.
    [[nodiscard]] fs::path LibraryFolder() const { return Prefix() / QBRPT_LIBDIR; }

    static std::string Must(const std::vector<std::string>& command,
                            const ChildProcess::Environment& settings = {}, const std::string& folder = {}) {
        const ProgramResult result = RunProgram(command, settings, folder);
        EXPECT_EQ(result.status, 0) << command.front() << " " << command.back() << "\n"
                                    << result.out << result.err;
        return result.out;
    }

    /// The folder of a project that is built against the installed package.
    [[nodiscard]] fs::path BuiltFrom(const fs::path& project) const {
        const fs::path build = mFolder / "build";
        Must({"cmake", "-G", "Ninja", "-S", project.string(), "-B", build.string(),
              "-DCMAKE_CXX_COMPILER=" QBRPT_CXX, "-DCMAKE_PREFIX_PATH=" + Prefix().string(),
              "-DCMAKE_CXX_FLAGS=" QBRPT_SANITIZE_FLAGS});
        Must({"cmake", "--build", build.string()});
        return build;
    }

    /// Runs a built host on the sample and looks for its page.
    void HostPrints(const fs::path& host) {
        const fs::path pages = mFolder / "pages";
        const std::string out =
            Must({host.string(), (mFolder / "café 1.db").string()},
                 {{"QBRPT_PDF_FOLDER", pages.string()}, {"LD_LIBRARY_PATH", LibraryFolder().string()}});
        EXPECT_EQ(out, "done\n");
        ASSERT_TRUE(fs::is_directory(pages));
        std::vector<fs::path> made;
        for (const auto& entry : fs::directory_iterator(pages))
            made.push_back(entry.path());
        ASSERT_THAT(made, SizeIs(1));
        EXPECT_THAT(ContentOf(made.front()), StartsWith("%PDF-"));
        EXPECT_THAT(Must({"pdftotext", made.front().string(), "-"}), HasSubstr("44001122"));
    }

    TempFolder mFolder;
};

TEST_F(Installed, ServesAHostThroughItsCMakePackage) {
    HostPrints(BuiltFrom(Host) / "host");
}

TEST_F(Installed, ServesTheCafeHostThroughItsCMakePackage) {
    const fs::path program = BuiltFrom(CafeHost) / "qbrpt-host";
    EXPECT_THAT(Must({"ldd", program.string()}, {{"LD_LIBRARY_PATH", LibraryFolder().string()}}),
                HasSubstr((LibraryFolder() / "libqbrpt.so.0").string()));
    const XDesktop desktop;
    const ChildProcess host(
        {program.string(), (mFolder / "café 1.db").string()},
        {{"LD_LIBRARY_PATH", LibraryFolder().string()}, {"XDG_RUNTIME_DIR", mFolder.Path().string()}});
    EXPECT_TRUE(Soon([] {
        return RunProgram({"xdotool", "search", "--onlyvisible", "--name", "^مقهى الواحة$"}).status == 0;
    })) << host.ErrSoFar();
}

TEST_F(Installed, ServesAHostThroughPkgConfig) {
    const std::string flags = Must({"pkg-config", "--cflags", "--libs", "qbrpt", "sqlite3"},
                                   {{"PKG_CONFIG_PATH", (LibraryFolder() / "pkgconfig").string()}});
    // The shell reads the flags, as it does in a makefile.
    Must({"sh", "-c",
          std::string{QBRPT_CXX} + " " QBRPT_SANITIZE_FLAGS " -std=c++17 -o host '" +
              (Host / "host.cpp").string() + "' " + flags.substr(0, flags.find('\n'))},
         {}, mFolder.Path().string());
    HostPrints(mFolder / "host");
}

TEST_F(Installed, TheLibraryShowsItsPublicNamesOnly) {
    const std::string names =
        Must({"nm", "--dynamic", "--defined-only", "--demangle", (LibraryFolder() / "libqbrpt.so").string()});
    std::istringstream lines(names);
    int members = 0;
    for (std::string line; std::getline(lines, line);) {
        const std::string name = line.substr(line.find(' ') + 3);
        const bool member = name.starts_with("qbrpt::VantlowCls::");
        members += member ? 1 : 0;
        EXPECT_TRUE(member || name.starts_with("qbrpt::DatabaseFromSqliteHandle")) << line;
    }
    EXPECT_GE(members, 23);
}

TEST_F(Installed, TheLibraryHasItsVersionedName) {
    EXPECT_THAT(Must({"readelf", "-d", (LibraryFolder() / "libqbrpt.so").string()}),
                HasSubstr("[libqbrpt.so.0]"));
}

} // namespace
} // namespace qbrpt::test
