#include "base/paper.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>

namespace qbrpt {

namespace {

constexpr auto Papers = std::to_array<StandardPaper>({
    {9, 21000, 29700, "A4"},
    {11, 14800, 21000, "A5"},
    {8, 29700, 42000, "A3"},
    {70, 10500, 14800, "A6"},
    {66, 42000, 59400, "A2"},
    {1, 21590, 27940, "Letter"},
    {5, 21590, 35560, "Legal"},
    {7, 18415, 26670, "Executive"},
    {3, 27940, 43180, "Tabloid"},
    {6, 13970, 21590, "Statement"},
    {14, 21590, 33020, "Folio"},
    {15, 21500, 27500, "Quarto"},
    {16, 25400, 35560, "10 × 14"},
    {34, 17600, 25000, "B5 (ISO)"},
    {42, 25000, 35300, "B4 (ISO)"},
    {13, 18200, 25700, "B5 (JIS)"},
    {12, 25700, 36400, "B4 (JIS)"},
    {88, 12800, 18200, "B6 (JIS)"},
    {93, 14600, 21500, "16K"},
    {94, 9700, 15100, "32K"},
    {43, 10000, 14800, "بطاقة بريدية"},
    {69, 14800, 20000, "بطاقة بريدية مزدوجة"},
    {27, 11000, 22000, "ظرف DL"},
    {31, 11400, 16200, "ظرف C6"},
    {32, 11400, 22900, "ظرف C6/C5"},
    {28, 16200, 22900, "ظرف C5"},
    {30, 22900, 32400, "ظرف C4"},
    {29, 32400, 45800, "ظرف C3"},
    {35, 12500, 17600, "ظرف B6"},
    {36, 11000, 23000, "ظرف إيطالي"},
    {37, 9843, 19050, "ظرف Monarch"},
    {38, 9208, 16510, "ظرف 6¾"},
    {19, 9843, 22543, "ظرف 9"},
    {20, 10477, 24130, "ظرف 10"},
    {21, 11430, 26353, "ظرف 11"},
    {22, 12065, 27940, "ظرف 12"},
    {23, 12700, 29210, "ظرف 14"},
    {73, 12000, 23500, "ظرف Chou 3"},
    {74, 9000, 20500, "ظرف Chou 4"},
});

constexpr int Nearness = 60; // hundredths of a millimetre

std::int32_t Twips(int hundredths) {
    constexpr double twipsToTheInch = 1440;
    constexpr double hundredthsToTheInch = 2540;
    return static_cast<std::int32_t>(std::lround(hundredths * twipsToTheInch / hundredthsToTheInch));
}

} // namespace

std::span<const StandardPaper> StandardPapers() {
    return Papers;
}

const StandardPaper* StandardPaperOf(int width, int height) {
    const auto distance = [=](const StandardPaper& paper) {
        return std::max(std::abs(paper.width - width), std::abs(paper.height - height));
    };
    const auto* nearest =
        std::min_element(Papers.begin(), Papers.end(),
                         [&](const auto& one, const auto& other) { return distance(one) < distance(other); });
    return distance(*nearest) <= Nearness ? nearest : nullptr;
}

const StandardPaper* StandardPaperNumbered(std::int16_t number) {
    const auto* known = std::find_if(Papers.begin(), Papers.end(),
                                     [number](const StandardPaper& paper) { return paper.number == number; });
    return known == Papers.end() ? nullptr : known;
}

PaperExtent ExtentOfPaper(std::int16_t paperSize) {
    const StandardPaper* known = StandardPaperNumbered(paperSize);
    return known == nullptr ? PaperExtent{} : ExtentOfSize(known->width, known->height);
}

PaperExtent ExtentOfSize(int width, int height) {
    return {Twips(width), Twips(height)};
}

} // namespace qbrpt
