#include "statements.h"

#include "accounts/ledger.h"
#include "adapters/database/recordset.h"
#include "adapters/database/row_store.h"
#include "platform/DAO.h"
#include "service/VantlowCls.h"

#include <memory>
#include <optional>

namespace qbrpt::bench {

namespace {

/// What bounds the sessions of PrintPCUsage: a period of `end_time`, as the words behind BETWEEN, and a host.
struct HostBounds {
    std::string first;
    std::string last;
    std::string host;
};

/// A database that only notes what is asked of it. Without rows a command ends before its report.
class Notes final : public DAO::Database {
public:
    [[nodiscard]] const std::string& Last() const { return mLast; }

private:
    Ref<DAO::Recordset> DoOpenRecordset(const std::string& source, std::optional<int>) override {
        mLast = source;
        return database::MakeRecordset(database::RowStoreBuilder({}).Finish());
    }
    void DoExecute(const std::string&) override {}
    std::int32_t DoRecordsAffected() override { return 0; }
    Ref<DAO::Transaction> DoBeginTrans() override { return nullptr; }
    Ref<DAO::QueryDef> DoQueryDefs(const std::string&) override { return nullptr; }

    std::string mLast;
};

template <class Command>
std::string StatementOf(const Command& command) {
    const auto notes = std::make_shared<Notes>();
    VantlowCls reports;
    reports.SetDatabase(notes);
    command(reports);
    return notes->Last();
}

std::string HostByHand(const HostBounds& bounds) {
    const std::string period =
        bounds.first.empty() ? "" : " AND l.end_time BETWEEN " + bounds.first + " AND " + bounds.last;
    const std::string host = bounds.host.empty() ? "" : " AND l.host_id = " + bounds.host;
    return "SELECT h.name, a.member_time, a.non_member_time, a.total_time, a.tnet, a.sprint_count, "
           "a.printincom, a.totalcost, a.sdiscount, a.netincome, a.total_time / (SELECT CASE WHEN "
           "Sum(l.use_time) IS NULL OR Sum(l.use_time) = 0 THEN 1 ELSE Sum(l.use_time) END FROM local_log l "
           "WHERE l.end_time IS NOT NULL" +
           period +
           ") AS p FROM host_src h JOIN (SELECT l.host_id, Sum(CASE WHEN l.member_id IS NOT NULL THEN "
           "l.use_time END) AS member_time, Sum(CASE WHEN l.member_id IS NULL THEN l.use_time END) AS "
           "non_member_time, Sum(l.use_time) AS total_time, Sum(CASE WHEN l.member_id IS NULL THEN "
           "l.net_cost * l.use_time END) AS tnet, Sum(l.print_count) AS sprint_count, Sum(l.print_count * "
           "l.print_cost) AS printincom, Sum(l.paid + l.discount) AS totalcost, Sum(l.discount) AS "
           "sdiscount, Sum(l.paid) AS netincome FROM local_log l WHERE l.end_time IS NOT NULL" +
           period + host + " GROUP BY l.host_id) a ON h.id = a.host_id ORDER BY h.name";
}

std::string UseByHand(const std::string& filter) {
    return "SELECT h.name, CASE WHEN local_log.member_id IS NOT NULL THEN CASE WHEN m.name IS NOT NULL THEN "
           "m.name ELSE 'عميل محذوف' END ELSE 'مستخدم عام' END, log_time, use_time, idle_time, net_cost, "
           "print_count, other_cost, discount, paid, user_name FROM local_log JOIN host_src h ON h.id = "
           "local_log.host_id LEFT JOIN members m ON m.id = local_log.member_id LEFT JOIN users u ON u.id = "
           "local_log.user_id WHERE local_log.end_time IS NOT NULL" +
           filter + " ORDER BY h.name, local_log.log_time";
}

} // namespace

std::vector<StatementPair> StatementPairs() {
    const auto hosts = [](double date1, double date2, std::int32_t host) {
        return StatementOf([=](VantlowCls& reports) { reports.PrintPCUsage(date1, date2, host); });
    };
    const auto uses = [](std::int32_t date1, std::int32_t date2, std::int32_t host) {
        return StatementOf([=](VantlowCls& reports) { reports.PrintUsage(date1, date2, host); });
    };
    return {
        {"PrintPCUsage", hosts(0, 0, 0), HostByHand({"", "", ""})},
        {"PrintPCUsage, a fifth of the time", hosts(45700, 45780, 0), HostByHand({"45700", "45780", ""})},
        {"PrintPCUsage, one host", hosts(0, 0, 60), HostByHand({"", "", "60"})},
        {"PrintUsage", uses(0, 0, 0), UseByHand("")},
        {"PrintUsage, 31 days", uses(101, 131, 0), UseByHand(" AND (local_log.work_id BETWEEN 101 AND 131)")},
        {"PrintUsage, one host", uses(0, 0, 60), UseByHand(" AND (local_log.host_id = 60)")},
    };
}

std::vector<StatementPair> LedgerPairs() {
    return {
        {"Balances of all accounts", ledger::Balances(),
         "SELECT s.accid, s.name, coalesce(i.t, 0) - coalesce(o.t, 0) AS total, i.acc_to FROM account_src s "
         "LEFT JOIN (SELECT acc_to, sum(amount) t FROM account_log GROUP BY acc_to) i ON i.acc_to = "
         "s.accid LEFT JOIN (SELECT acc_from, sum(amount) t FROM account_log GROUP BY acc_from) o ON "
         "o.acc_from = i.acc_to ORDER BY s.accid, s.name"}};
}

} // namespace qbrpt::bench
