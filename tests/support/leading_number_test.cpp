#include "base/leading_number.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace qbrpt {
namespace {

TEST(LeadingNumber, StopsWhereTheNumberEnds) {
    struct Row {
        std::string text;
        double number;
    };
    const double infinity = std::numeric_limits<double>::infinity();
    for (const Row& row : {Row{"", 0},
                           Row{"abc", 0},
                           Row{"12", 12},
                           Row{"12abc34", 12},
                           Row{"-5", -5},
                           Row{"+5", 5},
                           Row{"--5", 0},
                           Row{"1.5", 1.5},
                           Row{"1.5.7", 1.5},
                           Row{".5", 0.5},
                           Row{"5.", 5},
                           Row{".", 0},
                           Row{"-.", 0},
                           Row{" 3 2 7 6 ", 3276},
                           Row{"1\t2\r\n3", 123},
                           Row{"1e3", 1000},
                           Row{"1E3", 1000},
                           Row{"1d3", 1000},
                           Row{"1e", 1},
                           Row{"1e+", 1},
                           Row{"1e-2", 0.01},
                           Row{"1e+2x", 100},
                           Row{"e5", 0},
                           Row{"1e400", infinity},
                           Row{"-1e400", -infinity},
                           Row{"1e-400", 0},
                           Row{"0." + std::string(400, '0') + "1", 0},
                           Row{std::string(400, '7'), infinity},
                           Row{"inf", 0},
                           Row{"nan", 0},
                           Row{"١٢", 0},
                           Row{"12م", 12},
                           Row{"1,234", 1},
                           Row{"0x1F", 0}}) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(LeadingNumber(row.text), row.number);
    }
}

} // namespace
} // namespace qbrpt
