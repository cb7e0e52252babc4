// The café's own layouts, as a script handles them: written out, changed, checked, looked at, used.
#include "cli/command_run.h"

#include <gmock/gmock.h>

#include <filesystem>

namespace qbrpt::test {
namespace {

namespace fs = std::filesystem;
using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StartsWith;

class OwnLayouts : public ::testing::Test {
protected:
    [[nodiscard]] std::string Folder() const { return (mFolder / "own").string(); }
    [[nodiscard]] std::string File(const std::string& name) const { return Folder() + "/" + name; }
    [[nodiscard]] ProgramResult Export(std::vector<std::string> more = {}) const {
        more.insert(more.begin(), {"layouts", "export", Folder()});
        return Qbrpt(more);
    }
    void Change(const std::string& name, const std::string& what, const std::string& by) const {
        std::string text = ContentOf(File(name));
        const std::size_t at = text.find(what);
        ASSERT_NE(at, std::string::npos) << what;
        WriteContent(File(name), text.replace(at, what.size(), by));
    }
    [[nodiscard]] std::string TextOfPdf(const std::string& name) const {
        return RunProgram({"pdftotext", "-layout", File(name), "-"}).out;
    }

    TempFolder mFolder;
};

TEST_F(OwnLayouts, AreWrittenOutWithTheHouseStyle) {
    const ProgramResult result = Export();
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_THAT(result.out, AllOf(HasSubstr("PayOutRpt.toml\n"), HasSubstr("house.toml\n")));
    EXPECT_THAT(ContentOf(File("PayOutRpt.toml")), HasSubstr("width_twips = 11178"));
    EXPECT_THAT(ContentOf(File("house.toml")), HasSubstr("[style]"));
}

TEST_F(OwnLayouts, AreNotOverwrittenUnasked) {
    ASSERT_EQ(Export().status, 0);
    Change("PayOutRpt.toml", "البيان", "التفاصيل");
    fs::remove(File("house.toml"));
    const ProgramResult refused = Export();
    EXPECT_EQ(refused.status, 1);
    EXPECT_THAT(refused.err, AllOf(HasSubstr("PayOutRpt.toml"), HasSubstr("--overwrite")));
    EXPECT_THAT(ContentOf(File("PayOutRpt.toml")), HasSubstr("التفاصيل"));
    EXPECT_FALSE(fs::exists(File("house.toml"))) << "nothing is written";
    EXPECT_EQ(Export({"--overwrite"}).status, 0);
    EXPECT_THAT(ContentOf(File("PayOutRpt.toml")), HasSubstr("البيان"));
}

TEST_F(OwnLayouts, NeedAFolderThatCanBeMade) {
    const ProgramResult result = Qbrpt({"layouts", "export", "/proc/own"});
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.err, HasSubstr("/proc/own"));
}

TEST_F(OwnLayouts, BuiltInOnesHaveNoMistakes) {
    ASSERT_EQ(Export().status, 0);
    std::vector<std::string> words = {"layouts", "check"};
    for (const auto& file : fs::directory_iterator(Folder()))
        words.push_back(file.path().string());
    const ProgramResult result = Qbrpt(words);
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_THAT(result.out, HasSubstr("house.toml: no mistakes\n"));
}

TEST_F(OwnLayouts, EveryMistakeIsToldWithItsPlace) {
    ASSERT_EQ(Export().status, 0);
    Change("PayOutRpt.toml", "\"details\"", "\"detials\"");
    Change("PayOutRpt.toml", "width = 84", "widht = 84");
    const ProgramResult result = Qbrpt({"layouts", "check", File("PayOutRpt.toml"), File("OutIncome.toml")});
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.err,
                AllOf(StartsWith(File("PayOutRpt.toml") +
                                 ":6:13: there is no field \"detials\"; did you mean \"details\"?\n"),
                      HasSubstr(File("PayOutRpt.toml") + ":7:25: a column has no key \"widht\"")));
    EXPECT_THAT(result.out, AllOf(HasSubstr("OutIncome.toml: no mistakes"), Not(HasSubstr("PayOutRpt"))));
}

