// The rooms of the system stand on the ports and the standard library only.
#include "house/room_includes.h"
#include "tools/temp_folder.h"

#include <gmock/gmock.h>

namespace qbrpt::test {
namespace {

namespace fs = std::filesystem;
using ::testing::Contains;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

const fs::path Source = fs::path{QBRPT_SOURCE_DIR} / "src";

class RoomIncludes : public ::testing::TestWithParam<RoomRule> {};

TEST_P(RoomIncludes, StayInside) {
    const IncludeCheck check(Source);
    EXPECT_THAT(check.Complaints(GetParam(), check.FilesOf(GetParam())), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Rooms, RoomIncludes, ::testing::ValuesIn(RoomRules()),
                         [](const auto& rule) { return rule.param.folder; });

TEST(RoomIncludesItself, LooksAtRealFiles) {
    const IncludeCheck check(Source);
    for (const RoomRule& rule : RoomRules())
        EXPECT_FALSE(check.FilesOf(rule).empty()) << rule.folder;
}

struct ProbeRow {
    const char* name;
    std::string text;
    std::string complaint; ///< empty: nothing to complain about
};

/// A small source tree of its own, so that the check is seen to fail.
class RoomIncludesProbe : public ::testing::TestWithParam<ProbeRow> {
protected:
    RoomIncludesProbe() {
        for (const char* room : {"base", "platform", "support", "service", "adapters"})
            fs::create_directory(mFolder / room);
        WriteContent(mFolder.Path() / "base" / "low.h", "#include <string>\n");
        WriteContent(mFolder.Path() / "service" / "high.h", "");
        WriteContent(mFolder.Path() / "adapters" / "outside.h", "");
        WriteContent(mFolder.Path() / "support" / "side_door.h", "#include \"../adapters/outside.h\"\n");
    }
    TempFolder mFolder;
};

TEST_P(RoomIncludesProbe, IsJudgedRightly) {
    WriteContent(mFolder.Path() / "support" / "probe.cpp", GetParam().text);
    const RoomRule support{"support", {"platform", "base"}};
    const auto complaints =
        IncludeCheck(mFolder.Path()).Complaints(support, {mFolder.Path() / "support" / "probe.cpp"});
    if (GetParam().complaint.empty())
        EXPECT_THAT(complaints, IsEmpty());
    else
        EXPECT_THAT(complaints, Contains(HasSubstr(GetParam().complaint)));
}

INSTANTIATE_TEST_SUITE_P(
    Probes, RoomIncludesProbe,
    ::testing::Values(
        ProbeRow{"Clean", "#include \"base/low.h\"\n#include <vector>\n", ""},
        ProbeRow{"SystemHeader", "#include <unistd.h>\n", "includes <unistd.h>"},
        ProbeRow{"SystemHeaderWithBlanks", "  #  include  <unistd.h>\n", "includes <unistd.h>"},
        ProbeRow{"SystemHeaderIsReadToo", "#include <sys/socket.h>\n", "reads /usr/include"},
        ProbeRow{"DatabaseLibrary", "#include <sqlite3.h>\n", "includes <sqlite3.h>"},
        ProbeRow{"LibraryInQuotes", "#include \"sqlite3.h\"\n", "includes \"sqlite3.h\""},
        ProbeRow{"WindowSystem", "#include <xcb/xcb.h>\n", "includes <xcb/xcb.h>"},
        ProbeRow{"ThreadsOfTheStandardLibrary", "#include <thread>\n", "includes <thread>"},
        ProbeRow{"HigherRoom", "#include \"service/high.h\"\n", "includes \"service/high.h\""},
        ProbeRow{"Adapter", "#include \"adapters/outside.h\"\n", "includes \"adapters/outside.h\""},
        ProbeRow{"AdapterBySideDoor", "#include \"support/side_door.h\"\n", "adapters/outside.h"},
        ProbeRow{"ByMacro", "#define H <unistd.h>\n#include H\n", "includes H"}),
    [](const auto& row) { return row.param.name; });

} // namespace
} // namespace qbrpt::test
