// Prepaid cards: their pictures, and a logo in the place of these.
#include "runtime/live_fixture.h"
#include "samples/report_rows.h"
#include "templates/rptPPCards.h"
#include "templates/rptPPCardsCov.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace {

using namespace qbrpt;
using testing::HasSubstr;

Ref<const Picture> Plain(std::int32_t width, std::int32_t height) {
    auto picture = std::make_shared<Picture>();
    picture->width = width;
    picture->height = height;
    picture->rgba.assign(static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 4, 0x80);
    return std::shared_ptr<const Picture>(picture);
}

class CardReport : public LiveReports {
protected:
    CardReport() { UseRealText(); }

    /// The pictures in the PDF file of a report, a line each.
    static std::string PicturesOf(const ReportTemplate& cards, std::size_t rows) {
        cards.Report()->SetDataSource(std::make_shared<fakes::FakeRecordset>(samples::Cards(rows)), 3);
        cards.Report()->ReadRecords();
        StringSink sink;
        OutputOf(cards.Report()).WritePdf(sink, {}, {});
        return pdf::test::Look(sink.bytes, {"pdfimages", "-list", "{}"});
    }
};

TEST_F(CardReport, ShowsTheTwoPicturesOfItsLayout) {
    const auto row = [](const report::Definition& definition, const char* name) {
        const report::Object* object = report::FindObject(definition, name);
        return object != nullptr ? object->image : nullptr;
    };
    for (const char* name : {"rptPPCards", "rptPPCardsCov"}) {
        const auto definition = layout::Library().Load(name, FactsOf(name).fields);
        for (const char* picture : {"CardPicture1", "CardPicture2"}) {
            ASSERT_NE(row(*definition, picture), nullptr) << name;
            EXPECT_EQ(row(*definition, picture)->width, 75);
            EXPECT_EQ(row(*definition, picture)->height, 52);
        }
        EXPECT_NE(row(*definition, "CardPicture1")->rgba, row(*definition, "CardPicture2")->rgba);
    }
    EXPECT_THAT(PicturesOf(rptPPCards(), 2), HasSubstr(" 75 "));
}

TEST_F(CardReport, ALogoStandsInTheMiddleOfThePageInItsProportions) {
    rptPPCards cards;
    const auto picture = cards.Report()->ObjectNamed("CardPicture1");
    const std::int32_t width = picture->Width();
    const std::int32_t height = picture->Height();
    cards.SetLogo(Plain(400, 100));
    const std::string pictures = PicturesOf(cards, 2);
    EXPECT_THAT(pictures, HasSubstr(" 400 "));
    EXPECT_THAT(pictures, testing::Not(HasSubstr(" 75 ")));
    for (const char* name : {"CardPicture1", "CardPicture2"}) {
        const auto shown = cards.Report()->ObjectNamed(name);
        EXPECT_EQ(shown->Width(), width) << "wider than its box before";
        EXPECT_NEAR(shown->Height(), width / 4, 1);
        EXPECT_EQ(shown->Left(), (cards.ReportWidth() - shown->Width()) / 2);
        EXPECT_FALSE(shown->Suppress());
    }
    EXPECT_LT(picture->Height(), height);
}

TEST_F(CardReport, AnEmptyLogoLeavesThePictures) {
    rptPPCardsCov cards;
    cards.SetLogo({});
    EXPECT_THAT(PicturesOf(cards, 1), HasSubstr(" 75 "));
    EXPECT_TRUE(platform.messages->boxes.empty());
}

TEST_F(CardReport, TheCafesNameStandsOnEachCard) {
    rptPPCards cards;
    cards.SetCafeName("مقهى الواحة");
    EXPECT_EQ(cards.Report()->ObjectNamed("CafeNameText1")->Text(), "مقهى الواحة");
    EXPECT_EQ(cards.Report()->ObjectNamed("CafeNameText2")->Text(), "مقهى الواحة");
}

} // namespace
