// The words that go with a job.
#include "adapters/printing/job_options.h"
#include "base/failure.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace qbrpt {
namespace {

using ::testing::_;
using ::testing::Contains;
using ::testing::Not;
using ::testing::Pair;

InstalledPrinter Lazer() {
    InstalledPrinter printer;
    printer.info.deviceName = "Lazer";
    printer.papers = {{9, "A4", "iso_a4_210x297mm", 20990, 29704}};
    printer.bins = {{7, "تلقائي", "auto"}, {4, "تغذية يدوية", "manual"}};
    return printer;
}

std::string FailureOf(const InstalledPrinter& printer, const PrintJob& job) {
    try {
        static_cast<void>(OptionsOf(printer, job));
    } catch (const Failure& failure) {
        return failure.Description();
    }
    return "";
}

TEST(JobOptions, PaperAndTrayGoAsOne) {
    PrintJob job;
    job.bin = 4;
    job.copies = 3;
    EXPECT_THAT(OptionsOf(Lazer(), job),
                Contains(Pair("media-col",
                              "{media-size={x-dimension=20990 y-dimension=29704} media-source=manual}")));
    EXPECT_THAT(OptionsOf(Lazer(), job), Contains(Pair("copies", "3")));
    EXPECT_THAT(OptionsOf(Lazer(), job), Contains(Pair("print-scaling", "none")));
    job.bin = std::nullopt;
    EXPECT_THAT(OptionsOf(Lazer(), job),
                Contains(Pair("media-col", "{media-size={x-dimension=20990 y-dimension=29704}}")));
}

TEST(JobOptions, OnlyAQueueThatTurnsPagesIsToldNotTo) {
    InstalledPrinter printer = Lazer();
    EXPECT_THAT(OptionsOf(printer, {}), Not(Contains(Pair("orientation-requested", _))));
    printer.info.orientation = OrientationLandscape;
    EXPECT_THAT(OptionsOf(printer, {}), Contains(Pair("orientation-requested", "3")));
}

TEST(JobOptions, WhatThePrinterLacksIsRefused) {
    PrintJob job;
    job.bin = 5;
    EXPECT_EQ(FailureOf(Lazer(), job), "The printer \"Lazer\" has no paper bin 5.");
    job.bin = std::nullopt;
    job.sides = Sides::LongEdge;
    EXPECT_EQ(FailureOf(Lazer(), job), "The printer \"Lazer\" cannot print on both sides.");
    job.sides = Sides::AsThePrinterHas;
    job.paperSize = 11;
    EXPECT_EQ(FailureOf(Lazer(), job), "The printer \"Lazer\" has no paper \"A5\".");
}

TEST(JobOptions, APrinterThatTellsNothingTakesTheUsualPapers) {
    InstalledPrinter silent = Lazer();
    silent.papers.clear();
    silent.bins.clear();
    PrintJob job;
    job.bin = 7;
    EXPECT_THAT(OptionsOf(silent, job),
                Contains(Pair("media-col", "{media-size={x-dimension=21000 y-dimension=29700}}")));
    job.paperSize = 300;
    EXPECT_EQ(FailureOf(silent, job), "The printer \"Lazer\" has no paper 300.");
}

TEST(JobNames, AreApplicationAndTitleCutBetweenCharacters) {
    PrintJob job;
    EXPECT_EQ(JobName(job), "qbrpt");
    job.title = "يوم";
    EXPECT_EQ(JobName(job), "qbrpt - يوم");
    job.application = "cafe";
    EXPECT_EQ(JobName(job), "cafe - يوم");
    job.title = std::string(247, 'x') + "ي";
    EXPECT_EQ(JobName(job), "cafe - " + std::string(247, 'x'));
    job.title = "\xFF";
    EXPECT_EQ(JobName(job), "cafe - \xEF\xBF\xBD");
}

} // namespace
} // namespace qbrpt
