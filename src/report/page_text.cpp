#include "report/page_text.h"

#include "base/utf8.h"
#include "report/decimal_text.h"
#include "report/page_lines.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace qbrpt::report {

namespace {

// Tenths of a point out of twips (20 to the point), halves away from zero.
std::string Points(Twips twips) {
    const Twips tenths = (std::abs(twips) + 1) / 2;
    std::string text = twips < 0 && tenths != 0 ? "-" : "";
    return text + std::to_string(tenths / 10) + "." + std::to_string(tenths % 10);
}

std::string Hex(Color color) {
    constexpr std::string_view Digits = "0123456789ABCDEF";
    std::string text = "#";
    for (int shift = 20; shift >= 0; shift -= 4)
        text += Digits[(color >> static_cast<unsigned>(shift)) & 0xFU];
    return text;
}

std::string Stroke(std::int32_t hundredths) {
    FigureText text;
    WriteGrouped(text, hundredths / 100.0, 2, TrailingZeros::Keep);
    return std::string(text.View());
}

void AppendVisible(std::string& out, std::string_view text) {
    for (std::size_t at = 0; at < text.size();) {
        const char32_t c = NextCharacter(text, at);
        if (!IsReadingSign(c)) AppendCharacter(out, c);
    }
}

class Writer {
public:
    Writer(const Page& page, const std::function<std::string(StyleId)>& nameStyle)
        : mPage(page), mNameStyle(nameStyle) {}

    std::string Run() {
        mOut = "page " + Points(mPage.width) + " x " + Points(mPage.height) + "\n";
        for (std::size_t i = 0; i < mPage.items.size();)
            i = mPage.items[i].kind == ItemKind::Word ? AddWords(i) : AddOther(i);
        return std::move(mOut);
    }

private:
    [[nodiscard]] std::string Style(StyleId style) const {
        return mNameStyle ? mNameStyle(style) : "s" + std::to_string(style);
    }
    void Place(std::string_view kind, const Item& item) {
        mOut.append(kind).append(" ").append(Points(item.x)).append(" ").append(Points(item.y));
    }
    void Size(const Item& item) {
        mOut.append(" ").append(Points(item.width)).append(" x ").append(Points(item.height));
    }

    std::size_t AddOther(std::size_t index) {
        const Item& item = mPage.items[index];
        switch (item.kind) {
        case ItemKind::Figures:
            Place("num", item);
            mOut += " w " + Points(item.width) + " " + Style(item.style) + " " + Hex(item.color) + " ";
            mOut += mPage.figureText.substr(item.first, item.length);
            break;
        case ItemKind::Rule:
            Place("rule", item);
            Size(item);
            mOut += " " + Stroke(item.stroke) + " " + Hex(item.color);
            break;
        case ItemKind::Fill:
            Place("fill", item);
            Size(item);
            mOut += " " + Hex(item.color);
            break;
        case ItemKind::Frame:
            Place("frame", item);
            Size(item);
            mOut += " " + Stroke(item.stroke) + " " + Hex(item.color);
            break;
        default:
            Place("image", item);
            Size(item);
            mOut += " " + std::to_string(mPage.pictures[item.first]->width) + "x" +
                    std::to_string(mPage.pictures[item.first]->height) + "px";
        }
        mOut += "\n";
        return index + 1;
    }

    // Words of one line: drawn from left to right on one baseline, in one style and colour.
    std::size_t AddWords(std::size_t index) {
        const Item& first = mPage.items[index];
        const std::size_t end = LineEnd(mPage, index);
        const Item& last = mPage.items[end - 1];
        Place("text", first);
        mOut += " w " + Points(last.x + last.width - first.x) + " " + Style(first.style) + " " +
                Hex(first.color) + " ";
        AddReadingOrder(index, end);
        mOut += "\n";
        return end;
    }

    void AddReadingOrder(std::size_t begin, std::size_t end) {
        bool isFirst = true;
        for (const std::size_t i : ReadingOrder(mPage, begin, end)) {
            if (!isFirst) mOut += ' ';
            isFirst = false;
            AppendVisible(mOut, mPage.items[i].word->text);
        }
    }

    const Page& mPage;
    const std::function<std::string(StyleId)>& mNameStyle;
    std::string mOut;
};

} // namespace

std::string PageText(const Page& page, const std::function<std::string(StyleId)>& nameStyle) {
    return Writer(page, nameStyle).Run();
}

} // namespace qbrpt::report
