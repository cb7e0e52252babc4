// A report that the preview lays out anew for the printer and the paper that were chosen meanwhile, on paper.
#include "preview/frmPrntServer.h"
#include "preview/printer_capabilities.h"
#include "print_fixture.h"
#include "support/owner_window.h"

namespace qbrpt {
namespace {

using test::NumbersOf;
using test::PagesIn;
using test::PrintedPage;
using ::testing::IsEmpty;
using ::testing::SizeIs;

constexpr std::int16_t OwnPaper = 0; ///< the one that no other printer has

struct RelaidRow {
    const char* name;
    std::int16_t paper;
    std::int16_t orientation;
    int width; ///< of the sheet, in points
    int height;
    std::size_t pages;
};

class RelaidReports : public PrintTest, public ::testing::WithParamInterface<RelaidRow> {
protected:
    RelaidReports() {
        test::QueueKind kind;
        kind.sizes = {{"A4", 595, 842}, {"A3", 842, 1191}, {"Letter", 612, 792}, {"w700h1000", 700, 1000}};
        service.AddFolderQueue("folder", kind);
        hOwnerWnd = 0;
        constexpr WindowHandle preview = 77; // as the fakes number it
        platform.tree->windows[preview].className = "ThunderFormDC";
        platform.windows->places[preview] = {
            .showCmd = 1, .left = 10, .top = 20, .right = 110, .bottom = 220};
    }
    ~RelaidReports() override { frmPrntServer::Drop(); }
    [[nodiscard]] std::int16_t PaperOf(const std::string& device) const {
        const auto printer = printers->Find(device);
        for (const PrinterPaper& paper : printer->papers)
            if (paper.code >= FirstOwnPaper) return paper.code;
        return OwnPaper;
    }
    RelaidReports(const RelaidReports&) = delete;
    RelaidReports& operator=(const RelaidReports&) = delete;
};

TEST_P(RelaidReports, LieCentredOnTheNewSheet) {
    list->SetCurrent("folder");
    const PrinterInfo before = list->Current();
    const auto payments = std::make_shared<PayOutRpt>();
    Fill(*payments);
    Bind(*payments->Report(), before);
    list->SetPaperSize(GetParam().paper != OwnPaper ? GetParam().paper : PaperOf("folder"));
    list->SetOrientation(GetParam().orientation);
    platform.forms->shown = [](fakes::FakeForm& form) { form.events.ButtonClick("print"); };
    frmPrntServer::Instance().ShowpReport(payments, true);
    EXPECT_THAT(platform.messages->boxes, IsEmpty());

    const std::vector<PrintedPage> pages = PagesIn(service.Printed("folder").file);
    ASSERT_THAT(pages, SizeIs(GetParam().pages)) << NumbersOf(pages);
    for (const PrintedPage& page : pages) {
        EXPECT_EQ(page.width, GetParam().width);
        EXPECT_EQ(page.height, GetParam().height);
        EXPECT_EQ(page.sideways, GetParam().orientation == OrientationLandscape);
        EXPECT_NEAR(page.sideways ? page.topBlank : page.leftBlank,
                    page.sideways ? page.bottomBlank : page.rightBlank, 2);
    }
}

INSTANTIATE_TEST_SUITE_P(Rows, RelaidReports,
                         ::testing::Values(RelaidRow{"AsItWas", 9, 1, 595, 842, 5},
                                           RelaidRow{"Letter", 1, 1, 612, 792, 6},
                                           RelaidRow{"LargerSheet", 8, 1, 842, 1191, 4},
                                           RelaidRow{"Turned", 9, 2, 595, 842, 8},
                                           RelaidRow{"OfThePrintersOwn", OwnPaper, 1, 700, 1000, 4}),
                         [](const auto& row) { return row.param.name; });

} // namespace
} // namespace qbrpt
