#include "adapters/console/console_boxes.h"

#include <cstdlib>
#include <ostream>
#include <string_view>

namespace qbrpt {

namespace {

// A routine that goes on regardless of a failing loop would ask for ever; a person would give up too.
constexpr int MostRetries = 1000;

constexpr int ButtonBits = 0xF;
constexpr int OkAlone = 0;
constexpr int YesOrNo = 4;

/// A box of several lines stands on lines of its own, each begun alike.
std::string OnLines(std::string_view text, const std::string& head) {
    std::string lines = head;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool breaks = text[i] == '\r' || text[i] == '\n';
        if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') ++i;
        if (breaks)
            lines += "\n" + head;
        else
            lines += text[i];
    }
    return lines;
}

} // namespace

ConsoleBoxes::ConsoleBoxes(std::ostream& stream, BoxAnswer onError) : mStream(stream), mOnError(onError) {}

BoxAnswer ConsoleBoxes::DoMsgBox(const std::string& text, int style, const std::string& title) {
    mStream << OnLines(text, title + ": ") << '\n' << std::flush;
    switch (style & ButtonBits) {
    case OkAlone:
        return BoxAnswer::Ok;
    case YesOrNo:
        return BoxAnswer::No;
    case BoxStyle::RetryCancel:
        return mOnError == BoxAnswer::Retry && ++mRetries <= MostRetries ? BoxAnswer::Retry
                                                                         : BoxAnswer::Cancel;
    default:
        return BoxAnswer::Cancel;
    }
}

BoxAnswer AnswerFromSettings() {
    const char* chosen = std::getenv("QBRPT_ON_ERROR");
    return chosen != nullptr && std::string_view{chosen} == "retry" ? BoxAnswer::Retry : BoxAnswer::Cancel;
}

} // namespace qbrpt
