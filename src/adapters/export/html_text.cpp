#include "adapters/export/html_text.h"

#include "adapters/export/plain_text.h"
#include "adapters/text/figure_runs.h"
#include "base/utf8.h"

#include <algorithm>
#include <vector>

namespace qbrpt {

namespace {

void AppendMark(std::string& html, char c) {
    switch (c) {
    case '&':
        html += "&amp;";
        break;
    case '<':
        html += "&lt;";
        break;
    case '>':
        html += "&gt;";
        break;
    case '"':
        html += "&quot;";
        break;
    case '\'':
        html += "&#39;";
        break;
    default:
        html += c;
    }
}

void AppendMarks(std::string& html, std::string_view plain) {
    for (const char c : plain)
        AppendMark(html, c);
}

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

/// Only digits among other letters need a direction of their own.
bool NeedsIsolates(std::string_view text) {
    const bool hasDigit = std::any_of(text.begin(), text.end(), IsDigit);
    return hasDigit && std::any_of(text.begin(), text.end(), [](char c) { return (c & '\x80') != 0; });
}

void AppendIsolated(std::string& html, const std::string& plain) {
    std::u32string characters;
    std::vector<std::size_t> starts;
    for (std::size_t at = 0; at < plain.size();) {
        starts.push_back(at);
        characters += NextCharacter(plain, at);
    }
    starts.push_back(plain.size());
    const std::string_view view = plain;
    const auto piece = [&](std::size_t from, std::size_t to) {
        return view.substr(starts[from], starts[to] - starts[from]);
    };
    std::size_t written = 0;
    for (const text::FigureRun& run : text::FindFigureRuns(characters)) {
        const std::string_view figure = piece(run.first, run.first + run.length);
        // Bare digits stand right by themselves.
        if (!run.isolated || std::all_of(figure.begin(), figure.end(), IsDigit)) continue;
        AppendMarks(html, piece(written, run.first));
        html += "<bdi dir=\"ltr\">";
        written = run.first + run.length;
        AppendMarks(html, figure);
        html += "</bdi>";
    }
    AppendMarks(html, piece(written, characters.size()));
}

} // namespace

void AppendEscaped(std::string& html, std::string_view text) {
    AppendMarks(html, PlainText(text));
}

void AppendCellText(std::string& html, std::string_view text) {
    const std::string plain = PlainText(text);
    if (NeedsIsolates(plain))
        AppendIsolated(html, plain);
    else
        AppendMarks(html, plain);
}

} // namespace qbrpt
