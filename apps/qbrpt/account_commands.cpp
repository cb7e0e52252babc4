#include "account_commands.h"

#include "accounts/account_reports.h"
#include "accounts/ledger.h"
#include "adapters/export/csv.h"
#include "adapters/files/atomic_file.h"
#include "base/numbers.h"
#include "base/pictures.h"
#include "command_host.h"
#include "platform/platform.h"
#include "support/variant.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <array>
#include <iostream>

namespace qbrpt::cli {

namespace {

class OutputSink : public ByteSink {
public:
    void Write(std::string_view bytes) override {
        std::cout.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    }
};

const report::Definition& AccountColumns() {
    static const report::Definition definition = [] {
        static constexpr std::array fields = {Field{"accid", FieldKind::WholeNumber, 4, 0},
                                              Field{"name", FieldKind::String, 251, 4},
                                              Field{"total", FieldKind::Number, 8, 255}};
        report::Definition made;
        made.fields = fields;
        return made;
    }();
    return definition;
}

struct AccountLine {
    std::string number;
    std::string total;
    std::string name;
};

/// Numbers and amounts each in a column, names behind them.
void PrintLines(const Ref<DAO::Recordset>& records) {
    std::vector<AccountLine> lines;
    std::size_t numbers = 0;
    std::size_t totals = 0;
    for (; !records->Eof(); records->MoveNext()) {
        const AccountLine& line = lines.emplace_back(AccountLine{
            TextOf(records->Fields("accid")), FormatNumber(NumberOf(records->Fields("total")), "#,##0.00"),
            AccountName(records->Fields("name"))});
        numbers = std::max(numbers, line.number.size());
        totals = std::max(totals, line.total.size());
    }
    for (const AccountLine& line : lines)
        std::cout << std::string(numbers - line.number.size(), ' ') << line.number << "  "
                  << std::string(totals - line.total.size(), ' ') << line.total << "  " << line.name << '\n';
}

/// The name of an account; empty for one that is not there.
std::string NameOf(const Ref<DAO::Database>& db, std::int32_t accountId) {
    const Ref<DAO::Recordset> records =
        db->OpenRecordset("SELECT name FROM account_src WHERE accid = " + DecimalText(accountId));
    return records->Eof() ? std::string() : AccountName(records->Fields(0));
}

struct Period {
    double from = 0;
    double to = 0;
};

/// The last two arguments.
Period PeriodOf(std::span<const Argument> arguments) {
    return {std::get<double>(arguments[arguments.size() - 2]),
            std::get<double>(arguments[arguments.size() - 1])};
}

const members::Words PeriodHelp = {
    "FROM and TO are date numbers, yyyy-mm-dd or yyyy-mm-ddThh:mm. A day without a time is its first moment: "
    "say\n"
    "TO as the last day at 23:59. FROM alone stands for entries whose moment rounds to that day, from noon "
    "of "
    "the\n"
    "day before to its own noon, as in the window where both are alike.",
    ""};

std::vector<LedgerReport> MakeLedgerReports() {
    const MemberArgument from = {"FROM", ArgumentKind::DateNumber, {"begin; 0 for all time", ""}, "0"};
    // A beginning without an end is its one day; an end of 0 is one, before all others.
    const MemberArgument to = {"TO", ArgumentKind::DateNumber, {"end, with its time of day", ""}, from.name};
    const Member ofOne = {"PrintAccountMoves",
                          {"What came into an account and what went out", ""},
                          members::Outcome::Report,
                          {{"ID", ArgumentKind::Long, {"the account's number", ""}}, from, to},
                          nullptr,
                          PeriodHelp};
    const Member ofAll = {"PrintAllMoves",
                          {"All entries of the general accounts", ""},
                          members::Outcome::Report,
                          {from, to},
                          nullptr,
                          PeriodHelp};
    return {{ofOne,
             [](const Ref<DAO::Database>& db, std::span<const Argument> arguments) {
                 const auto id = std::get<std::int32_t>(arguments[0]);
                 const auto [dFrom, dTo] = PeriodOf(arguments);
                 PrintAccountMoves(db, id, dFrom, dTo, [&] { return NameOf(db, id); });
             }},
            {ofAll, [](const Ref<DAO::Database>& db, std::span<const Argument> arguments) {
                 const auto [dFrom, dTo] = PeriodOf(arguments);
                 PrintAllMoves(db, dFrom, dTo);
             }}};
}

} // namespace

void AddAccounts(CLI::App& application, AccountsCall& call) {
    CLI::App* command =
        application.add_subcommand("accounts", "Lists the general accounts and what they hold");
    command->add_option("--db", call.database, "the café's database file")->type_name("FILE");
    command->add_option("--connect", call.connect, "connect text of a database server")->type_name("TEXT");
    command
        ->add_option_function<std::vector<std::string>>(
            "--csv",
            [&call](const std::vector<std::string>& names) {
                call.csv = true;
                if (!names.empty()) call.csvFile = names.front();
            },
            "as comma-separated values, to standard output or to FILE")
        ->expected(0, 1)
        ->type_name("FILE");
    command->footer("An account that never received anything shows 0, as in the window.");
}

int RunAccounts(const AccountsCall& call) {
    if (call.database.empty() && call.connect.empty())
        throw WrongUse("accounts: no database was given (--db).");
    const Ref<DAO::Database> db =
        Platform::Current().engine->OpenDatabase(call.database, false, true, call.connect);
    const Ref<DAO::Recordset> records = db->OpenRecordset(ledger::Balances());
    if (!call.csv) {
        PrintLines(records);
    } else if (call.csvFile.empty()) {
        OutputSink sink;
        WriteCsv(sink, AccountColumns(), *records->Rows());
    } else {
        AtomicFile file(call.csvFile);
        WriteCsv(file, AccountColumns(), *records->Rows());
        file.Commit();
    }
    return ReportMade;
}

const std::vector<LedgerReport>& LedgerReports() {
    static const std::vector<LedgerReport> reports = MakeLedgerReports();
    return reports;
}

} // namespace qbrpt::cli
