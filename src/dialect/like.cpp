#include "dialect/like.h"

#include "base/failure.h"
#include "base/utf8.h"
#include "dialect/letters.h"

#include <algorithm>
#include <string>

namespace qbrpt::dialect {

namespace {

struct Range {
    char32_t first;
    char32_t last;
};

struct Step {
    enum class Type : std::uint8_t { Letter, Any, Digit, Set, Run };
    Type type = Type::Letter;
    char32_t letter = 0;
    bool negated = false;
    std::vector<Range> set;
};

class PatternReader {
public:
    explicit PatternReader(std::string_view pattern)
        : mPattern(pattern), mLetters(CharactersOf(pattern, true)) {}

    std::vector<Step> Read() {
        std::vector<Step> steps;
        while (mAt < mLetters.size()) {
            Step step;
            step.letter = mLetters[mAt++];
            switch (step.letter) {
            case U'*':
                step.type = Step::Type::Run;
                break;
            case U'?':
                step.type = Step::Type::Any;
                break;
            case U'#':
                step.type = Step::Type::Digit;
                break;
            case U'[':
                ReadSet(step);
                break;
            default:
                break;
            }
            const bool runOfRuns =
                step.type == Step::Type::Run && !steps.empty() && steps.back().type == step.type;
            const bool emptySet =
                step.type == Step::Type::Set && step.set.empty() && !step.negated; // [] is nothing
            if (!runOfRuns && !emptySet) steps.push_back(std::move(step));
        }
        return steps;
    }

private:
    void ReadSet(Step& step) {
        const auto end = std::find(mLetters.begin() + static_cast<std::ptrdiff_t>(mAt), mLetters.end(), U']');
        if (end == mLetters.end())
            throw Failure(FailureNumber::InvalidArgument, "The pattern \"" +
                                                              std::string(FirstCharacters(mPattern, 40)) +
                                                              "\" has a bracket that is not closed.");
        const auto stop = static_cast<std::size_t>(end - mLetters.begin());
        step.type = Step::Type::Set;
        if (mLetters[mAt] == U'!' && mAt + 1 < stop) {
            step.negated = true;
            ++mAt;
        }
        while (mAt < stop) {
            const char32_t first = mLetters[mAt];
            const bool range = mAt + 2 < stop && mLetters[mAt + 1] == U'-';
            const char32_t last = range ? mLetters[mAt + 2] : first;
            step.set.push_back({std::min(first, last), std::max(first, last)});
            mAt += range ? 3 : 1;
        }
        mAt = stop + 1;
    }

    std::string_view mPattern;
    std::vector<char32_t> mLetters;
    std::size_t mAt = 0;
};

bool Fits(const Step& step, char32_t letter) {
    switch (step.type) {
    case Step::Type::Letter:
        return step.letter == letter;
    case Step::Type::Digit:
        return letter >= U'0' && letter <= U'9';
    case Step::Type::Set:
        return step.negated != std::any_of(step.set.begin(), step.set.end(), [letter](const Range& range) {
                   return letter >= range.first && letter <= range.last;
               });
    default:
        return true;
    }
}

} // namespace

bool IsLike(std::string_view text, std::string_view pattern) {
    // The statement's pattern is the same for all its rows.
    thread_local std::string lastPattern;
    thread_local std::vector<Step> steps;
    if (pattern != lastPattern || pattern.empty()) {
        lastPattern.clear();
        steps = PatternReader(pattern).Read();
        lastPattern = pattern;
    }
    const std::vector<char32_t> letters = CharactersOf(text, true);
    std::size_t letter = 0;
    std::size_t step = 0;
    std::size_t run = steps.size(); // the last "*" that was met; only it is ever tried again
    std::size_t runLetter = 0;
    while (letter < letters.size()) {
        if (step < steps.size() && steps[step].type == Step::Type::Run) {
            run = step++;
            runLetter = letter;
        } else if (step < steps.size() && Fits(steps[step], letters[letter])) {
            ++step;
            ++letter;
        } else if (run < steps.size()) {
            step = run + 1;
            letter = ++runLetter;
        } else {
            return false;
        }
    }
    while (step < steps.size() && steps[step].type == Step::Type::Run)
        ++step;
    return step == steps.size();
}

} // namespace qbrpt::dialect
