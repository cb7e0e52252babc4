#include "adapters/printing/cups/offers.h"

#include "base/paper.h"
#include "base/utf8.h"
#include "platform/spooler.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <set>

namespace qbrpt {

namespace {

struct KnownBin {
    std::string_view keyword;
    std::int16_t code; ///< 0: a number of the printer's own
    std::string_view name;
};

// Names keep within a bin's field of 24 characters.
constexpr auto KnownBins = std::to_array<KnownBin>({
    {"auto", AutomaticBin, "تلقائي"},
    {"top", 1, "درج علوي"},
    {"bottom", 2, "درج سفلي"},
    {"middle", 3, "درج أوسط"},
    {"manual", 4, "تغذية يدوية"},
    {"envelope", 5, "درج الأظرف"},
    {"large-capacity", 11, "درج كبير"},
    {"main", 14, "درج رئيسي"},
    {"by-pass-tray", 0, "درج جانبي"},
    {"alternate", 0, "درج بديل"},
    {"photo", 0, "درج الصور"},
    {"rear", 0, "درج خلفي"},
    {"left", 0, "درج أيسر"},
    {"right", 0, "درج أيمن"},
    {"side", 0, "درج جانبي"},
    {"center", 0, "درج أوسط"},
    {"disc", 0, "درج الأقراص"},
    {"main-roll", 0, "لفة رئيسية"},
    {"alternate-roll", 0, "لفة بديلة"},
});

const KnownBin* KnownBinOf(std::string_view keyword) {
    const auto* found = std::find_if(KnownBins.begin(), KnownBins.end(),
                                     [=](const KnownBin& bin) { return bin.keyword == keyword; });
    return found == KnownBins.end() ? nullptr : found;
}

/// Hands out the numbers from 256 up. One number depends on its word alone unless another word has taken it.
class OwnNumbers {
public:
    std::int16_t Of(std::string_view word) {
        std::uint32_t hash = 2'166'136'261U;
        for (const char c : word)
            hash = (hash ^ static_cast<unsigned char>(c)) * 16'777'619U;
        std::uint32_t number = hash % Count;
        while (!mTaken.insert(number).second)
            number = (number + 1) % Count;
        return static_cast<std::int16_t>(static_cast<std::uint32_t>(FirstOwnPaper) + number);
    }

private:
    static constexpr std::uint32_t Count =
        std::uint32_t{std::numeric_limits<std::int16_t>::max()} - FirstOwnPaper + 1;
    std::set<std::uint32_t> mTaken;
};

std::string Millimetres(int hundredths) {
    const int tenths = (hundredths + 5) / 10;
    const std::string whole = std::to_string(tenths / 10);
    return tenths % 10 == 0 ? whole : whole + "." + std::to_string(tenths % 10);
}

/// "large-capacity" as "Large capacity".
std::string Plain(std::string_view keyword) {
    std::string plain(keyword);
    std::replace(plain.begin(), plain.end(), '-', ' ');
    std::replace(plain.begin(), plain.end(), '_', ' ');
    if (!plain.empty() && plain[0] >= 'a' && plain[0] <= 'z')
        plain[0] = static_cast<char>(plain[0] - 'a' + 'A');
    return plain;
}

/// The middle part of a keyword like "om_small-photo_100x150mm" where it says more than the size does.
std::string OwnName(std::string_view keyword) {
    const std::size_t begin = keyword.find('_');
    const std::size_t end = keyword.rfind('_');
    if (begin == std::string_view::npos || end <= begin) return {};
    const std::string_view middle = keyword.substr(begin + 1, end - begin - 1);
    const bool hasLetters =
        std::any_of(middle.begin(), middle.end(), [](char c) { return c >= 'a' && c <= 'z' && c != 'x'; });
    const bool says = hasLetters && middle.find("mm") == std::string_view::npos;
    return says ? Plain(middle) : std::string{};
}

std::string SizeName(const ListedMedia& media) {
    const std::string size = Millimetres(media.width) + " × " + Millimetres(media.height) + " مم";
    const std::string own = OwnName(media.keyword);
    return own.empty() ? size : own + " " + size;
}

bool SameSize(const PrinterPaper& paper, const ListedMedia& media) {
    return paper.width == media.width && paper.height == media.height;
}

} // namespace

std::vector<PrinterPaper> PapersOf(const std::vector<ListedMedia>& media) {
    std::vector<PrinterPaper> papers;
    OwnNumbers own;
    std::set<std::int16_t> listed;
    for (const ListedMedia& one : media) {
        if (one.width <= 0 || one.height <= 0) continue;
        PrinterPaper paper{0, {}, one.keyword, one.width, one.height};
        if (const StandardPaper* standard = StandardPaperOf(one.width, one.height)) {
            paper.code = standard->number;
            paper.name = standard->name;
            if (!listed.insert(paper.code).second) continue;
        } else {
            const bool twice = std::any_of(papers.begin(), papers.end(),
                                           [&](const PrinterPaper& other) { return SameSize(other, one); });
            if (twice) continue;
            paper.code = own.Of(std::to_string(one.width) + "x" + std::to_string(one.height));
            paper.name = SizeName(one);
        }
        papers.push_back(std::move(paper));
    }
    return papers;
}

std::vector<PrinterPaper> UsualPapers() {
    std::vector<PrinterPaper> papers;
    for (const StandardPaper& paper : StandardPapers())
        papers.push_back({paper.number, std::string(paper.name), {}, paper.width, paper.height});
    return papers;
}

std::string BinName(std::string_view keyword) {
    if (const KnownBin* known = KnownBinOf(keyword)) return std::string(known->name);
    constexpr std::string_view tray = "tray-";
    if (keyword.starts_with(tray)) return "درج " + std::string(keyword.substr(tray.size()));
    return Plain(keyword);
}

std::vector<PrinterBin> BinsOf(const std::vector<std::string>& keywords) {
    std::vector<PrinterBin> bins;
    OwnNumbers own;
    for (const std::string& keyword : keywords) {
        const bool twice = std::any_of(bins.begin(), bins.end(),
                                       [&](const PrinterBin& bin) { return bin.keyword == keyword; });
        if (twice) continue;
        const KnownBin* known = KnownBinOf(keyword);
        const std::int16_t code = known != nullptr && known->code != 0 ? known->code : own.Of(keyword);
        bins.push_back({code, BinName(keyword), keyword});
    }
    return bins;
}

} // namespace qbrpt
