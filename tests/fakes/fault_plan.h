// What a failing call must lead to, worked out from the calls of a run without a fault.
#pragma once

#include "fakes/fake_desktop.h"
#include "platform/desktop.h"
#include "platform/printing.h"

#include <gmock/gmock.h>

#include <cstddef>
#include <cstdint>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace qbrpt::fakes {

/// What one faulty run left behind.
struct FaultOutcome {
    std::size_t failed = 0; ///< calls
    std::vector<ShownBox> boxes;
    Pointer pointer = Pointer::Default;
    std::int16_t orientation = 0;
};

/// Positions count port calls from 1, as FaultObserver does.
class FaultPlan {
public:
    /// `log`: the lines of a CallLog, those of members among them.
    explicit FaultPlan(const std::vector<std::string>& log) {
        bool inTitle = false;    // SetOtherTitels passes its failures over
        bool inHostName = false; // as the look-up of a host's name does
        for (const std::string& line : log) {
            if (line.starts_with("member ")) {
                inTitle = line.starts_with("member SetOtherTitels(");
                continue;
            }
            if (line.starts_with("DAO.Database.OpenRecordset(\"SELECT name FROM host_src")) inHostName = true;
            const bool title = inTitle && line.starts_with("CrystalRuntime.Report");
            inTitle = title;
            mCalls.push_back(line);
            mSilent.push_back(title || inHostName || line == "DAO.Database.QueryDefs(\"users_income2\")");
            if (line == "DAO.Recordset.Close()") inHostName = false;
        }
    }

    [[nodiscard]] std::size_t Size() const { return mCalls.size(); }
    [[nodiscard]] const std::string& Call(std::size_t position) const { return mCalls[position - 1]; }
    /// The routine that made this call passes a failure over.
    [[nodiscard]] bool IsSilent(std::size_t position) const { return mSilent[position - 1]; }
    /// The font pass of a new report passes its failures over, too, but not all calls in there are its own.
    [[nodiscard]] bool InFontPass(std::size_t position) const {
        return position > Last("CrystalRuntime.Runtime.NewReport(") &&
               position + 1 < Last("CrystalRuntime.Section.Height(");
    }

    /// Looks whether a run in which only this call failed, and in which every box got this answer, ended as
    /// it must.
    void ExpectEnd(std::size_t position, BoxAnswer answer, const FaultOutcome& outcome) const {
        EXPECT_EQ(outcome.failed, 1U);
        const bool passedOver = IsSilent(position) || (InFontPass(position) && outcome.boxes.empty());
        if (InWindow(position))
            EXPECT_LE(outcome.boxes.size(), 3U); // a viewer without its report fails on
        else if (passedOver)
            EXPECT_THAT(outcome.boxes, testing::IsEmpty());
        else if (answer == BoxAnswer::Cancel)
            EXPECT_THAT(outcome.boxes, testing::SizeIs(1));
        else
            EXPECT_FALSE(outcome.boxes.empty());
        EXPECT_THAT(outcome.boxes, testing::Each(testing::Field(
                                       &ShownBox::style,
                                       testing::AnyOf(BoxStyle::Critical, BoxStyle::CriticalRetryCancel))));
        EXPECT_EQ(outcome.pointer, PointerAfter(position, outcome.pointer));
        EXPECT_EQ(outcome.orientation,
                  OrientationAfter(position, answer == BoxAnswer::Cancel && !passedOver));
    }

    /// The preview window is up: its routines have boxes of their own, or none.
    [[nodiscard]] bool InWindow(std::size_t position) const {
        return position >= First("Forms.Load(") && position <= Last("Form.Unload(");
    }

    /// The pointer at the end: the default one, unless just that call failed.
    [[nodiscard]] Pointer PointerAfter(std::size_t position, Pointer before) const {
        return position == Last("Screen.MousePointer(0)") ? before : Pointer::Default;
    }
    /// A command that was left between turning the printer and its run leaves it turned.
    [[nodiscard]] std::int16_t OrientationAfter(std::size_t position, bool left) const {
        const std::size_t turned = First("Printer.SetOrientation(2)");
        if (turned == 0) return OrientationPortrait;
        if (position == Last("Printer.SetOrientation(1)")) return OrientationLandscape;
        const bool before = position > turned && position < First("Screen.MousePointer(11)");
        return left && before ? OrientationLandscape : OrientationPortrait;
    }

    /// A few positions for runs that take their time: of each operation the first and the last call, and of
    /// all calls every `step`-th.
    [[nodiscard]] std::vector<std::size_t> Sample(std::size_t step) const {
        std::set<std::size_t> positions;
        for (std::size_t position = 1; position <= Size(); ++position) {
            const std::string operation = Call(position).substr(0, Call(position).find('('));
            if (position % step == 0 || position == First(operation) || position == Last(operation))
                positions.insert(position);
        }
        return {positions.begin(), positions.end()};
    }

    [[nodiscard]] std::size_t First(std::string_view head) const {
        for (std::size_t index = 0; index < mCalls.size(); ++index)
            if (mCalls[index].starts_with(head)) return index + 1;
        return 0;
    }
    [[nodiscard]] std::size_t Last(std::string_view head) const {
        for (std::size_t index = mCalls.size(); index > 0; --index)
            if (mCalls[index - 1].starts_with(head)) return index;
        return 0;
    }

private:
    std::vector<std::string> mCalls;
    std::vector<bool> mSilent;
};

} // namespace qbrpt::fakes
