// Joins of every shape give the rows that the engine's own RIGHT and LEFT joins give.
#include "dialect/small_database.h"

#include <gtest/gtest.h>

#include <random>

namespace qbrpt::dialect {
namespace {

// Builds a random tree of joins over a, b, c and d, in words that both dialects understand.
class JoinMaker {
public:
    explicit JoinMaker(unsigned seed) : mRandom(seed) {}

    std::string Statement() {
        std::string names = "abcd";
        std::shuffle(names.begin(), names.end(), mRandom);
        std::string text = "SELECT a.k, a.v, b.k, b.v, c.k, c.v, d.k, d.v FROM " + Joins(names);
        const char table = "abcd"[mRandom() % 4];
        switch (mRandom() % 6) {
        case 0:
            return text + " WHERE Not " + table + ".v Is Null";
        case 1:
            return text + " WHERE " + table + ".v Is Null";
        case 2:
            return text + " WHERE " + table + ".v > 1";
        case 3:
            return text + " WHERE " + table + ".v > 1 Or " + "abcd"[mRandom() % 4] + ".k = 2";
        case 4:
            return text + " WHERE " + table + ".v In (1, 2) And " + "abcd"[mRandom() % 4] + ".k Is Not Null";
        default:
            return text;
        }
    }

private:
    std::string Joins(const std::string& names) {
        if (names.size() == 1) return names;
        const std::size_t cut = 1 + mRandom() % (names.size() - 1);
        const std::string left = names.substr(0, cut);
        const std::string right = names.substr(cut);
        const char* type[] = {" INNER JOIN ", " LEFT JOIN ", " RIGHT JOIN "};
        const auto side = [this](const std::string& part) {
            return part.size() == 1 ? part : "(" + Joins(part) + ")";
        };
        const std::string leftText = side(left);
        return leftText + type[mRandom() % 3] + side(right) + " ON " + Condition(left, right);
    }

    std::string Condition(const std::string& left, const std::string& right) {
        const std::string one(1, left[mRandom() % left.size()]);
        const std::string two(1, right[mRandom() % right.size()]);
        const std::string tie = one + ".k = " + two + ".k";
        switch (mRandom() % 5) {
        case 0:
            return "(" + tie + " And " + one + ".v > 0)";
        case 1:
            return "(" + tie + " And " + two + ".v Is Null)";
        case 2:
            return "(" + tie + " Or " + two + ".v = 1)";
        case 3:
            return one + ".v < " + two + ".v";
        default:
            return tie;
        }
    }

    std::mt19937 mRandom;
};

TEST(JoinRewrites, KeepTheRows) {
    const unsigned seed = std::random_device{}();
    std::mt19937 random(seed);
    std::string script;
    for (const char table : {'a', 'b', 'c', 'd'}) {
        script += std::string("CREATE TABLE ") + table + " (k INTEGER, v INTEGER);";
        for (int row = 0; row < 5; ++row) {
            const auto value = [&random] {
                return random() % 5 == 0 ? std::string("NULL") : std::to_string(random() % 4);
            };
            script += std::string("INSERT INTO ") + table + " VALUES (" + value() + ", " + value() + ");";
        }
    }
    SmallDatabase database;
    database.Native(script);
    for (unsigned turn = 0; turn < 3'000; ++turn) {
        SCOPED_TRACE("seed " + std::to_string(seed) + ", turn " + std::to_string(turn));
        const std::string text = JoinMaker(seed + turn).Statement();
        std::vector<std::string> rows = database.Rows(text);
        database.Native("DROP TABLE IF EXISTS found; CREATE TABLE found AS SELECT * FROM (" + text + ")");
        std::vector<std::string> wanted = database.Rows("SELECT * FROM found");
        std::sort(rows.begin(), rows.end());
        std::sort(wanted.begin(), wanted.end());
        ASSERT_EQ(rows, wanted) << text;
    }
}

} // namespace
} // namespace qbrpt::dialect
