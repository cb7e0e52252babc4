// Times the income sheet. Each call measures one thing in a process of its own, so that peak memory is that
// thing's alone, and writes a line "name value" for each figure.
//
//   bench_reports make FILE ROWS    writes the database
//   bench_reports bare FILE         the query, every value formatted as text, nothing else
//   bench_reports parts FILE OUT    query and rows, pages, PDF, each timed apart
//   bench_reports whole FILE        the public member, as a host calls it
#include "adapters/database/sqlite/sqlite_engine.h"
#include "adapters/files/atomic_file.h"
#include "adapters/layout/library.h"
#include "adapters/pdf/writer.h"
#include "adapters/real/real_platform.h"
#include "adapters/text/text_engine.h"
#include "income_database.h"
#include "report/document.h"
#include "service/VantlowCls.h"
#include "stopwatch.h"
#include "templates/field_tables.h"

#include <cstring>
#include <exception>
#include <iostream>
#include <string>

namespace {

using namespace qbrpt;
using bench::Stopwatch;

constexpr const char* IncomeStatement =
    "SELECT min_log_time, max_log_time, Format(d.date, 'ddd dd MMM yyyy'), net_income + print_income as "
    "tnet, "
    "members_income, pp_income, other_Income, total_discount, 0 as paid_out, total_income, t.prints, t.pp, "
    "t.general, t.member, d.work_time, t.total_time, pc_count From daily_sheet AS d RIGHT JOIN "
    "(total_use_count "
    "AS t RIGHT JOIN host_log_time AS h ON t.work_id = h.id) ON d.work_id = h.id  ORDER BY h.id ";

void Tell(const char* name, double value) {
    std::cout << name << ' ' << value << '\n';
}

void Tell(const std::string& name, const Stopwatch& watch) {
    std::cout << name << "_processor " << watch.Total().processor << '\n';
    std::cout << name << "_wall " << watch.Total().wall << '\n';
}

int Bare(const std::string& file) {
    Stopwatch all;
    long rows = 0;
    all.Around([&] { rows = bench::ReadIncomeBare(file); });
    Tell("rows", static_cast<double>(rows));
    Tell("all", all);
    Tell("megabytes", bench::PeakMegabytes());
    return 0;
}

int Parts(const std::string& file, const std::string& output) {
    Platform::Install(MakeRealPlatform(RealParts{}));
    Stopwatch query;
    Stopwatch pages;
    Stopwatch pdf;
    std::shared_ptr<const RowSource> rows;
    query.Around([&] {
        const auto database = Platform::Current().engine->OpenDatabase(file, false, false, "");
        const auto records = database->OpenRecordset(IncomeStatement, DAO::dbOpenDynaset);
        records->MoveLast();
        records->MoveFirst();
        rows = records->Rows();
    });

    const auto text = text::MakeTextPort();
    report::DocumentContext context;
    context.text = text.get();
    context.sheet = {16838, 11906};
    const auto definition = layout::Library{}.Load("IncomeGrpRpt", FactsOf("IncomeGrpRpt").fields);
    report::Document document(*definition, rows, context);
    AtomicFile sink(output);
    pdf::Writer writer(sink, text->Fonts(), {"bench", 0});
    std::size_t count = 0;
    pages.Around([&] { count = document.PageCount(); });
    report::Page page;
    for (std::size_t i = 0; i < count; ++i) {
        pages.Around([&] { document.Build(i, page); });
        pdf.Around([&] { writer.AddPage(page); });
    }
    pdf.Around([&] {
        writer.Finish();
        sink.Commit();
    });
    Tell("rows", static_cast<double>(rows->RowCount()));
    Tell("pages", static_cast<double>(count));
    Tell("query", query);
    Tell("layout", pages);
    Tell("pdf", pdf);
    Tell("megabytes", bench::PeakMegabytes());
    return 0;
}

int Whole(const std::string& file) {
    Stopwatch all;
    all.Around([&] {
        VantlowCls reports;
        reports.SetDbInfo(file, "");
        reports.SetMainTitle("مقهى الواحة للإنترنت", "الدوحة، شارع السد", "هاتف 44455667");
        reports.PrintIncome(0, 0, 0, 0);
    });
    Tell("all", all);
    Tell("megabytes", bench::PeakMegabytes());
    return 0;
}

} // namespace

int main(int count, char** words) {
    try {
        const std::string mode = count > 2 ? words[1] : "";
        if (mode == "make" && count == 4) {
            bench::MakeIncomeDatabase(words[2], std::stoi(words[3]));
            return 0;
        }
        if (mode == "bare") return Bare(words[2]);
        if (mode == "parts" && count == 4) return Parts(words[2], words[3]);
        if (mode == "whole") return Whole(words[2]);
        std::cerr << "usage: bench_reports make FILE ROWS | bare FILE | parts FILE OUT | whole FILE\n";
        return 2;
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
}
