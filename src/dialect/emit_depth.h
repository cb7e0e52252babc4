// Counts how deep the emitter stands: aliases that name each other go deeper than the text shows.
#pragma once

#include "dialect/emitter.h"

namespace qbrpt::dialect {

class Emitter::Deeper {
public:
    explicit Deeper(Emitter& emitter) : mEmitter(emitter) {
        constexpr int Deepest = 1500;
        if (emitter.mDepth >= Deepest)
            throw Failure(FailureNumber::SyntaxError, "The statement is nested too deeply.");
        ++mEmitter.mDepth;
    }
    ~Deeper() { --mEmitter.mDepth; }
    Deeper(const Deeper&) = delete;
    Deeper& operator=(const Deeper&) = delete;

private:
    Emitter& mEmitter;
};

} // namespace qbrpt::dialect
