// The fonts of a test's machine.
#pragma once

#include "platform/locale.h"

#include <string>
#include <vector>

namespace qbrpt::fakes {

class FakeFonts final : public FontSource {
public:
    std::vector<EnumLogFont> fonts = {{OutStrokePrecision, "DejaVu Sans"}};
    int enumerations = 0;
    int charset = 0;  ///< what was asked for last
    int contexts = 0; ///< taken and not given back

private:
    std::intptr_t DoGetDesktopDC() override { return ++contexts; }
    void DoReleaseDC(std::intptr_t) override { --contexts; }
    int DoEnumFontFamiliesEx(std::intptr_t, int asked, const FontCallback& callback) override {
        ++enumerations;
        charset = asked;
        int last = 0;
        for (const EnumLogFont& font : fonts) {
            last = callback(&font);
            if (last == 0) break;
        }
        return last;
    }
};

} // namespace qbrpt::fakes