TEST_F(OwnLayouts, AHundredMistakesAreAHundredLines) {
    ASSERT_EQ(Export().status, 0);
    std::string keys;
    for (int i = 0; i < 100; ++i)
        keys += "odd" + std::to_string(i) + " = 1\n";
    WriteContent(File("PayOutRpt.toml"), keys + ContentOf(File("PayOutRpt.toml")));
    const std::string lines = Qbrpt({"layouts", "check", File("PayOutRpt.toml")}).err;
    EXPECT_EQ(std::count(lines.begin(), lines.end(), '\n'), 100);
}

TEST_F(OwnLayouts, WhatIsNoTomlIsToldWithItsPlace) {
    ASSERT_EQ(Export().status, 0);
    WriteContent(File("PayOutRpt.toml"), "width_twips = 11178\ncolumns = [\n");
    const ProgramResult result = Qbrpt({"layouts", "check", File("PayOutRpt.toml")});
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.err, StartsWith(File("PayOutRpt.toml") + ":2:13:"));
}

TEST_F(OwnLayouts, MistakesOfTheHouseStyleAreToldOnce) {
    ASSERT_EQ(Export().status, 0);
    WriteContent(File("house.toml"), "[color]\naccent = \"blue\"\n");
    const ProgramResult result = Qbrpt({"layouts", "check", File("house.toml")});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err, File("house.toml") + ":2:10: a colour is written as \"#RRGGBB\"\n");
}

TEST_F(OwnLayouts, FilesOfNoTemplateAreTold) {
    const ProgramResult result = Qbrpt({"layouts", "check", File("PayOutRpt2.toml"), File("PayOutRpt.toml")});
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.err, AllOf(HasSubstr("did you mean \"PayOutRpt\"?"),
                                  HasSubstr("PayOutRpt.toml: there is no such file")));
}

TEST_F(OwnLayouts, ArePreviewedWithSampleRows) {
    ASSERT_EQ(Export().status, 0);
    Change("PayOutRpt.toml", "البيان", "التفاصيل");
    const ProgramResult result =
        Qbrpt({"layouts", "preview", File("PayOutRpt.toml"), "--pdf", File("p.pdf"), "--rows", "60"});
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_THAT(TextOfPdf("p.pdf"), AllOf(HasSubstr("التفاصيل"), HasSubstr("مقهى"), HasSubstr("60")));
}

TEST_F(OwnLayouts, ATemplatesNameShowsItsBuiltInLayout) {
    ASSERT_EQ(Export().status, 0);
    Change("PayOutRpt.toml", "البيان", "التفاصيل");
    const ProgramResult result =
        Qbrpt({"layouts", "preview", "PayOutRpt", "--pdf", File("p.pdf"), "--rows", "3"});
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_THAT(TextOfPdf("p.pdf"), AllOf(HasSubstr("البيان"), Not(HasSubstr("التفاصيل"))));
}

TEST_F(OwnLayouts, EveryTemplateCanBePreviewed) {
    ASSERT_EQ(Export().status, 0);
    for (const auto& file : fs::directory_iterator(Folder())) {
        if (file.path().extension() != ".toml" || file.path().stem() == "house") continue;
        const ProgramResult result =
            Qbrpt({"layouts", "preview", file.path().string(), "--pdf", File("p.pdf"), "--rows", "3"});
        EXPECT_EQ(result.status, 0) << file.path() << result.err;
        EXPECT_THAT(ContentOf(File("p.pdf")), StartsWith("%PDF-"));
        fs::remove(File("p.pdf"));
    }
}

TEST_F(OwnLayouts, APreviewWithMistakesLeavesNoFile) {
    ASSERT_EQ(Export().status, 0);
    Change("PayOutRpt.toml", "\"details\"", "\"detials\"");
    const ProgramResult result =
        Qbrpt({"layouts", "preview", File("PayOutRpt.toml"), "--pdf", File("p.pdf")});
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.err, HasSubstr("PayOutRpt.toml:6:13"));
    EXPECT_FALSE(fs::exists(File("p.pdf")));
    EXPECT_EQ(Qbrpt({"layouts", "preview", File("house.toml"), "--pdf", File("p.pdf")}).status, 1);
}

