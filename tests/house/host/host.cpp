// A café application as small as can be: opens its database itself, and prints through the component.
#include <qbrpt/VantlowCls.h>
#include <sqlite3.h>

#include <cstdio>

int main(int count, char** words) {
    if (count != 2) return 2;
    sqlite3* handle = nullptr;
    if (sqlite3_open(words[1], &handle) != SQLITE_OK) return 3;
    int result = 0;
    {
        qbrpt::VantlowCls reports;
        reports.SetDatabase(qbrpt::DatabaseFromSqliteHandle(handle));
        reports.SetMainTitle("مقهى النخيل", "شارع الكورنيش", "هاتف 44001122");
        if (!reports.IsDbValid() || reports.CanPrint() < 1) result = 4;
        reports.PrintBill(1);
        reports.PrintIncome(0, 0, 0, 0);
    }
    // The handle is the host's own to the end.
    if (sqlite3_close(handle) != SQLITE_OK) result = 5;
    std::printf("done\n");
    return result;
}
