#include "base/paper.h"

#include <algorithm>
#include <array>

namespace qbrpt {

namespace {

struct KnownPaper {
    std::int16_t number;
    PaperExtent extent;
};

constexpr std::array<KnownPaper, 8> KnownPapers = {{{1, {12240, 15840}},  // Letter
                                                    {5, {12240, 20160}},  // Legal
                                                    {7, {10440, 15120}},  // Executive
                                                    {8, {16838, 23811}},  // A3
                                                    {9, {11906, 16838}},  // A4
                                                    {11, {8391, 11906}},  // A5
                                                    {13, {10319, 14571}}, // B5 (JIS)
                                                    {70, {5953, 8391}}}}; // A6

} // namespace

PaperExtent ExtentOfPaper(std::int16_t paperSize) {
    const auto* known =
        std::find_if(KnownPapers.begin(), KnownPapers.end(),
                     [paperSize](const KnownPaper& paper) { return paper.number == paperSize; });
    return known == KnownPapers.end() ? PaperExtent{} : known->extent;
}

} // namespace qbrpt
