// A connection to the spooler that never waits for ever.
#pragma once

#include <cups/cups.h>

#include <chrono>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace qbrpt::cups {

struct CloseConnection {
    void operator()(http_t* connection) const { ::httpClose(connection); }
};
using Connection = std::unique_ptr<http_t, CloseConnection>;

struct FreeDestInfo {
    void operator()(cups_dinfo_t* info) const { ::cupsFreeDestInfo(info); }
};
using DestInfo = std::unique_ptr<cups_dinfo_t, FreeDestInfo>;

/// Printers as libcups keeps them.
class Destinations {
public:
    Destinations() = default;
    explicit Destinations(http_t* connection) { mCount = ::cupsGetDests2(connection, &mFirst); }
    /// One printer, from how the spooler finds it.
    Destinations(const std::string& name, const std::vector<std::pair<std::string, std::string>>& options);
    ~Destinations() { ::cupsFreeDests(mCount, mFirst); }
    Destinations(const Destinations&) = delete;
    Destinations& operator=(const Destinations&) = delete;

    [[nodiscard]] int Count() const { return mCount; }
    [[nodiscard]] cups_dest_t* At(int index) const { return mFirst + index; }

private:
    cups_dest_t* mFirst = nullptr;
    int mCount = 0;
};

/// Connects to the spooler that the system's settings name; empty when there is none. Each answer of it may
/// take `patience`.
[[nodiscard]] Connection Connect(std::chrono::milliseconds patience);

/// The spooler's own words on what went wrong last in this thread.
[[nodiscard]] std::string LastWords();

} // namespace qbrpt::cups
