// Paper, values and references.
#include "base/paper.h"
#include "base/ref.h"
#include "base/value.h"

#include <gtest/gtest.h>

namespace qbrpt {
namespace {

TEST(Paper, HasItsExtent) {
    struct Row {
        std::int16_t number;
        std::int32_t width;
        std::int32_t height;
    };
    const Row rows[] = {{9, 11906, 16838}, {1, 12240, 15840},  {8, 16838, 23811},  {11, 8391, 11906},
                        {0, 11906, 16838}, {-1, 11906, 16838}, {999, 11906, 16838}};
    for (const Row& row : rows) {
        SCOPED_TRACE(row.number);
        EXPECT_EQ(ExtentOfPaper(row.number).width, row.width);
        EXPECT_EQ(ExtentOfPaper(row.number).height, row.height);
    }
}

TEST(Value, KnowsItsKind) {
    EXPECT_EQ(KindOf(Value(Null{})), ValueKind::Null);
    EXPECT_EQ(KindOf(Value(true)), ValueKind::Boolean);
    EXPECT_EQ(KindOf(Value(std::int64_t{5})), ValueKind::Whole);
    EXPECT_EQ(KindOf(Value(2.5)), ValueKind::Number);
    EXPECT_EQ(KindOf(Value(Date{37787})), ValueKind::Date);
    EXPECT_EQ(KindOf(Value(std::string("x"))), ValueKind::Text);
    EXPECT_TRUE(IsNull(Value()));
    EXPECT_FALSE(IsNull(Value(false)));
    EXPECT_NE(Value(Date{1}), Value(1.0));
}

TEST(Ref, UsedEmptyIsAFailure) {
    const Ref<std::string> empty;
    EXPECT_TRUE(empty.Empty());
    try {
        (void)empty->size();
        ADD_FAILURE() << "no failure";
    } catch (const Failure& failure) {
        EXPECT_EQ(failure.Number(), FailureNumber::ObjectNotSet);
    }
    Ref<std::string> full(std::make_shared<std::string>("abc"));
    EXPECT_EQ(full->size(), 3U);
    full.Clear();
    EXPECT_THROW((void)*full, Failure);
}

} // namespace
} // namespace qbrpt
