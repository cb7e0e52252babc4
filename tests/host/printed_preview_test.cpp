// From the preview through the dialogs of printing to the sheets that came out of a printer.
#include "dialog_steps.h"
#include "host_stage.h"
#include "tools/print_service.h"
#include "tools/printed_pages.h"

#include <QtWidgets/QMenu>
#include <QtWidgets/QMenuBar>

namespace qbrpt::test {
namespace {

using ::testing::HasSubstr;
using ::testing::SizeIs;

constexpr const char* PrintDialog = "طباعة";
constexpr const char* SetupDialog = "إعداد الطابعة";

/// The printers stand before the host looks for them.
struct Printers {
    explicit Printers(const char* usual) {
        service.AddFolderQueue("folder");
        service.AddDriverlessQueue("hall");
        EXPECT_EQ(service.Tell({"lpadmin", "-d", usual}).status, 0);
    }
    PrintService service;
};

class PrintedPreview : private Printers, public HostStage {
protected:
    explicit PrintedPreview(const char* usualPrinter) : Printers(usualPrinter) {
        QApplication::setDoubleClickInterval(1); // a list takes a click as soon as it is down
        Open(cafe.Database());
        Choose("PrintServicesIncome");
    }

    /// Shows the report, and does this with its preview until it is closed.
    void ShowAndDo(std::vector<UserStep> steps) {
        UserSteps course(std::move(steps));
        ClickRun();
        EXPECT_TRUE(course.Done());
        EXPECT_TRUE(Waits([this] { return window->isVisible(); }));
    }

    [[nodiscard]] UserStep InPreview(std::function<void()> act) {
        return {"preview",
                [this] {
                    return Preview() != nullptr && QApplication::activeModalWidget() == Preview() &&
                           Preview()->isActiveWindow();
                },
                std::move(act)};
    }
    [[nodiscard]] static UserStep In(const char* title, std::function<void()> act) {
        return {title, [title] { return ActiveDialog(title) != nullptr && !FocusedPart().empty(); },
                std::move(act)};
    }
    /// Back in the preview once that many jobs are out.
    [[nodiscard]] UserStep Out(const char* printer, std::size_t jobs, std::function<void()> act) {
        UserStep step = InPreview(std::move(act));
        step.name = "printed";
        step.ready = [=, this, shown = step.ready] {
            return service.PrintedCount(printer) >= jobs && shown();
        };
        return step;
    }
    /// In the dialog of printing, when it names this printer.
    [[nodiscard]] static UserStep Named(const char* printer, std::function<void()> act) {
        return {printer,
                [printer] {
                    return ActiveDialog(PrintDialog) != nullptr &&
                           OpenPart<QLineEdit>("prName").text() == printer;
                },
                std::move(act)};
    }
    [[nodiscard]] UserStep PrintByKey() {
        return InPreview([] { Keys({"ctrl+p"}); });
    }
    [[nodiscard]] static UserStep SetupByKeys() {
        return In(PrintDialog, [] {
            EXPECT_EQ(FocusedPart(), "printFrom");
            for (const char* next : {"printTo", "printAllChk", "copyCount", "cmdPrntSetup"})
                TabTo(next);
            Keys({"space"});
        });
    }
    /// Another printer, a paper of its own turned, from one of its trays.
    [[nodiscard]] static UserStep ChooseLandscape(const char* printer, const char* paper, const char* tray) {
        return In(SetupDialog, [=] {
            ChooseByKeys("comboPrinter", printer);
            TabTo("comboPaper");
            ChooseByKeys("comboPaper", paper);
            TabTo("comboSource");
            ChooseByKeys("comboSource", tray);
            TabTo("OrignOpt(0)");
            TabTo("OrignOpt(1)", "Down");
            EXPECT_TRUE(OpenPart<QAbstractButton>("OrignOpt(1)").isChecked());
            Keys({"Return"});
        });
    }
    [[nodiscard]] static UserStep PagesTwoToThreeTwice(const char* printer) {
        return Named(printer, [] {
            for (const char* next : {"copyCount", "printAllChk", "printTo", "printFrom"})
                TabTo(next, "shift+Tab");
            Keys({"2", "Tab", "3", "Tab", "Tab", "2"});
            EXPECT_TRUE(Waits([] { return OpenPart<QLineEdit>("copyCount").text() == "2"; }));
            EXPECT_EQ(OpenPart<QLineEdit>("printFrom").text(), "2");
            EXPECT_EQ(OpenPart<QLineEdit>("printTo").text(), "3");
            Keys({"Return"});
        });
    }
    [[nodiscard]] UserStep Leave(const char* printer, std::size_t jobs) {
        return Out(printer, jobs, [] { UserClosesWindow(); });
    }

