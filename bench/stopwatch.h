// Time and memory of a run.
#pragma once

namespace qbrpt::bench {

/// Time that a piece of work has taken: of the processor, and of the clock on the wall. The first is the
/// steadier figure where other programs run too.
struct Elapsed {
    double processor = 0; ///< seconds
    double wall = 0;      ///< seconds
};

[[nodiscard]] Elapsed TimeNow();

/// Adds up the time of the pieces of work that it is held around.
class Stopwatch {
public:
    template <class Work>
    void Around(Work&& work) {
        const Elapsed begin = TimeNow();
        work();
        const Elapsed end = TimeNow();
        mTotal.processor += end.processor - begin.processor;
        mTotal.wall += end.wall - begin.wall;
    }
    [[nodiscard]] const Elapsed& Total() const { return mTotal; }

private:
    Elapsed mTotal;
};

/// The most memory that this process has held so far, in megabytes.
[[nodiscard]] double PeakMegabytes();
/// What it holds now.
[[nodiscard]] double MegabytesNow();

} // namespace qbrpt::bench