TEST_F(OwnLayouts, StandBeforeTheBuiltInOnes) {
    ASSERT_EQ(Export().status, 0);
    Change("IncomeGrpRpt.toml", "caption = \"الخصم\"", "caption = \"الحسم\"");
    const Cafe cafe;
    const std::vector<std::string> words = {
        "PrintIncome", "0", "0", "1", "--db", cafe.Database(), "--html", cafe.File("i.html")};
    const auto with = [&words](std::vector<std::string> more) {
        more.insert(more.begin(), words.begin(), words.end());
        return more;
    };
    ASSERT_EQ(Qbrpt(with({"--layouts", Folder()})).status, 0);
    EXPECT_THAT(ContentOf(cafe.File("i.html")), HasSubstr("الحسم"));
    ASSERT_EQ(Qbrpt(words, {{"QBRPT_LAYOUTS", Folder()}}).status, 0);
    EXPECT_THAT(ContentOf(cafe.File("i.html")), HasSubstr("الحسم"));
    const TempFolder other;
    ASSERT_EQ(Qbrpt(with({"--layouts", other.Path().string()}), {{"QBRPT_LAYOUTS", Folder()}}).status, 0);
    EXPECT_THAT(ContentOf(cafe.File("i.html")), HasSubstr("الخصم")) << "the option goes before the variable";
    const ProgramResult wrong = Qbrpt(with({"--layouts", cafe.File("none")}));
    EXPECT_EQ(wrong.status, 2);
    EXPECT_THAT(wrong.err, HasSubstr("none"));
}

TEST_F(OwnLayouts, MayAddAPicture) {
    const auto picturesOn = [](const std::string& pdf) {
        const std::string list = RunProgram({"pdfimages", "-list", pdf}).out;
        return std::count(list.begin(), list.end(), '\n') - 2; // two lines of captions
    };
    ASSERT_EQ(Export().status, 0);
    WriteContent(File("house.toml"), "[logo]\nfile = \"cup.png\"\n");
    const ProgramResult missing = Qbrpt({"layouts", "check", File("OutIncome.toml")});
    EXPECT_EQ(missing.status, 1);
    EXPECT_THAT(missing.err, AllOf(StartsWith(File("house.toml") + ":2:8:"), HasSubstr("cup.png")));

    fs::copy_file(QBRPT_SOURCE_DIR "/src/templates/pictures/card-picture-1.png", File("cup.png"));
    EXPECT_EQ(Qbrpt({"layouts", "check", File("OutIncome.toml")}).status, 0);
    ASSERT_EQ(Qbrpt({"layouts", "preview", File("OutIncome.toml"), "--pdf", File("p.pdf")}).status, 0);
    EXPECT_GT(picturesOn(File("p.pdf")), 0);
    const Cafe cafe;
    ASSERT_EQ(cafe.Income({"--pdf", cafe.File("with.pdf"), "--layouts", Folder()}).status, 0);
    EXPECT_GT(picturesOn(cafe.File("with.pdf")), 0);
    ASSERT_EQ(cafe.Income({"--pdf", cafe.File("without.pdf")}).status, 0);
    EXPECT_EQ(picturesOn(cafe.File("without.pdf")), 0);
}

TEST(LayoutsHelp, IsThereOnEveryLevel) {
    for (const std::vector<std::string>& words : {std::vector<std::string>{"layouts", "--help"},
                                                  {"layouts", "export", "--help"},
                                                  {"layouts", "check", "--help"},
                                                  {"layouts", "preview", "--help"}}) {
        const ProgramResult result = Qbrpt(words);
        EXPECT_EQ(result.status, 0);
        EXPECT_THAT(result.out, HasSubstr("Usage: qbrpt layouts" + (words.size() > 2 ? " " + words[1] : "")));
        EXPECT_THAT(result.err, IsEmpty());
    }
}

TEST(LayoutsHelp, HalfAVerbIsWrongUse) {
    for (const std::vector<std::string>& words :
         {std::vector<std::string>{"layouts"},
          {"layouts", "nonsense"},
          {"layouts", "check"},
          {"layouts", "preview", "PayOutRpt.toml"},
          {"layouts", "preview", "a", "--pdf", "b", "--rows", "-1"}}) {
        EXPECT_EQ(Qbrpt(words).status, 2);
    }
}

} // namespace
} // namespace qbrpt::test
