// Papers, bins, driver, comment and status of a printer, through the spooler's fields and records.
#include "fakes/call_log.h"
#include "fakes/fake_platform.h"
#include "preview/printer_capabilities.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace qbrpt {
namespace {

using namespace std::string_literals;
using fakes::FakePlatform;
using fakes::SpooledPrinter;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

std::string Repeated(std::string_view text, std::size_t times) {
    std::string all;
    for (std::size_t i = 0; i < times; ++i)
        all += text;
    return all;
}

struct ListRow {
    const char* name;
    CapabilityLists lists;
    std::int32_t count;
    CapabilityRows rows; ///< what stands in the array afterwards
};

const CapabilityRows Before = {{"as it came", 77}};

const std::vector<ListRow> PaperRows = {
    {"none at all", {}, 0, Before},
    {"no names", {{}, {9, 11}}, 0, Before},
    {"no codes", {{"A4"}, {}}, 0, Before},
    {"in the spooler's order", {{"A5", "A4"}, {11, 9}}, 2, {{"A5", 11}, {"A4", 9}}},
    {"fewer names than codes", {{"A4"}, {9, 11, 1}}, 3, {{"A4", 9}, {"", 11}, {"", 1}}},
    {"fewer codes than names", {{"A4", "A5"}, {9}}, 1, {{"A4", 9}}},
    {"as long as its field",
     {{std::string(64, 'x'), "A4"}, {256, 9}},
     2,
     {{std::string(64, 'x'), 256}, {"A4", 9}}},
    {"longer than its field", {{std::string(70, 'x')}, {256}}, 1, {{std::string(64, 'x'), 256}}},
    {"Arabic as long as its field",
     {{Repeated("ورقة", 16), "A4"}, {256, 9}},
     2,
     {{Repeated("ورقة", 16), 256}, {"A4", 9}}},
    {"Arabic longer than its field", {{Repeated("ورقة", 16) + "ب"}, {256}}, 1, {{Repeated("ورقة", 16), 256}}},
    {"cut by characters, not by bytes",
     {{"x" + Repeated("ورق", 25)}, {256}},
     1,
     {{"x" + Repeated("ورق", 21), 256}}},
    {"an empty name", {{"", "A4"}, {300, 9}}, 2, {{"", 300}, {"A4", 9}}},
    {"the largest code", {{"last"}, {32'767}}, 1, {{"last", 32'767}}},
};

TEST(PrinterCapabilities, PapersOfAPrinter) {
    for (const ListRow& row : PaperRows) {
        SCOPED_TRACE(row.name);
        const FakePlatform platform;
        platform.spooler->printers["Lazer"].papers = row.lists;
        CapabilityRows rows = Before;
        EXPECT_EQ(GetPapersData("Lazer", "LPT1:", rows), row.count);
        EXPECT_EQ(rows, row.rows);
    }
}

TEST(PrinterCapabilities, BinsHaveShorterFields) {
    const FakePlatform platform;
    platform.spooler->printers["Lazer"].bins = {{std::string(24, 'x'), std::string(25, 'y'), "درج"},
                                                {1, 2, 257}};
    CapabilityRows rows = Before;
    EXPECT_EQ(GetBinsData("Lazer", "LPT1:", rows), 3);
    EXPECT_EQ(rows, (CapabilityRows{{std::string(24, 'x'), 1}, {std::string(24, 'y'), 2}, {"درج", 257}}));
    EXPECT_EQ(GetPapersData("Lazer", "LPT1:", rows), 0);
    EXPECT_THAT(rows, SizeIs(3));

    const std::string whole = Repeated("درج", 8);
    platform.spooler->printers["Lazer"].bins = {{whole, whole + "ب", "درج"}, {1, 2, 257}};
    EXPECT_EQ(GetBinsData("Lazer", "LPT1:", rows), 3);
    EXPECT_EQ(rows, (CapabilityRows{{whole, 1}, {whole, 2}, {"درج", 257}}));
}

TEST(PrinterCapabilities, AnUnknownPrinterTellsNothing) {
    const FakePlatform platform;
    CapabilityRows rows = Before;
    EXPECT_EQ(GetPapersData("gone", "LPT1:", rows), 0);
    EXPECT_EQ(GetBinsData("gone", "LPT1:", rows), 0);
    EXPECT_EQ(rows, Before);
}

TEST(PrinterCapabilities, NamesAndCodesAreAskedForTwiceEach) {
    const FakePlatform platform;
    platform.spooler->printers["Lazer"].papers = {{"A4"}, {9}};
    const auto log = std::make_shared<fakes::CallLog>();
    FakePlatform::Observe(log);
    CapabilityRows rows;
    GetPapersData("Lazer", "LPT1:", rows);
    EXPECT_THAT(log->Lines(), ElementsAre("Spooler.DeviceCapabilitiesA(\"Lazer\", \"LPT1:\", 16)",
                                          "Spooler.DeviceCapabilitiesA(\"Lazer\", \"LPT1:\", 16)",
                                          "Spooler.DeviceCapabilitiesA(\"Lazer\", \"LPT1:\", 2)",
                                          "Spooler.DeviceCapabilitiesA(\"Lazer\", \"LPT1:\", 2)"));
}

CapabilityLists Many(std::size_t count) {
    CapabilityLists lists;
    for (std::size_t i = 0; i < count; ++i) {
        lists.names.push_back("paper " + std::to_string(i));
        lists.codes.push_back(static_cast<std::int16_t>(256 + i));
    }
    return lists;
}

struct LongRow {
    const char* name;
    bool papers;
    std::size_t count;
    bool overflows;
    std::size_t last; ///< the last row that was filled
};

class LongLists : public ::testing::TestWithParam<LongRow> {};

TEST_P(LongLists, EndInAnOverflowBeyondSixteenBits) {
    const FakePlatform platform;
    const LongRow& row = GetParam();
    SpooledPrinter& printer = platform.spooler->printers["Lazer"];
    (row.papers ? printer.papers : printer.bins) = Many(row.count);
    const auto get = row.papers ? GetPapersData : GetBinsData;
    CapabilityRows rows = Before;
    if (row.overflows) {
        try {
            get("Lazer", "", rows);
            ADD_FAILURE() << "no overflow";
        } catch (const Failure& failure) {
            EXPECT_EQ(failure.Number(), FailureNumber::Overflow);
        }
    } else {
        EXPECT_EQ(get("Lazer", "", rows), static_cast<std::int32_t>(row.count));
    }
    ASSERT_THAT(rows, SizeIs(row.count));
    EXPECT_EQ(rows[row.last].name, "paper " + std::to_string(row.last));
    if (row.overflows) {
        EXPECT_EQ(rows[row.last + 1], CapabilityRow{});
    }
}

INSTANTIATE_TEST_SUITE_P(Rows, LongLists,
                         ::testing::Values(LongRow{"Papers512", true, 512, false, 511},
                                           LongRow{"Papers513", true, 513, true, 511},
                                           LongRow{"Papers600", true, 600, true, 511},
                                           LongRow{"Bins1366", false, 1366, false, 1365},
                                           LongRow{"Bins1367", false, 1367, true, 1365}),
                         [](const auto& row) { return row.param.name; });

TEST(PrinterCapabilities, TextsEndAtTheirFirstNul) {
    EXPECT_EQ(sTerminator("A4\0\0\0"s), "A4");
    EXPECT_EQ(sTerminator("A4\0x"s), "A4");
    EXPECT_EQ(sTerminator("\0A4"s), "");
    EXPECT_EQ(sTerminator("A4"), "A4");
    EXPECT_EQ(sTerminator(""), "");
}

struct InfoRow {
    const char* name;
    PrinterRecord record;
    const char* driver;
    const char* comment;
};

PrinterRecord Described(std::string description, std::string comment = {}) {
    PrinterRecord record;
    record.description = std::move(description);
    record.comment = std::move(comment);
    return record;
}

const std::vector<InfoRow> InfoRows = {
    {"name, driver and place", Described("Lazer,HP 4L,hall", "the old one"), "HP 4L", "the old one"},
    {"two fields", Described("Lazer,HP 4L"), "HP 4L", ""},
    {"no comma", Described("Lazer"), "Lazer", ""},
    {"an empty driver", Described("Lazer,,hall"), "", ""},
    {"blanks stay", Described("Lazer, HP 4L ,hall"), " HP 4L ", ""},
    {"nothing", Described("", "lonely"), "", "lonely"},
    {"Arabic", Described("طابعة,قديمة,قاعة", "لا تعمل"), "قديمة", "لا تعمل"},
};

TEST(PrinterCapabilities, DriverAndCommentOfAPrinter) {
    for (const InfoRow& row : InfoRows) {
        SCOPED_TRACE(row.name);
        const FakePlatform platform;
        platform.spooler->printers["Lazer"].record = row.record;
        platform.spooler->printers["Lazer"].record.status = 0x1000;
        std::string driver = "before";
        std::string comment = "before";
        std::int32_t status = -1;
        GetPrinterInfo("Lazer", driver, comment, status);
        EXPECT_EQ(driver, row.driver);
        EXPECT_EQ(comment, row.comment);
        EXPECT_EQ(status, 0x1000);
        EXPECT_THAT(platform.spooler->open, IsEmpty());
    }
}

TEST(PrinterCapabilities, WhatThereIsNotStaysAsItCame) {
    const FakePlatform platform;
    std::string driver = "driver";
    std::string comment = "comment";
    std::int32_t status = 5;
    GetPrinterInfo("gone", driver, comment, status);
    EXPECT_EQ(driver, "driver");
    EXPECT_EQ(comment, "comment");
    EXPECT_EQ(status, 5);
}

/// The sizes of the records that were asked for, in bytes, with their levels.
std::vector<std::string> RecordCalls(const PrinterRecord& record, std::string& driver, std::string& comment) {
    const FakePlatform platform;
    platform.spooler->printers["Lazer"].record = record;
    const auto log = std::make_shared<fakes::CallLog>();
    FakePlatform::Observe(log);
    std::int32_t status = 0;
    GetPrinterInfo("Lazer", driver, comment, status);
    EXPECT_EQ(status, static_cast<std::int32_t>(record.status));
    return log->LinesOf({"Spooler.GetPrinterA"});
}

// 16 bytes of words, the texts, a NUL behind each of the three.
PrinterRecord ShortRecordOf(std::size_t bytes) {
    PrinterRecord record = Described("Lazer,HP 4L,hall", std::string(bytes - 16 - 3 - 16, 'c'));
    record.status = 7;
    return record;
}

TEST(PrinterCapabilities, ARecordOfAThousandBytesFits) {
    std::string driver;
    std::string comment;
    EXPECT_THAT(RecordCalls(ShortRecordOf(1000), driver, comment),
                ElementsAre("Spooler.GetPrinterA(1, 1, 1000)", "Spooler.GetPrinterA(1, 2, 1000)",
                            // 84 bytes of words and two texts more
                            "Spooler.GetPrinterA(1, 2, 1056)"));
    EXPECT_EQ(driver, "HP 4L");
    EXPECT_EQ(comment, std::string(965, 'c'));
}

TEST(PrinterCapabilities, ALargerRecordIsAskedForAsTheLongOneAndReadAsTheShortOne) {
    PrinterRecord record = Described(std::string(1200, 'd'), "comment");
    record.name = "Lazer,in the hall";
    record.port = "LPT1:";
    record.status = 7;
    std::string driver;
    std::string comment;
    EXPECT_THAT(RecordCalls(record, driver, comment),
                ElementsAre("Spooler.GetPrinterA(1, 1, 1000)", "Spooler.GetPrinterA(1, 2, 1244)",
                            "Spooler.GetPrinterA(1, 2, 1244)"));
    EXPECT_EQ(driver, "in the hall"); // the long record has the name there
    EXPECT_EQ(comment, "LPT1:");      // and the port
}

TEST(PrinterCapabilities, WhereTheLongRecordIsLargerStillTheTextsAreEmpty) {
    PrinterRecord record = ShortRecordOf(1001);
    record.location = "hall";
    std::string driver = "before";
    std::string comment = "before";
    EXPECT_THAT(RecordCalls(record, driver, comment),
                ElementsAre("Spooler.GetPrinterA(1, 1, 1000)", "Spooler.GetPrinterA(1, 2, 1004)",
                            "Spooler.GetPrinterA(1, 2, 1004)", "Spooler.GetPrinterA(1, 2, 1060)"));
    EXPECT_EQ(driver, "");
    EXPECT_EQ(comment, "");
}

TEST(PrinterCapabilities, StatusOfAnOpenPrinter) {
    const FakePlatform platform;
    platform.spooler->printers["Lazer"].record = Described("Lazer", std::string(1500, 'c'));
    platform.spooler->printers["Lazer"].record.status = 0x80;
    PrinterHandle handle = 0;
    EXPECT_TRUE(Platform::Current().spooler->OpenPrinterA("Lazer", handle));
    EXPECT_EQ(PrinterStatuse(handle), 0x80);
    EXPECT_EQ(PrinterStatuse(handle + 1), 0);
    EXPECT_THAT(platform.spooler->open, SizeIs(1)); // it is not closed by asking
}

} // namespace
} // namespace qbrpt
