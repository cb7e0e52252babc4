// The words that a sample café is made of.
#pragma once

#include "sample/random.h"

#include <string>
#include <string_view>

namespace qbrpt::sample {

/// A kind of subscription.
struct MembershipKind {
    std::string_view name;
    int minutes;
    double price;
    int days; ///< that it holds, however little of it is used
};

/// Something to buy at the counter.
struct Good {
    std::string_view name;
    double price;
};

constexpr int MembershipKindCount = 6;
[[nodiscard]] const MembershipKind& MembershipKindAt(int index);

constexpr int SupervisorCount = 6;
[[nodiscard]] std::string_view SupervisorAt(int index);

constexpr int AccountCount = 8;
[[nodiscard]] std::string_view AccountAt(int index);

constexpr int AuditTagCount = 8;
[[nodiscard]] std::string_view AuditTagAt(int index);

constexpr int DeviceCount = 4;
[[nodiscard]] std::string_view DeviceAt(int index);

constexpr int CardAccountCount = 3;
[[nodiscard]] std::string_view CardAccountAt(int index);

/// A person's name; mostly Arabic, now and then Latin.
[[nodiscard]] std::string PersonName(Random& random);
[[nodiscard]] const Good& AnyGood(Random& random);
/// What money went out for; now and then a long text.
[[nodiscard]] std::string_view PayOutText(Random& random);
/// What money came in for from outside.
[[nodiscard]] std::string_view IncomeText(Random& random);
[[nodiscard]] std::string_view DocumentName(Random& random);
[[nodiscard]] std::string_view PrinterName(Random& random);
/// What an event of this kind says.
[[nodiscard]] std::string_view AuditText(int tag, Random& random);
[[nodiscard]] std::string_view TransferText(Random& random);

} // namespace qbrpt::sample
