// A café's own files stand before the built-in ones.
#include "adapters/layout/library.h"
#include "adapters/layout/picture_shelf.h"
#include "base/failure.h"
#include "templates/field_tables.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>

namespace {

using qbrpt::FactsOf;
using qbrpt::Failure;
using qbrpt::layout::BuiltInFiles;
using qbrpt::layout::Library;

std::string BuiltIn(std::string_view name) {
    for (const auto& file : BuiltInFiles())
        if (file.name == name) return std::string(file.text);
    ADD_FAILURE() << "no built-in " << name;
    return {};
}

class CafeLayouts : public testing::Test {
protected:
    CafeLayouts() {
        std::string pattern = (std::filesystem::temp_directory_path() / "qbrpt-layouts-XXXXXX").string();
        mFolder = mkdtemp(pattern.data());
    }
    ~CafeLayouts() override { std::filesystem::remove_all(mFolder); }

    void Write(const std::string& name, const std::string& text) const {
        std::ofstream(mFolder / (name + ".toml")) << text;
    }
    /// A picture file of the café: a built-in one under another name.
    void WritePicture(const std::string& name) const {
        const auto& picture = qbrpt::layout::BuiltInPictures().front();
        std::ofstream(mFolder / name, std::ios::binary) << picture.bytes;
    }
    [[nodiscard]] auto Load(const std::string& name) const {
        return Library(mFolder.string()).Load(name, FactsOf(name).fields);
    }
    [[nodiscard]] std::string FailureOf(const std::string& name) const {
        try {
            static_cast<void>(Load(name));
        } catch (const Failure& failure) {
            return failure.Description();
        }
        return "no failure";
    }
    [[nodiscard]] const std::filesystem::path& Folder() const { return mFolder; }

private:
    std::filesystem::path mFolder;
};

std::string Replace(std::string text, const std::string& what, const std::string& by) {
    const std::size_t at = text.find(what);
    EXPECT_NE(at, std::string::npos) << what;
    return text.replace(at, what.size(), by);
}

TEST_F(CafeLayouts, AnEmptyFolderLeavesTheBuiltInOnes) {
    EXPECT_EQ(Load("PayOutRpt")->width, 11178);
}

TEST_F(CafeLayouts, OwnFileWins) {
    Write("PayOutRpt", Replace(BuiltIn("PayOutRpt"), "البيان", "التفاصيل"));
    const auto definition = Load("PayOutRpt");
    EXPECT_EQ(FindObject(*definition, "details caption")->text, "التفاصيل");
}

TEST_F(CafeLayouts, OwnHouseStyleIsLaidOverTheBuiltInOne) {
    Write("house", "[color]\naccent = \"#112233\"\n");
    const auto definition = Load("PayOutRpt");
    EXPECT_EQ(FindObject(*definition, "HotelNameText")->color, 0x112233U);
    EXPECT_EQ(FindObject(*definition, "HeadTitleText")->color, 0U);
}

TEST_F(CafeLayouts, MistakeNamesTheCafesFile) {
    Write("PayOutRpt", Replace(BuiltIn("PayOutRpt"), "\"details\"", "\"detials\""));
    EXPECT_THAT(FailureOf("PayOutRpt"), testing::StartsWith((Folder() / "PayOutRpt.toml").string() + ":6:"));
}

TEST_F(CafeLayouts, MistakeInTheHouseFileNamesThatFile) {
    Write("house", "[color]\naccent = \"blue\"\n");
    EXPECT_THAT(FailureOf("PayOutRpt"), testing::StartsWith((Folder() / "house.toml").string() + ":2:10:"));
}

TEST_F(CafeLayouts, MissingNamedObjectIsToldByName) {
    Write("PayOutRpt", Replace(BuiltIn("PayOutRpt"), "address2 = \"HotelAddr2Text\"", ""));
    EXPECT_THAT(FailureOf("PayOutRpt"),
                testing::HasSubstr("the program needs the object \"HotelAddr2Text\""));
}

TEST_F(CafeLayouts, MissingSectionIsToldByName) {
    Write("PayOutRpt", Replace(BuiltIn("PayOutRpt"), "Section5 = \"total\"", "Total = \"total\""));
    EXPECT_THAT(FailureOf("PayOutRpt"), testing::HasSubstr("the program needs the section \"Section5\""));
}

TEST_F(CafeLayouts, AnotherPageWidthIsRefused) {
    Write("PayOutRpt", Replace(BuiltIn("PayOutRpt"), "width_twips = 11178", "width_twips = 11000"));
    EXPECT_THAT(FailureOf("PayOutRpt"), testing::HasSubstr("\"width_twips\" must be 11178"));
}

TEST_F(CafeLayouts, ALogoStandsInTheHeadingOfReports) {
    Write("house", "[logo]\nfile = \"sign.png\"\n");
    WritePicture("sign.png");
    for (const char* name : {"PayOutRpt", "MembersInfo", "UsageRpt"}) {
        const auto definition = Load(name);
        const auto* logo = FindObject(*definition, "logo");
        ASSERT_NE(logo, nullptr) << name;
        EXPECT_EQ(logo->right + logo->width, definition->width - 260) << "at the left edge";
        EXPECT_NEAR(1.0 * logo->width / logo->height, 75.0 / 52, 0.05) << "in its proportions";
        EXPECT_EQ(logo->image->width, 75);
    }
}

TEST_F(CafeLayouts, ALogoTakesThePlaceOfTheCardsPictures) {
    const auto drawing = FindObject(*Load("rptPPCards"), "CardPicture2")->image->rgba;
    Write("house", "[logo]\nfile = \"sign.png\"\n");
    WritePicture("sign.png");
    const auto definition = Load("rptPPCards");
    EXPECT_EQ(FindObject(*definition, "CardPicture1")->image, FindObject(*definition, "CardPicture2")->image);
    EXPECT_NE(FindObject(*definition, "CardPicture2")->image->rgba, drawing);
}

TEST_F(CafeLayouts, AFileOfABuiltInPicturesNameStandsInItsPlace) {
    WritePicture("card-picture-2.png");
    const auto definition = Load("rptPPCards");
    EXPECT_EQ(FindObject(*definition, "CardPicture1")->image->rgba,
              FindObject(*definition, "CardPicture2")->image->rgba);
}

TEST_F(CafeLayouts, AMissingLogoIsToldWithItsFolder) {
    Write("house", "[logo]\nfile = \"sgin.png\"\n");
    EXPECT_THAT(FailureOf("PayOutRpt"), testing::StartsWith((Folder() / "house.toml").string() +
                                                            ":2:8: there is no picture \"sgin.png\" in"));
}

TEST_F(CafeLayouts, ALogoThatIsNoPictureIsToldByName) {
    Write("house", "[logo]\nfile = \"house.toml\"\n");
    EXPECT_THAT(FailureOf("PayOutRpt"), testing::HasSubstr("house.toml: the picture cannot be read"));
}

TEST_F(CafeLayouts, AFolderInPlaceOfAFileIsToldClearly) {
    std::filesystem::create_directory(Folder() / "PayOutRpt.toml");
    EXPECT_THAT(FailureOf("PayOutRpt"), testing::HasSubstr("the layout file cannot be read"));
}

TEST_F(CafeLayouts, AHugeFileIsRefused) {
    Write("PayOutRpt", std::string(2'000'000, '#'));
    EXPECT_THAT(FailureOf("PayOutRpt"), testing::HasSubstr("too large"));
}

TEST(Layouts, UnknownTemplateIsAFailure) {
    EXPECT_THROW(static_cast<void>(Library().Load("Nobody", {})), Failure);
}

} // namespace
