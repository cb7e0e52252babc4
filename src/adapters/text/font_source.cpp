#include "adapters/text/font_source.h"

#include "adapters/text/font_book.h"
#include "adapters/text/font_files.h"

#include <algorithm>
#include <string>
#include <vector>

namespace qbrpt::text {

namespace {

constexpr int AnsiCharset = 0;
constexpr int DefaultCharset = 1;
/// There is no device behind the handle; it only has to be one.
constexpr std::intptr_t DesktopContext = 1;

// The house's faces in the order in which they are preferred, as far as they are installed.
std::vector<std::string> Ordered(std::vector<std::string> names) {
    auto next = names.begin();
    for (const std::string_view family : {house::BodyArabic, house::BodyLatin, house::Condensed,
                                          house::Everywhere, house::Heading, house::Codes}) {
        const auto found = std::find(next, names.end(), family);
        if (found == names.end()) continue;
        std::rotate(next, found, found + 1);
        ++next;
    }
    return names;
}

class MachineFonts final : public FontSource {
private:
    std::intptr_t DoGetDesktopDC() override { return DesktopContext; }
    void DoReleaseDC(std::intptr_t /*context*/) override {}

    int DoEnumFontFamiliesEx(std::intptr_t /*context*/, int charset, const FontCallback& callback) override {
        const bool arabic = charset == ArabicCharset;
        if (!arabic && charset != AnsiCharset && charset != DefaultCharset) return 0;
        int answer = 0;
        for (const std::string& name : Ordered(FontFiles().Families(arabic))) {
            const EnumLogFont font{OutStrokePrecision, name};
            answer = callback(&font);
            if (answer == 0) break;
        }
        return answer;
    }
};

} // namespace

std::unique_ptr<FontSource> MakeFontSource() {
    return std::make_unique<MachineFonts>();
}

} // namespace qbrpt::text
