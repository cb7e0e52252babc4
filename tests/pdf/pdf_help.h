// Pages made of text, and PDF files looked at by other programs.
#pragma once

#include "adapters/pdf/writer.h"
#include "adapters/text/text_engine.h"
#include "base/byte_sink.h"
#include "tools/child_process.h"
#include "tools/temp_folder.h"

#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace qbrpt::pdf::test {

using report::Item;
using report::ItemKind;
using report::Page;

struct StringSink : ByteSink {
    void Write(std::string_view more) override { bytes += more; }
    std::string bytes;
};

/// An A4 page that texts are put on, aligned at the right.
class PageMaker {
public:
    explicit PageMaker(text::TextEngine& engine) : mEngine(engine) {
        page.width = 11906;
        page.height = 16838;
    }

    void Text(std::string_view text, report::StyleId style, report::Twips right, report::Twips baseline,
              report::BaseDirection base = report::BaseDirection::RightToLeft) {
        const auto block = mEngine.Layout(text, style, 0, base);
        page.texts.push_back(block);
        for (const report::TextLine& line : block->lines) {
            for (const report::PlacedWord& placed : line.words) {
                Item item{ItemKind::Word, style};
                item.x = right - line.width + placed.x;
                item.y = baseline;
                item.word = placed.word;
                page.items.push_back(item);
            }
        }
    }

    void Figures(std::string_view text, report::StyleId style, report::Twips left, report::Twips baseline) {
        Item item{ItemKind::Figures, style};
        item.x = left;
        item.y = baseline;
        item.first = static_cast<std::uint32_t>(page.figureText.size());
        item.length = static_cast<std::uint32_t>(text.size());
        page.figureText += text;
        page.items.push_back(item);
    }

    void Shape(ItemKind kind, report::Color color, report::Twips x, report::Twips y, report::Twips width,
               report::Twips height, std::int32_t stroke = 0) {
        Item item{kind, 0, color, x, y, width, height, stroke};
        page.items.push_back(item);
    }

    void Picture(std::shared_ptr<const qbrpt::Picture> picture, report::Twips x, report::Twips y) {
        Item item{ItemKind::Image, 0, 0, x, y, 1000, 1000};
        item.first = static_cast<std::uint32_t>(page.pictures.size());
        page.pictures.push_back(std::move(picture));
        page.items.push_back(item);
    }

    Page page;

private:
    text::TextEngine& mEngine;
};

inline std::string PdfOf(const text::TextEngine& engine, const std::vector<Page>& pages,
                         const DocumentInfo& info = {}) {
    StringSink sink;
    Writer writer(sink, engine.Fonts(), info);
    for (const Page& page : pages)
        writer.AddPage(page);
    writer.Finish();
    return sink.bytes;
}

/// What a program prints of a PDF; "{}" in the command stands for its file.
inline std::string Look(const std::string& pdf, std::vector<std::string> command) {
    const qbrpt::test::TempFolder folder;
    const std::string file = (folder / "look.pdf").string();
    qbrpt::test::WriteContent(file, pdf);
    for (std::string& part : command)
        if (part == "{}") part = file;
    const qbrpt::test::ProgramResult result = qbrpt::test::RunProgram(command);
    return result.status == 0 && result.err.empty()
               ? result.out
               : "status " + std::to_string(result.status) + ": " + result.err + result.out;
}

/// The text of all pages, without the marks that steer its order.
inline std::string TextOf(const std::string& pdf) {
    std::string text = Look(pdf, {"pdftotext", "{}", "-"});
    for (const std::string_view mark : {"\xE2\x80\x8E", "\xE2\x80\x8F", "\xE2\x80\xAA", "\xE2\x80\xAB",
                                        "\xE2\x80\xAC", "\xE2\x80\xAD", "\xE2\x80\xAE"})
        for (std::size_t at = text.find(mark); at != std::string::npos; at = text.find(mark))
            text.erase(at, mark.size());
    return text;
}

inline std::vector<std::string> LinesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);)
        if (!line.empty() && line != "\f") lines.push_back(line);
    return lines;
}

/// The content streams, readable.
inline std::string ContentOf(const std::string& pdf) {
    const qbrpt::test::TempFolder folder;
    qbrpt::test::WriteContent(folder / "packed.pdf", pdf);
    const std::string plain = (folder / "plain.pdf").string();
    qbrpt::test::RunProgram({"qpdf", "--stream-data=uncompress", "--object-streams=disable",
                             (folder / "packed.pdf").string(), plain});
    return qbrpt::test::ContentOf(plain);
}

} // namespace qbrpt::pdf::test
