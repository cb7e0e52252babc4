// Pointer, message boxes, printers and clock of a test.
#pragma once

#include "base/failure.h"
#include "platform/desktop.h"
#include "platform/printing.h"

#include <deque>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace qbrpt::fakes {

class FakeScreen final : public Screen {
public:
    std::vector<Pointer> pointers; ///< every pointer that was set, in order
    int beeps = 0;

    [[nodiscard]] Pointer Current() const { return pointers.empty() ? Pointer::Default : pointers.back(); }

private:
    void DoSetMousePointer(Pointer pointer) override { pointers.push_back(pointer); }
    void DoBeep() override { ++beeps; }
};

struct ShownBox {
    std::string text;
    int style = 0;
    std::string title;
    friend bool operator==(const ShownBox&, const ShownBox&) = default;
};

/// Answers a Retry/Cancel box with the next of `answers`, then with `usual`; an OK box with OK.
class FakeMessageBoxes final : public MessageBoxes {
public:
    std::vector<ShownBox> boxes;
    std::deque<BoxAnswer> answers;
    BoxAnswer usual = BoxAnswer::Cancel;

    [[nodiscard]] std::vector<std::string> Texts() const {
        std::vector<std::string> texts;
        for (const ShownBox& box : boxes)
            texts.push_back(box.text);
        return texts;
    }

private:
    BoxAnswer DoMsgBox(const std::string& text, int style, const std::string& title) override {
        boxes.push_back({text, style, title});
        if ((style & 0xF) != BoxStyle::RetryCancel) return BoxAnswer::Ok;
        if (answers.empty()) return usual;
        const BoxAnswer answer = answers.front();
        answers.pop_front();
        return answer;
    }
};

class FakePrinters final : public Printers {
public:
    std::vector<PrinterInfo> printers = {
        {"Lazer", "lazer driver", "LPT1:", OrientationPortrait, 9, 7, 11906}};
    std::optional<PrinterInfo> chosen;      ///< the current printer; none: the first of `printers`
    std::optional<std::int32_t> count;      ///< where the collection's count is not that of `printers`
    std::vector<std::int16_t> orientations; ///< every orientation that was set, in order

private:
    PrinterInfo& Chosen() {
        if (chosen) return *chosen;
        if (printers.empty()) throw Failure(FailureNumber::Device, "No printer is installed.");
        return printers.front();
    }
    std::int32_t DoCount() override { return count.value_or(static_cast<std::int32_t>(printers.size())); }
    PrinterInfo DoItem(std::int32_t index) override { return printers.at(static_cast<std::size_t>(index)); }
    PrinterInfo DoCurrent() override { return Chosen(); }
    void DoSetOrientation(std::int16_t orientation) override {
        if (orientation != OrientationPortrait && orientation != OrientationLandscape)
            throw Failure(FailureNumber::InvalidArgument, "no such orientation");
        Chosen().orientation = orientation;
        orientations.push_back(orientation);
    }
    void DoSetCurrent(const std::string& deviceName) override {
        for (const PrinterInfo& printer : printers) {
            if (printer.deviceName != deviceName) continue;
            chosen = printer;
            return;
        }
        throw Failure(FailureNumber::Device, "no such printer");
    }
    void DoSetPaperSize(std::int16_t paperSize) override { Chosen().paperSize = paperSize; }
    void DoSetPaperBin(std::int16_t paperBin) override { Chosen().paperBin = paperBin; }
};

class FakeClock final : public Clock {
public:
    double now = 38'000.5;

private:
    double DoNow() override { return now; }
};

} // namespace qbrpt::fakes
