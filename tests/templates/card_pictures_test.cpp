// The logo on cards: fitted into the picture's place, or the picture of the layout left alone.
#include "fakes/call_log.h"
#include "fakes/fake_platform.h"
#include "fakes/fault_observer.h"
#include "support/picture_fit.h"
#include "templates/rptPPCards.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace {

using namespace qbrpt;
using fakes::ShownBox;
using testing::ElementsAre;
using testing::IsEmpty;

std::shared_ptr<const Picture> PictureOf(std::int32_t width, std::int32_t height) {
    auto picture = std::make_shared<Picture>();
    picture->width = width;
    picture->height = height;
    return picture;
}

class CardPictures : public testing::Test {
protected:
    CardPictures() {
        for (const char* name : {"CardPicture1", "CardPicture2"}) {
            auto object = std::make_shared<fakes::FakeReportObject>(name);
            object->kind = CrystalRuntime::ObjectKind::Picture;
            object->width = 900;
            object->height = 600;
            object->left = 100;
            object->suppress = true;
            platform.runtime->latest.lock()->objects[name] = object;
        }
    }
    [[nodiscard]] fakes::FakeReportObject& Object(const std::string& name) const {
        return *platform.runtime->latest.lock()->objects.at(name);
    }

    fakes::FakePlatform platform;
    rptPPCards report;
};

TEST_F(CardPictures, WithoutALogoNothingChanges) {
    report.Section3_Format();
    for (const char* name : {"CardPicture1", "CardPicture2"}) {
        EXPECT_TRUE(Object(name).picture.Empty());
        EXPECT_EQ(Object(name).left, 100);
        EXPECT_TRUE(Object(name).suppress);
    }
    EXPECT_THAT(platform.messages->boxes, IsEmpty());
}

TEST_F(CardPictures, TheLogoStandsInBothInTheMiddleOfThePage) {
    const auto logo = PictureOf(100, 50);
    report.SetLogo(logo);
    platform.runtime->latest.lock()->formatHandlers.at("Section3")();
    for (const char* name : {"CardPicture1", "CardPicture2"}) {
        EXPECT_EQ(Object(name).picture.Shared(), logo);
        EXPECT_EQ(Object(name).width, 900); // 1500 twips shrunk to the box
        EXPECT_EQ(Object(name).height, 450);
        EXPECT_EQ(Object(name).left, (11178 - 900) / 2);
        EXPECT_FALSE(Object(name).suppress);
    }
}

TEST_F(CardPictures, AFailureIsABoxForEachPicture) {
    report.SetLogo(PictureOf(100, 0));
    report.Section3_Format();
    EXPECT_THAT(platform.messages->boxes, ElementsAre(ShownBox{"Division by zero.", 16, "qbrpt"},
                                                      ShownBox{"Division by zero.", 16, "qbrpt"}));
    EXPECT_TRUE(Object("CardPicture1").picture.Empty());
}

struct FitRow {
    const char* name;
    std::int32_t pictureWidth, pictureHeight; ///< pixels
    std::int32_t maxWidth, maxHeight;         ///< twips
    std::int32_t width, height;               ///< twips
};

class PictureFit : public testing::TestWithParam<FitRow> {};

TEST_P(PictureFit, KeepsItsProportions) {
    const FitRow& row = GetParam();
    const fakes::FakePlatform platform;
    fakes::FakeReportObject object("picture");
    object.width = 7;
    object.height = 8;
    FitPictureToBox(*PictureOf(row.pictureWidth, row.pictureHeight), object, row.maxWidth, row.maxHeight);
    EXPECT_EQ(object.width, row.width);
    EXPECT_EQ(object.height, row.height);
}

INSTANTIATE_TEST_SUITE_P(Rows, PictureFit,
                         testing::Values(FitRow{"SmallerIsNotEnlarged", 10, 20, 900, 600, 150, 300},
                                         FitRow{"ExactlyTheBox", 60, 40, 900, 600, 900, 600},
                                         FitRow{"TooWide", 120, 20, 900, 600, 900, 150},
                                         FitRow{"TooHigh", 20, 80, 900, 600, 150, 600},
                                         FitRow{"WideFirstThenHigh", 100, 100, 900, 600, 600, 600},
                                         FitRow{"RoundedToTheNearest", 70, 30, 100, 600, 100, 43},
                                         FitRow{"NoSizeChangesNothing", 0, 0, 900, 600, 7, 8}),
                         [](const auto& row) { return row.param.name; });

TEST(PictureSizes, ArePackedInSixteenBitsEach) {
    EXPECT_EQ(GetPictureSize(*PictureOf(75, 52)), 52 * 65'536 + 75);
    EXPECT_EQ(GetPictureSize(*PictureOf(0, 0)), 0);
    EXPECT_THROW(static_cast<void>(GetPictureSize(*PictureOf(32'768, 1))), Failure);
}

} // namespace
