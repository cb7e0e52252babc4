// The public class of qbrpt: reports, printing and general accounts of an internet café. This header is all
// that a host needs; it includes nothing but the standard library.
#pragma once

#include <any>
#include <cstdint>
#include <memory>
#include <string>

#if defined(__GNUC__)
#define QBRPT_API __attribute__((visibility("default")))
#else
#define QBRPT_API
#endif

struct sqlite3;

namespace qbrpt {

namespace DAO {
class Database;
}

/// What a bill shows; single bits, to be added up. Published for hosts; no member takes it.
enum BillViewMode : std::int32_t { SHOW_BILL_DATE = 1, SHOW_BILL_NO = 2, SHOW_LOGO = 4 };

/// A database for `SetDatabase` from a connection that the host has open already. The host keeps the
/// connection, must not close it while the database is in use, and closes it itself. A null handle gives an
/// empty pointer.
[[nodiscard]] QBRPT_API std::shared_ptr<DAO::Database> DatabaseFromSqliteHandle(sqlite3* handle);

/// The one entry to the component. A host creates an object, gives it a database (`SetDatabase` or
/// `SetDbInfo`) and the three lines of the café's heading (`SetMainTitle`), and then calls commands, one at a
/// time, from one thread: a command returns when its report was handed to the printer, or when its preview
/// was closed.
///
/// Nothing is ever thrown to the host and commands return nothing: a failure is shown to the user in a
/// message box with its own description, where Retry goes on with the next step and Cancel ends the command.
/// A report without rows ends in silence.
///
/// Words used below. A *work identifier* is the `id` of a working day in `host_log_time`. A *date number*
/// counts days since 30 December 1899, the time of day as its fraction. `bShow`: 0 prints at once on the
/// current printer, anything else opens the preview. All strings are UTF-8.
class QBRPT_API VantlowCls {
public:
    /// An object with no database and three empty heading lines.
    VantlowCls();
    /// Lets the database go. One that the host handed over stays open.
    ~VantlowCls();
    VantlowCls(const VantlowCls&) = delete;
    VantlowCls& operator=(const VantlowCls&) = delete;

    /// True when the object holds a database. Whether it is still open is not looked at.
    [[nodiscard]] bool IsDbValid() const;

    /// Takes a database that the host opened; an empty one takes the held one away. The window then in front
    /// becomes the owner of the component's windows. The result is always empty.
    std::any SetDatabase(const std::shared_ptr<DAO::Database>& db);

    /// Opens a database by file name, or by connect text where that names a server. Returns 1, or 0 when it
    /// failed and the user cancelled; the database held before then stays. After a failure that the user
    /// answered by Retry the result is 1 as well: `IsDbValid` tells whether there is a database.
    std::int16_t SetDbInfo(const std::string& szFileName, const std::string& szConnect);

    /// Number of printers installed; 0 means that nothing can be printed.
    [[nodiscard]] std::int16_t CanPrint() const;

    /// The café's name and the two lines under it, from the next report on.
    void SetMainTitle(const std::string& Name1, const std::string& addr1, const std::string& addr2);

    /// Accepted and without effect, for any number.
    void PrintBill(std::int32_t UseID);

    /// The income sheet: a line a working day, landscape. `date1`, `date2`: first and last work identifier;
    /// one of them, or both alike, for a single day; `date1` 0 or below for all days. `bGroup` is not read.
    /// Leaves in silence without a database or without a printer.
    void PrintIncome(std::int32_t date1, std::int32_t date2, std::int16_t bGroup, std::int16_t bShow = 1);

    /// Sessions of a subscriber. `usageID`: a subscription (`active_membership`), which goes before
    /// `memberID`, a subscriber; 0 and 0 for all subscribers.
    void PrintMemberUsage(std::int32_t usageID, std::int32_t memberID, std::int16_t bShow = 1);

    /// Sessions of a prepaid card. `usageID`: a work identifier, 0 for all days; `memberID`: the card's row
    /// in `members_time`.
    void PrintPPUsage(std::int32_t usageID, std::int32_t memberID, std::int16_t bShow = 1);

    /// Use and income of each host, landscape. `date1`, `date2`: date numbers with their time of day; equal
    /// ones, or `date2` 0, for all time. `pcID`: one host, 0 for all.
    void PrintPCUsage(double date1, double date2, std::int32_t pcID = 0, std::int16_t bShow = 1);

    /// Connection time of the internet devices. `d1`, `d2`: whole date numbers; 0 for all time. `bGroup`: 0
    /// gives a line a device and day, anything else a line a device.
    void PrintInternetUsage(std::int32_t d1, std::int32_t d2, std::int16_t bGroup = 1,
                            std::int16_t bShow = 1);

    /// Payments of subscribers. `d1`, `d2`: first and last work identifier; 0 in `d1` for all. Says "No Data"
    /// where there are none.
    void PrintMembersIncom(std::int32_t d1, std::int32_t d2, std::int16_t bShow = 1);

    /// Money paid out. `d1`, `d2`: first and last work identifier; 0 in `d1` for all.
    void PrintPayout(std::int32_t d1, std::int32_t d2, std::int16_t bShow = 1);

    /// Finished sessions one by one, landscape. `date1`, `date2`: first and last work identifier. `pcID`: one
    /// host, 0 for all. `bDeleted`: not 0 for the deleted ones.
    void PrintUsage(std::int32_t date1, std::int32_t date2, std::int32_t pcID, std::int16_t bShow = 1,
                    std::int16_t bDeleted = 0);

    /// Income from outside. `d1`, `d2`: first and last work identifier; 0 in `d1` for all.
    void PrintOtherIncome(std::int32_t d1, std::int32_t d2, std::int16_t bShow = 1);

    /// Orders of customers. `d1`, `d2`: first and last work identifier; 0 in `d1` for all.
    void PrintServicesIncome(std::int32_t d1, std::int32_t d2, std::int16_t bShow = 1);

    /// Subscriptions of the subscribers, always previewed. `szParam`: the host's own condition with its word
    /// WHERE; empty to ask the user.
    void PrintMembersInfo(const std::string& szParam = {});

    /// Income by supervisor from the saved query of the database, always previewed. `d1`, `d2`: first and
    /// last work identifier; 0 in `d1` for all.
    void PrintUsersIncome(std::int32_t d1, std::int32_t d2);

    /// Prepaid cards from the host's query, two cards a row, always previewed.
    void PrintPPCards(const std::string& szSQL);

    /// A list of prepaid cards from the host's query, always previewed. `szCaption`: the title; the
    /// layout's own where empty.
    void PrintPPInfo(const std::string& szSQL, const std::string& szCaption);

    /// The audit trail, always previewed.
    void PrintAudit();

    /// The log of print jobs, always previewed. `workId1`, `workId2`: first and last work identifier; 0 in
    /// `workId1` for all.
    void PrintPrintLog(std::int32_t workId1, std::int32_t workId2);

    /// The window of the general accounts. Does nothing without a database.
    void EditAccount();

private:
    std::shared_ptr<DAO::Database> mDb;
    std::string mName1;
    std::string mAddr1;
    std::string mAddr2;
};

} // namespace qbrpt
