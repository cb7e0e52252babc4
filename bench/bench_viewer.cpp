// Times the reading of a long report on screen. Each call is a process of its own, so that memory is that
// report's alone, and writes a line "name value" for each figure; times are milliseconds of the processor.
//
//   bench_viewer time FILE ROWS              first page, page turns, zooms, jumps
//   bench_viewer cards FILE ROWS             the same for sheets of cards, whose rows never grow
//   bench_viewer previews FILE TIMES         that many previews, one after the other; memory behind every
//   tenth part bench_viewer shot FILE ROWS PAGE ZOOM PICTURE   what is seen, as a PNG file
//
// FILE is a database that `bench_reports make` wrote.
#include "adapters/qt/viewer/viewer_widget.h"
#include "adapters/real/real_platform.h"
#include "platform/platform.h"
#include "service/VantlowCls.h"
#include "stopwatch.h"
#include "templates/field_tables.h"

#include <QtCore/QTimer>
#include <QtGui/QPixmap>
#include <QtWidgets/QApplication>

#include <algorithm>
#include <exception>
#include <iostream>
#include <random>
#include <string>
#include <vector>

namespace {

using namespace qbrpt;

constexpr QSize WindowSize(1280, 900);
constexpr int Turns = 50;

void Tell(const char* name, double value) {
    std::cout << name << ' ' << value << '\n';
}

template <class Work>
double Milliseconds(Work&& work) {
    bench::Stopwatch watch;
    watch.Around(work);
    return watch.Total().processor * 1000;
}

double Median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

Ref<CrystalRuntime::Report> ReadReport(const std::string& file, const std::string& layout,
                                       const std::string& query) {
    const auto database = Platform::Current().engine->OpenDatabase(file, false, false, "");
    const auto records = database->OpenRecordset(query, DAO::dbOpenDynaset);
    const auto report = Platform::Current().reports->NewReport(layout, FactsOf(layout).fields);
    report->SetDataSource(records, CrystalRuntime::DaoRecordsetTag);
    report->ReadRecords();
    return report;
}

Ref<CrystalRuntime::Report> ReadIncome(const std::string& file, const std::string& rows) {
    return ReadReport(
        file, "IncomeGrpRpt",
        "SELECT min_log_time, max_log_time, Format(d.date, 'ddd dd MMM yyyy'), net_income + print_income as "
        "tnet, members_income, pp_income, other_Income, total_discount, 0 as paid_out, total_income, "
        "t.prints, "
        "t.pp, t.general, t.member, d.work_time, t.total_time, pc_count From daily_sheet AS d RIGHT JOIN "
        "(total_use_count AS t RIGHT JOIN host_log_time AS h ON t.work_id = h.id) ON d.work_id = h.id WHERE "
        "h.id <= " +
            rows + " ORDER BY h.id ");
}

Ref<CrystalRuntime::Report> ReadCards(const std::string& file, const std::string& rows) {
    return ReadReport(file, "rptPPCards",
                      "SELECT 'ساعة واحدة', h.id, 'AB' & h.id, 'x7' & h.id, h.id + 1, 'CD' & h.id, 'y8' & "
                      "h.id FROM host_log_time AS h WHERE h.id <= " +
                          rows);
}

/// The desk as it stands now, painted.
void Paint(qt::ViewerWidget& viewer) {
    viewer.Desk().viewport()->repaint();
}

void TellEach(const char* name, qt::ViewerWidget& viewer, int times, const std::function<void(int)>& act) {
    std::vector<double> each;
    for (int i = 0; i < times; ++i) {
        each.push_back(Milliseconds([&] {
            act(i);
            Paint(viewer);
        }));
        for (int k = 0; k < 20; ++k) // the reader looks at it; what comes next is made ready
            QApplication::processEvents();
    }
    Tell(name, Median(each));
    Tell((std::string(name) + "_worst").c_str(), *std::max_element(each.begin(), each.end()));
}

int Time(const std::function<Ref<CrystalRuntime::Report>()>& read) {
    Ref<CrystalRuntime::Report> report;
    Tell("read", Milliseconds([&] { report = read(); }));
    qt::ViewerWidget viewer;
    viewer.resize(WindowSize);
    viewer.show();
    QApplication::processEvents();
    const auto port = viewer.Port();
    port->SetReportSource(report);
    Tell("first_page", Milliseconds([&] {
             port->ViewReport(true);
             Paint(viewer);
         }));
    const std::int32_t pages = viewer.Desk().PageCount();
    Tell("pages", pages);
    for (int k = 0; k < 50; ++k)
        QApplication::processEvents();
    Tell("rest_megabytes", bench::MegabytesNow());
    TellEach("page_turn", viewer, std::min(Turns, pages - 1),
             [&](int i) { port->ShowNthPage(static_cast<std::int16_t>(i + 2)); });
    TellEach("jump_to_last", viewer, 10, [&](int i) { viewer.Desk().ShowPage(i % 2 == 0 ? pages - 1 : 0); });
    std::mt19937 random(1);
    TellEach("jump_anywhere", viewer, Turns,
             [&](int) { viewer.Desk().ShowPage(std::uniform_int_distribution(0, pages - 1)(random)); });
    constexpr std::int16_t levels[] = {25, 50, 100, 200, 400, 200, 100, 50};
    Tell("picture_megabytes", static_cast<double>(viewer.Desk().PictureBytes()) / (1 << 20));
    TellEach("zoom", viewer, 16, [&](int i) { port->Zoom(levels[i % 8]); });

    Tell("peak_megabytes", bench::PeakMegabytes());
    return 0;
}

/// Closes each preview as soon as it stands.
int Previews(const std::string& file, int times) {
    VantlowCls component;
    component.SetDbInfo(file, "");
    QTimer closing;
    QObject::connect(&closing, &QTimer::timeout, [] {
        if (QWidget* window = QApplication::activeModalWidget()) window->close();
    });
    closing.start(1);
    for (int done = 1; done <= times; ++done) {
        component.PrintIncome(0, 0, 0);
        if (done % (times / 10) == 0)
            Tell(("megabytes_" + std::to_string(done)).c_str(), bench::MegabytesNow());
    }
    return 0;
}

int Shot(const std::vector<std::string>& words) {
    const auto report = ReadIncome(words[2], words[3]);
    qt::ViewerWidget viewer;
    viewer.resize(WindowSize);
    viewer.Port()->SetReportSource(report);
    viewer.Port()->ViewReport(true);
    viewer.show();
    viewer.Port()->Zoom(static_cast<std::int16_t>(std::stoi(words[5])));
    viewer.Desk().ShowPage(std::stoi(words[4]) - 1);
    QApplication::processEvents();
    return viewer.grab().save(QString::fromStdString(words[6])) ? 0 : 1;
}

} // namespace

int main(int count, char** words) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(count, words);
    Platform::Install(MakeRealPlatform(RealParts{}));
    const std::vector<std::string> arguments(words, words + count);
    try {
        if (count == 4 && arguments[1] == "time")
            return Time([&] { return ReadIncome(arguments[2], arguments[3]); });
        if (count == 4 && arguments[1] == "cards")
            return Time([&] { return ReadCards(arguments[2], arguments[3]); });
        if (count == 4 && arguments[1] == "previews") return Previews(arguments[2], std::stoi(arguments[3]));
        if (count == 7 && arguments[1] == "shot") return Shot(arguments);
        std::cerr << "usage: bench_viewer time|cards FILE ROWS | previews FILE TIMES | shot FILE ROWS PAGE "
                     "ZOOM PICTURE\n";
        return 2;
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
}
