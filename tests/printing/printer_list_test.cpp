#include "adapters/printing/printer_list.h"
#include "base/failure.h"
#include "platform/platform.h"

#include <gtest/gtest.h>

#include <functional>

namespace qbrpt {
namespace {

InstalledPrinter Printer(const std::string& name) {
    InstalledPrinter printer;
    printer.info.deviceName = name;
    return printer;
}

std::shared_ptr<InstalledPrinters> Installed(std::vector<InstalledPrinter> printers) {
    return std::make_shared<InstalledPrinters>(std::nullopt, [=](std::chrono::milliseconds) {
        return PrinterListing{printers, {}, false};
    });
}

class PrinterListTest : public ::testing::Test {
protected:
    PrinterListTest() { Platform::Install(std::make_unique<Platform>()); }

    static FailureNumber NumberOf(const std::function<void()>& action) {
        try {
            action();
        } catch (const Failure& failure) {
            return failure.Number();
        }
        return FailureNumber{0};
    }

    PrinterList mPrinters{Installed({Printer("first"), Printer("second")})};
};

TEST_F(PrinterListTest, CountsAndLists) {
    EXPECT_EQ(mPrinters.Count(), 2);
    EXPECT_EQ(mPrinters.Item(1).deviceName, "second");
    EXPECT_EQ(NumberOf([&] { static_cast<void>(mPrinters.Item(2)); }), FailureNumber::NotInCollection);
    EXPECT_EQ(NumberOf([&] { static_cast<void>(mPrinters.Item(-1)); }), FailureNumber::NotInCollection);
}

TEST_F(PrinterListTest, BeginsWithTheFirstOnA4Upright) {
    const PrinterInfo current = mPrinters.Current();
    EXPECT_EQ(current.deviceName, "first");
    EXPECT_EQ(current.orientation, OrientationPortrait);
    EXPECT_EQ(current.paperSize, 9);
    EXPECT_EQ(current.width, 11906);
}

TEST_F(PrinterListTest, WidthFollowsTheTurnedSheet) {
    mPrinters.SetOrientation(OrientationLandscape);
    EXPECT_EQ(mPrinters.Orientation(), OrientationLandscape);
    EXPECT_EQ(mPrinters.Current().width, 16838);
    mPrinters.SetPaperSize(1); // Letter, 8.5 by 11 inches
    EXPECT_EQ(mPrinters.Current().width, 15840);
    mPrinters.SetOrientation(OrientationPortrait);
    EXPECT_EQ(mPrinters.Current().width, 12240);
}

TEST_F(PrinterListTest, ChoosingAPrinterBringsItsOwnDefaults) {
    mPrinters.SetOrientation(OrientationLandscape);
    mPrinters.SetCurrent("second");
    EXPECT_EQ(mPrinters.Current().deviceName, "second");
    EXPECT_EQ(mPrinters.Orientation(), OrientationPortrait);
    EXPECT_EQ(NumberOf([&] { mPrinters.SetCurrent("third"); }), FailureNumber::NotInCollection);
    EXPECT_EQ(mPrinters.Current().deviceName, "second");
}

TEST_F(PrinterListTest, RefusesWhatNoPrinterHas) {
    for (const std::int16_t value : {std::int16_t{0}, std::int16_t{-1}}) {
        SCOPED_TRACE(value);
        EXPECT_EQ(NumberOf([&] { mPrinters.SetOrientation(value); }), FailureNumber::InvalidArgument);
        EXPECT_EQ(NumberOf([&] { mPrinters.SetPaperSize(value); }), FailureNumber::InvalidArgument);
        EXPECT_EQ(NumberOf([&] { mPrinters.SetPaperBin(value); }), FailureNumber::InvalidArgument);
    }
    EXPECT_EQ(NumberOf([&] { mPrinters.SetOrientation(3); }), FailureNumber::InvalidArgument);
    EXPECT_EQ(mPrinters.Current().paperSize, 9);
}

TEST_F(PrinterListTest, WithNoPrinterUsingItIsAFailure) {
    PrinterList none(Installed({}));
    EXPECT_EQ(none.Count(), 0);
    EXPECT_EQ(NumberOf([&] { static_cast<void>(none.Current()); }), FailureNumber::Device);
    EXPECT_EQ(NumberOf([&] { static_cast<void>(none.Orientation()); }), FailureNumber::Device);
    EXPECT_EQ(NumberOf([&] { none.SetOrientation(2); }), FailureNumber::Device);
}

} // namespace
} // namespace qbrpt
