// Finding words in a shown report.
#include "adapters/qt/viewer/text_folding.h"
#include "viewer_fixture.h"

#include <QtWidgets/QLineEdit>

namespace qbrpt {
namespace {

class FindTests : public Viewers {
protected:
    FindTests() { View(Filled("PayOutRpt", NamedPayments(400))); }
    /// Opens the bar, types, and waits until all pages are looked through.
    void Find(const QString& text) {
        viewer->Run(viewer::ViewerCommand::Find);
        Field()->clear();
        for (const QChar letter : text)
            QTest::sendKeyEvent(QTest::Click, Field(), Qt::Key_unknown, QString(letter), Qt::NoModifier);
        ASSERT_TRUE(QTest::qWaitFor([&] { return !Counts().contains('%'); }));
    }
    [[nodiscard]] QLineEdit* Field() const { return viewer->Find().findChild<QLineEdit*>(); }
    [[nodiscard]] QString Counts() const { return viewer->Find().Counts(); }
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const {
        QTest::keyClick(Field(), key, modifiers);
    }
    /// Pixels of the marker under the current place.
    [[nodiscard]] int Marked(QRgb tint) const {
        const QImage seen = Viewport()->grab().toImage().convertToFormat(QImage::Format_RGB32);
        int count = 0;
        for (int y = 0; y < seen.height(); ++y)
            for (int x = 0; x < seen.width(); ++x)
                count += seen.pixel(x, y) == tint ? 1 : 0;
        return count;
    }
    static constexpr QRgb Current = 0xFFFFB347;
    static constexpr QRgb Other = 0xFFFFE68A;
};

TEST_F(FindTests, CountsAllPlacesOfAllPages) {
    struct Row {
        const char* name;
        const char* text;
        const char* counts;
    };
    const Row rows[] = {
        {"a name on every tenth row", "أحمد", "1 من 40"}, {"another form of alef", "احمد", "1 من 40"},
        {"over a blank", "كهرباء أحمد", "1 من 40"},       {"Arabic figures", "طباعة ١٢٣", "1 من 1"},
        {"nothing there", "زرافة", "لا توجد نتائج"},      {"nothing typed", "", ""},
    };
    for (const Row& row : rows) {
        Find(row.text);
        EXPECT_EQ(Counts().toStdString(), row.counts) << row.name;
    }
}

TEST_F(FindTests, APlaceThatCannotBeShownEndsNothing) {
    viewer::Finder finder;
    int asked = 0;
    finder.found = [&](const viewer::HitPlace&) {
        ++asked;
        throw Failure(FailureNumber::Report, "a torn page");
    };
    finder.Start(std::make_shared<viewer::PageStore>(Filled("PayOutRpt", NamedPayments(400))),
                 viewer::FoldQuery("أحمد"), 0);
    EXPECT_EQ(asked, 1);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !finder.Working(); }));
    EXPECT_EQ(finder.Course()->Total(), 40U);
    finder.Step(true);
    EXPECT_EQ(asked, 2);
    EXPECT_EQ(finder.Course()->CurrentNumber(), 2U);
}

TEST_F(FindTests, EnterStepsForwardsAndWithShiftBackwards) {
    Find("أحمد");
    EXPECT_GT(Marked(Current), 50);
    EXPECT_GT(Marked(Other), 50) << "all places are marked";
    Press(Qt::Key_Return);
    EXPECT_EQ(Counts(), "2 من 40");
    Press(Qt::Key_Return, Qt::ShiftModifier);
    Press(Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(Counts(), "40 من 40") << "around the beginning";
    EXPECT_EQ(Desk().CurrentPage(), Desk().PageCount() - 1);
    EXPECT_GT(pageChanges, 0);
    EXPECT_GT(Marked(Current), 50) << "the place is in sight";
    Press(Qt::Key_Return);
    EXPECT_EQ(Counts(), "1 من 40");
}

TEST_F(FindTests, BeginsAtThePageThatIsRead) {
    port->ShowNthPage(5);
    Find("أحمد");
    EXPECT_NE(Counts(), "1 من 40");
    EXPECT_TRUE(Counts().endsWith("من 40"));
    EXPECT_EQ(Desk().CurrentPage(), 4);
}

TEST_F(FindTests, EscStopsASearchThenClosesTheBar) {
    viewer->Run(viewer::ViewerCommand::Find);
    ASSERT_TRUE(viewer->Find().isVisible());
    View(Filled("PayOutRpt", NamedPayments(60'000)));
    Field()->setText("أحمد");
    ASSERT_TRUE(Counts().contains('%')) << "pages are still looked through";
    Press(Qt::Key_Escape);
    EXPECT_TRUE(viewer->Find().isVisible());
    const QString stopped = Counts();
    QTest::qWait(50);
    EXPECT_EQ(Counts(), stopped);
    EXPECT_GT(Marked(Other), 0) << "what was found stays";
    Press(Qt::Key_Escape);
    EXPECT_FALSE(viewer->Find().isVisible());
    EXPECT_EQ(Marked(Other) + Marked(Current), 0);
}

TEST_F(FindTests, ARefreshSearchesAnew) {
    const auto report = Filled("PayOutRpt", NamedPayments(100));
    View(report);
    Find("أحمد");
    ASSERT_EQ(Counts(), "1 من 10");
    report->SetDataSource(std::make_shared<fakes::FakeRecordset>(NamedPayments(50)), 3);
    report->ReadRecords();
    port->Refresh();
    ASSERT_TRUE(QTest::qWaitFor([&] { return Counts() == "1 من 5"; })) << Counts().toStdString();
}

TEST_F(FindTests, SpeaksEnglishWhereTheWindowDoes) {
    View(Filled("PayOutRpt", NamedPayments(100)), false);
    Find("أحمد");
    EXPECT_EQ(Counts(), "1 of 10");
}

} // namespace
} // namespace qbrpt
