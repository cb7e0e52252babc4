#include "tools/printed_pages.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <sstream>
#include <stdexcept>

namespace qbrpt::test {

namespace {

std::string Packed(std::string text) {
    for (const std::string mark : {" ", "\n", "\f", "\xE2\x80\x8E", "\xE2\x80\x8F", "\xE2\x80\xAA",
                                   "\xE2\x80\xAB", "\xE2\x80\xAC", "\xE2\x80\xAD", "\xE2\x80\xAE"})
        for (std::size_t at = text.find(mark); at != std::string::npos; at = text.find(mark, at))
            text.erase(at, mark.size());
    return text;
}

std::string Run(std::vector<std::string> command) {
    const ProgramResult result = RunProgram(command);
    if (result.status != 0) throw std::runtime_error(command[0] + ": " + result.err);
    return result.out;
}

/// Whether most words of a page are taller than wide.
bool LiesSideways(const std::string& file, const std::string& number) {
    std::istringstream lines(Run({"pdftotext", "-bbox", "-f", number, "-l", number, file, "-"}));
    int tall = 0;
    for (std::string line; std::getline(lines, line);) {
        double left = 0;
        double top = 0;
        double right = 0;
        double bottom = 0;
        if (std::sscanf(line.c_str(), R"( <word xMin="%lf" yMin="%lf" xMax="%lf" yMax="%lf")", &left, &top,
                        &right, &bottom) == 4)
            tall += bottom - top > right - left ? 1 : -1;
    }
    return tall > 0;
}

/// What is blank at the four sides of a sheet, a point a pixel.
void MeasureBlanks(const std::string& file, const std::string& number, PrintedPage& page) {
    std::istringstream picture(Run({"pdftoppm", "-r", "72", "-gray", "-f", number, "-l", number, file}));
    std::string kind;
    int width = 0;
    int height = 0;
    int white = 0;
    picture >> kind >> width >> height >> white;
    picture.get();
    std::string row(static_cast<std::size_t>(width), '\0');
    const auto inked = [&](char pixel) { return static_cast<unsigned char>(pixel) < white - 8; };
    page.leftBlank = page.rightBlank = width;
    page.topBlank = page.bottomBlank = height;
    for (int y = 0; y < height && picture.read(row.data(), width); ++y) {
        const auto first = std::find_if(row.begin(), row.end(), inked) - row.begin();
        if (first == width) continue;
        const auto behind = std::find_if(row.rbegin(), row.rend(), inked) - row.rbegin();
        page.leftBlank = std::min(page.leftBlank, static_cast<int>(first));
        page.rightBlank = std::min(page.rightBlank, static_cast<int>(behind));
        page.topBlank = std::min(page.topBlank, y);
        page.bottomBlank = height - 1 - y;
    }
}

} // namespace

std::vector<PrintedPage> PagesIn(const std::filesystem::path& document) {
    const std::string file = document.string();
    std::vector<PrintedPage> pages;
    std::istringstream lines(Run({"pdfinfo", "-f", "1", "-l", "999999", file}));
    for (std::string line; std::getline(lines, line);) {
        std::istringstream words(line);
        std::string page;
        std::string number;
        std::string what;
        if (!(words >> page >> number >> what) || page != "Page") continue;
        if (what == "size:") {
            double width = 0;
            double height = 0;
            std::string times;
            words >> width >> times >> height;
            PrintedPage& sheet = pages.emplace_back();
            sheet.width = static_cast<int>(std::lround(width));
            sheet.height = static_cast<int>(std::lround(height));
        }
    }
    for (std::size_t i = 0; i < pages.size(); ++i) {
        const std::string number = std::to_string(i + 1);
        pages[i].text = Packed(Run({"pdftotext", "-f", number, "-l", number, file, "-"}));
        pages[i].sideways = LiesSideways(file, number);
        MeasureBlanks(file, number, pages[i]);
    }
    return pages;
}

std::string NumbersOf(const std::vector<PrintedPage>& pages) {
    constexpr std::string_view word = "صفحة";
    std::string numbers;
    for (const PrintedPage& page : pages) {
        const std::size_t at = page.text.find(word);
        const std::string behind = at == std::string::npos ? "" : page.text.substr(at + word.size());
        numbers +=
            (&page == &pages.front() ? "" : " ") + behind.substr(0, behind.find_first_not_of("0123456789"));
    }
    return numbers;
}

} // namespace qbrpt::test
