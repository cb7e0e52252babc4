#include "adapters/export/html_style.h"

#include <array>
#include <cstdio>

namespace qbrpt {

namespace {

constexpr double TwipsInMillimetre = 1440 / 25.4;

// Printers lay rows out anew, so lengths are points; what only a screen shows is measured in pixels.
constexpr const char* Rules = R"(
:root{--grey:#3C444B;--zero:#7A828A;--hair:#A3ACB3}
*{box-sizing:border-box}
body{margin:0;background:#8F979D;color:#000;font:9pt/1.35 "Noto Sans Arabic","Noto Sans","DejaVu Sans Condensed","DejaVu Sans",Tahoma,sans-serif;font-variant-numeric:lining-nums tabular-nums}
main{width:fit-content;min-width:min(60rem,100%);margin:24px auto;padding:32px;background:#fff;box-shadow:0 2px 10px rgb(0 0 0/.35)}
header{border-bottom:.75pt solid var(--accent);padding-bottom:6pt;margin-bottom:8pt}
header p,h1,h2{margin:0 0 2pt;white-space:pre-line}
.kufi{font-family:"Noto Kufi Arabic","Noto Sans Arabic","DejaVu Sans",Tahoma,sans-serif}
table{border-collapse:collapse;width:100%;margin-bottom:12pt}
thead{display:table-header-group;position:sticky;top:0}
thead th{background:var(--tint);font-size:8pt;line-height:1.3;padding:4pt;text-align:right;vertical-align:bottom}
th.tier{color:var(--accent);text-align:center;padding:2pt 4pt;border-bottom:.5pt solid var(--accent);border-inline:3pt solid #fff}
th.tier:empty{border-bottom-color:var(--tint)}
th small{font-size:7.5pt;font-weight:400;color:var(--grey);margin-inline-start:3pt}
td{padding:2.5pt 4pt;vertical-align:top;border-top:.3pt solid var(--hair);unicode-bidi:isolate;white-space:pre-line;overflow-wrap:anywhere}
tbody tr:first-child>*,.g+tr>td{border-top:0}
tr{break-inside:avoid}
thead .n,.n{text-align:right}
thead .c,.c{text-align:center}
thead .l,.l{text-align:left}
td.n,td.c{direction:ltr;white-space:nowrap;overflow-wrap:normal}
td.k{font-weight:700;background:var(--light)}
td.z{color:var(--zero)}
.g{break-after:avoid}
.g th{font-size:9.5pt;color:var(--accent);text-align:right;padding:8pt 4pt 2pt;border-bottom:.5pt solid var(--accent)}
.s>*{font-weight:700;background:var(--light);border-top:.5pt solid var(--accent)}
.t>*{font-weight:700;background:var(--tint);border-top:.75pt solid var(--accent);border-bottom:2.5pt double var(--accent);padding-block:3.5pt}
.a>*{color:var(--grey);border-top:0}
.a td.k{color:#000;background:none}
.s th,.t th,.a th{text-align:right;padding-inline:4pt;font-size:9pt}
.a th{font-weight:400;font-size:8.5pt}
.s small,.t small,.a small{font-size:8.5pt;font-weight:400;color:var(--grey);margin-inline-start:12pt}
footer{border-top:.3pt solid var(--hair);color:var(--grey);font-size:7.5pt;padding-top:4pt;text-align:left}
@media print{body{background:none}main{width:auto;margin:0;padding:0;box-shadow:none}thead{position:static}*{print-color-adjust:exact;-webkit-print-color-adjust:exact}}
)";

std::string Millimetres(std::int32_t twips) {
    const auto tenths = static_cast<std::int32_t>(twips / TwipsInMillimetre * 10 + 0.5);
    return std::to_string(tenths / 10) + "." + std::to_string(tenths % 10) + "mm";
}

} // namespace

std::string HtmlColor(report::Color color) {
    std::array<char, 8> text{};
    std::snprintf(text.data(), text.size(), "#%06X", static_cast<unsigned>(color) & 0xFFFFFFU);
    return text.data();
}

std::string HtmlStyle(const TableColors& colors, const PaperExtent& sheet) {
    return Rules + std::string(":root{--accent:") + HtmlColor(colors.accent) +
           ";--tint:" + HtmlColor(colors.tint) + ";--light:" + HtmlColor(colors.light) +
           "}\n@page{size:" + Millimetres(sheet.width) + " " + Millimetres(sheet.height) +
           ";margin:12mm 9mm 14mm;@bottom-right{content:\"صفحة \" counter(page) \" من \" "
           "counter(pages);font:7.5pt \"Noto Sans Arabic\",sans-serif;color:#3C444B}}\n";
}

} // namespace qbrpt
