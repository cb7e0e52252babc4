// Message boxes of a process that has no windows.
#pragma once

#include "platform/desktop.h"

#include <iosfwd>

namespace qbrpt {

/// Writes each box to a stream and answers it at once: OK boxes by OK, Retry/Cancel by `onError`, a question
/// by the answer that changes nothing. Nothing waits for a click that cannot come.
class ConsoleBoxes : public MessageBoxes {
public:
    /// `onError`: Cancel or Retry.
    ConsoleBoxes(std::ostream& stream, BoxAnswer onError);

protected:
    BoxAnswer DoMsgBox(const std::string& text, int style, const std::string& title) override;

private:
    std::ostream& mStream;
    BoxAnswer mOnError;
    int mRetries = 0;
};

/// The answer that QBRPT_ON_ERROR names: Retry for "retry", else Cancel.
[[nodiscard]] BoxAnswer AnswerFromSettings();

} // namespace qbrpt