    /// All sheets of one kind, each a page of this report.
    static void ExpectSheets(const std::vector<PrintedPage>& pages, int width, int height, bool sideways) {
        for (const PrintedPage& page : pages) {
            EXPECT_EQ(page.width, width);
            EXPECT_EQ(page.height, height);
            EXPECT_EQ(page.sideways, sideways);
            EXPECT_THAT(page.text, HasSubstr("تقريربخدماتالزبائن"));
        }
    }

    using Printers::service;
    const Cafe cafe{20, 12};
};

/// "1 2 3"
std::string UpTo(std::size_t last) {
    std::string numbers;
    for (std::size_t page = 1; page <= last; ++page)
        numbers += (page == 1 ? "" : " ") + std::to_string(page);
    return numbers;
}

class PreviewForHall : public PrintedPreview {
protected:
    PreviewForHall() : PrintedPreview("hall") {}
};

class PreviewForFolder : public PrintedPreview {
protected:
    PreviewForFolder() : PrintedPreview("folder") {}
};

TEST_F(PreviewForHall, GoesByKeysToAPrinterThatSavesItsSheets) {
    ShowAndDo({PrintByKey(), SetupByKeys(), ChooseLandscape("folder", "A5", "درج 2"),
               PagesTwoToThreeTwice("folder"), Leave("folder", 1)});
    const PrintedJob job = service.Printed("folder");
    const std::vector<PrintedPage> pages = PagesIn(job.file);
    EXPECT_EQ(NumbersOf(pages), "2 3 2 3");
    ExpectSheets(pages, 420, 595, true);
    ASSERT_THAT(pages, SizeIs(4));
    EXPECT_NE(pages[0].text, pages[1].text);
    EXPECT_EQ(pages[0].text, pages[2].text);
    EXPECT_EQ(pages[1].text, pages[3].text);
    EXPECT_TRUE(job.Has("PageSize=A5")) << job.words;
    EXPECT_TRUE(job.Has("InputSlot=Tray2")) << job.words;
    EXPECT_EQ(service.PrintedCount("hall"), 0U);
}

TEST_F(PreviewForFolder, GoesByKeysToADriverlessPrinter) {
    ShowAndDo({PrintByKey(), SetupByKeys(), ChooseLandscape("hall", "Legal", "تغذية يدوية"),
               PagesTwoToThreeTwice("hall"), Leave("hall", 1)});
    const PrintedJob job = service.Printed("hall");
    const std::vector<PrintedPage> pages = PagesIn(job.file);
    EXPECT_EQ(NumbersOf(pages), "2 3");
    ExpectSheets(pages, 612, 1008, true);
    EXPECT_TRUE(job.Has("IPP_COPIES=2")) << job.words;
    EXPECT_TRUE(job.Has("media-source=manual")) << job.words;
    EXPECT_TRUE(job.Has("x-dimension=21590")) << job.words;
    EXPECT_EQ(service.PrintedCount("folder"), 0U);
}

TEST_F(PreviewForHall, GoesByMouseAloneAndThenWhole) {
    ShowAndDo(
        {InPreview([this] {
             QMenuBar& bar = *Preview()->findChild<QMenuBar*>();
             UserClicks(bar, bar.actionGeometry(bar.actions().front()).center());
             QMenu* menu = bar.actions().front()->menu();
             EXPECT_TRUE(Waits([&] { return menu->isVisible(); }));
             UserClicks(*menu, menu->actionGeometry(Preview()->findChild<QAction*>("mnPrint")).center());
         }),
         In(PrintDialog, [] { UserClicks(OpenPart<QWidget>("cmdPrntSetup")); }),
         In(SetupDialog,
            [] {
                ChooseByMouse("comboPrinter", "folder");
                UserClicks(OpenPart<QWidget>("OrignOpt(1)"));
                EXPECT_TRUE(Waits([] { return OpenPart<QAbstractButton>("OrignOpt(1)").isChecked(); }));
                UserClicks(OpenPart<QWidget>("cmdOk"));
            }),
         Named("folder",
               [] {
                   auto& arrows = OpenPart<QWidget>("VScroll1");
                   UserClicks(arrows, {arrows.width() / 2, arrows.height() - 5});
                   EXPECT_TRUE(Waits([] { return OpenPart<QLineEdit>("copyCount").text() == "2"; }));
                   UserClicks(OpenPart<QWidget>("printAllChk"));
                   EXPECT_TRUE(Waits([] { return OpenPart<QAbstractButton>("printAllChk").isChecked(); }));
                   UserClicks(OpenPart<QWidget>("cmdOk"));
               }),
         Out("folder", 1, [] { Keys({"ctrl+p"}); }),
         Named("folder",
               [] {
                   TabTo("printTo");
                   TabTo("printAllChk");
                   Keys({"space"});
                   EXPECT_TRUE(Waits([] { return OpenPart<QAbstractButton>("printAllChk").isChecked(); }));
                   Keys({"Return"});
               }),
         Leave("folder", 2)});
    const std::vector<PrintedPage> pages = PagesIn(service.Printed("folder").file);
    // "All" is counted while the report still lies on the papers of the printer before.
    const std::size_t before = pages.size() / 2;
    EXPECT_EQ(NumbersOf(pages), UpTo(before) + " " + UpTo(before));
    ExpectSheets(pages, 595, 842, true);
    const std::vector<PrintedPage> all = PagesIn(service.Printed("folder", 2).file);
    EXPECT_GT(all.size(), before);
    EXPECT_EQ(NumbersOf(all), UpTo(all.size()));
    ASSERT_FALSE(all.empty());
    EXPECT_THAT(all.front().text, HasSubstr("صفحة1من" + std::to_string(all.size())));
    ExpectSheets(all, 595, 842, true);
}

TEST_F(PreviewForFolder, PrintsNothingThatIsCancelled) {
    const auto escape = [] { Keys({"Escape"}); };
    ShowAndDo({PrintByKey(), In(PrintDialog, escape),                                  // at once
               PrintByKey(), SetupByKeys(), In(SetupDialog, [] { Keys({"Escape"}); }), // as it was
               Named("folder", escape),                                                //
               PrintByKey(), In(PrintDialog, [] { UserClicks(OpenPart<QWidget>("Cancel")); }), PrintByKey(),
               In(PrintDialog, [] { UserClosesWindow(); }), PrintByKey(),
               In(PrintDialog, [] { Keys({"Return"}); }), // the only job
               Leave("folder", 1)});
    EXPECT_EQ(service.JobsUnderWay(), 0U);
    EXPECT_EQ(service.PrintedCount("hall"), 0U);
    EXPECT_EQ(service.PrintedCount("folder"), 1U);
    const PrintedJob job = service.Printed("folder");
    EXPECT_EQ(job.file.filename(), "job1.pdf") << "the service has heard of no other";
    const std::vector<PrintedPage> pages = PagesIn(job.file);
    EXPECT_EQ(NumbersOf(pages), "1") << "what the dialog says as it opens";
    ExpectSheets(pages, 595, 842, false);
}

} // namespace
} // namespace qbrpt::test
