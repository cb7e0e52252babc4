#include "fakes/fault_observer.h"
#include "support/Startupmdl.h"
#include "support_fixture.h"

#include <gmock/gmock.h>

#include <string>

namespace qbrpt {
namespace {

using CrystalRuntime::ObjectKind;
using fakes::FakeReport;
using fakes::FakeReportObject;
using fakes::ReportRecord;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class FontPassTest : public SupportTest {
protected:
    FontPassTest() {
        // The table is the process's own and may be filled by an earlier test.
        platform.fonts->fonts.clear();
        LoadCharsetFonts(ArabicCharset);
        platform.fonts->enumerations = 0;
        platform.fonts->fonts = {{3, "Noto Naskh Arabic"}, {2, "Screen Face"}, {3, "DejaVu Sans"}};
    }

    FakeReportObject& Object(int section, ObjectKind kind, const std::string& font, int charset) {
        auto object = std::make_shared<FakeReportObject>("object");
        object->kind = kind;
        object->fontName = font;
        object->fontCharset = charset;
        report->sections[static_cast<std::size_t>(section - 1)]->objects.push_back(object);
        return *object;
    }

    std::shared_ptr<FakeReport> report = std::make_shared<FakeReport>(std::make_shared<ReportRecord>());
};

TEST_F(FontPassTest, TheTableHoldsTheOutlineFontsInTheirOrder) {
    platform.fonts->fonts.push_back({3, std::string("Amiri\0rest", 10)});
    EXPECT_TRUE(LoadCharsetFonts(ArabicCharset));
    EXPECT_THAT(FontTable(), ElementsAre("Noto Naskh Arabic", "DejaVu Sans", "Amiri"));
    EXPECT_EQ(platform.fonts->charset, 178);
    EXPECT_EQ(platform.fonts->contexts, 0);
}

TEST_F(FontPassTest, NoOutlineFontIsNoSuccess) {
    platform.fonts->fonts = {{2, "Screen Face"}};
    EXPECT_FALSE(LoadCharsetFonts(ArabicCharset));
    EXPECT_THAT(FontTable(), IsEmpty());
}

TEST_F(FontPassTest, ANullRecordStopsTheEnumeration) {
    EXPECT_EQ(OnFontFamily(nullptr), 0);
    EXPECT_THAT(FontTable(), IsEmpty());
    const EnumLogFont screen{2, "Screen Face"};
    EXPECT_EQ(OnFontFamily(&screen), 1);
    EXPECT_THAT(FontTable(), IsEmpty());
}

TEST_F(FontPassTest, AnEnumerationThatFailsGivesItsContextBack) {
    fakes::FakePlatform::Observe(
        std::make_shared<fakes::FaultObserver>(2, fakes::FaultObserver::Reach::Once));
    EXPECT_THROW(LoadCharsetFonts(ArabicCharset), Failure);
    EXPECT_EQ(platform.fonts->contexts, 0);
}

struct ObjectRow {
    const char* name;
    ObjectKind kind;
    const char* font;
    int charset;
    const char* fontAfter;
    int charsetAfter;
};

class FontPassObjects : public FontPassTest, public ::testing::WithParamInterface<ObjectRow> {};

TEST_P(FontPassObjects, AreMadeFit) {
    const ObjectRow& row = GetParam();
    const FakeReportObject& object = Object(3, row.kind, row.font, row.charset);
    ApplyReportFonts(report);
    EXPECT_EQ(object.fontName, row.fontAfter);
    EXPECT_EQ(object.fontCharset, row.charsetAfter);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, FontPassObjects,
    ::testing::Values(
        ObjectRow{"AKnownFontKeepsItsName", ObjectKind::Text, "DejaVu Sans", 0, "DejaVu Sans", 178},
        ObjectRow{"LetterCaseDoesNotMatter", ObjectKind::Text, "dejavu SANS", 0, "dejavu SANS", 178},
        ObjectRow{"AnUnknownFontBecomesTheFirst", ObjectKind::Field, "Tahoma", 0, "Noto Naskh Arabic", 178},
        ObjectRow{"PartOfANameIsNotTheName", ObjectKind::Field, "DejaVu", 0, "Noto Naskh Arabic", 178},
        ObjectRow{"ABlobFieldIsLookedAt", ObjectKind::BlobField, "Tahoma", 1, "Noto Naskh Arabic", 178},
        ObjectRow{"AnArabicObjectKeepsAnUnknownFont", ObjectKind::Text, "Tahoma", 178, "Tahoma", 178},
        ObjectRow{"AFontThatIsNoOutlineIsUnknown", ObjectKind::Text, "Screen Face", 0, "Noto Naskh Arabic",
                  178},
        ObjectRow{"ALineIsLeftAlone", ObjectKind::Line, "Tahoma", 0, "Tahoma", 0},
        ObjectRow{"APictureIsLeftAlone", ObjectKind::Picture, "Tahoma", 0, "Tahoma", 0},
        ObjectRow{"ASubreportIsLeftAlone", ObjectKind::Subreport, "Tahoma", 0, "Tahoma", 0}),
    [](const auto& row) { return row.param.name; });

TEST_F(FontPassTest, ANameInOtherLettersIsKnownInAnyCaseToo) {
    platform.fonts->fonts.push_back({3, "Шрифт É"});
    const FakeReportObject& object = Object(1, ObjectKind::Text, "ШРИФТ é", 0);
    ApplyReportFonts(report);
    EXPECT_EQ(object.fontName, "ШРИФТ é");
}

TEST_F(FontPassTest, TheFontsAreEnumeratedOnceAProcess) {
    ApplyReportFonts(report);
    ApplyReportFonts(report);
    EXPECT_EQ(platform.fonts->enumerations, 1);
}

TEST_F(FontPassTest, WithoutAnArabicFontNothingChangesAndTheNextReportAsksAgain) {
    platform.fonts->fonts.clear();
    const FakeReportObject& object = Object(1, ObjectKind::Text, "Tahoma", 0);
    ApplyReportFonts(report);
    EXPECT_EQ(object.fontName, "Tahoma");
    EXPECT_EQ(object.fontCharset, 0);
    ApplyReportFonts(report);
    EXPECT_EQ(platform.fonts->enumerations, 2);
}

TEST_F(FontPassTest, FailuresArePassedOverAtEveryCall) {
    ASSERT_TRUE(LoadCharsetFonts(ArabicCharset));
    for (std::size_t position = 1; position < 200; ++position) {
        SCOPED_TRACE(position);
        report = std::make_shared<FakeReport>(std::make_shared<ReportRecord>());
        report->sections.resize(2);
        std::vector<FakeReportObject*> objects;
        for (const int section : {1, 2}) {
            objects.push_back(&Object(section, ObjectKind::Text, "Tahoma", 0));
            objects.push_back(&Object(section, ObjectKind::Field, "DejaVu Sans", 0));
        }
        fakes::FakePlatform inner;
        const auto fault =
            std::make_shared<fakes::FaultObserver>(position, fakes::FaultObserver::Reach::Once);
        fakes::FakePlatform::Observe(fault);
        ApplyReportFonts(report);
        EXPECT_THAT(inner.messages->boxes, IsEmpty());
        if (fault->Failed() == 0) {
            EXPECT_GT(position, 20U);
            return;
        }
        int spoilt = 0;
        for (const FakeReportObject* object : objects)
            spoilt += object->fontCharset == ArabicCharset && object->fontName != "Tahoma" ? 0 : 1;
        const bool wholeSection =
            fault->LastFailed().starts_with("CrystalRuntime.Section.ReportObjectCount") ||
            fault->LastFailed() == "CrystalRuntime.Report.Sections";
        const bool wholeReport = fault->LastFailed() == "CrystalRuntime.Report.SectionCount";
        EXPECT_EQ(spoilt, wholeReport ? 4 : wholeSection ? 2 : 1) << fault->LastFailed();
    }
    FAIL() << "the pass never ended without a fault";
}

TEST_F(FontPassTest, NoReportAtAllIsPassedOver) {
    ApplyReportFonts(nullptr);
    EXPECT_THAT(platform.messages->boxes, IsEmpty());
}

} // namespace
} // namespace qbrpt
