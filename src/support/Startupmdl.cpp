#include "support/Startupmdl.h"

#include "base/letters.h"
#include "platform/platform.h"
#include "support/error_trap.h"
#include "support/words.h"

#include <algorithm>
#include <cstdint>
#include <string_view>

namespace qbrpt {

namespace {

using CrystalRuntime::ObjectKind;
using CrystalRuntime::ReportObject;
using CrystalRuntime::Section;

std::vector<std::string>& TheFontTable() {
    static std::vector<std::string> table;
    return table;
}

/// The desktop's device context, given back also when the enumeration fails.
class DesktopContext {
public:
    explicit DesktopContext(FontSource& fonts) : mFonts(fonts), mContext(fonts.GetDesktopDC()) {}
    DesktopContext(const DesktopContext&) = delete;
    DesktopContext& operator=(const DesktopContext&) = delete;
    ~DesktopContext() {
        ErrorTrap trap(ErrorTrap::SilentGoOn);
        trap.Step([&] { mFonts.ReleaseDC(mContext); });
    }
    [[nodiscard]] std::intptr_t Handle() const { return mContext; }

private:
    FontSource& mFonts;
    std::intptr_t mContext;
};

bool InFontTable(const std::string& name) {
    const auto& table = FontTable();
    return std::any_of(table.begin(), table.end(),
                       [&](const auto& entry) { return SameFolded(entry, name); });
}

void FitFont(ReportObject& object) {
    const ObjectKind kind = object.Kind();
    if (kind != ObjectKind::Field && kind != ObjectKind::Text && kind != ObjectKind::BlobField) return;
    if (object.FontCharset() == ArabicCharset) return;
    const bool keepsName = InFontTable(object.FontName());
    ErrorTrap trap(ErrorTrap::SilentGoOn);
    if (!keepsName) trap.Step([&] { object.SetFontName(FontTable().front()); });
    trap.Step([&] { object.SetFontCharset(ArabicCharset); });
}

} // namespace

const std::vector<std::string>& FontTable() {
    return TheFontTable();
}

bool LoadCharsetFonts(int nCharset) {
    TheFontTable().clear();
    FontSource& fonts = *Platform::Current().fonts;
    const DesktopContext context(fonts);
    const int last = fonts.EnumFontFamiliesEx(context.Handle(), nCharset, OnFontFamily);
    return !FontTable().empty() && last != 0;
}

int OnFontFamily(const EnumLogFont* font) {
    if (font == nullptr) return 0;
    if (font->outPrecision == OutStrokePrecision) TheFontTable().push_back(TrimAtNul(font->fullName));
    return 1;
}

void ApplyReportFonts(const Ref<CrystalRuntime::Report>& report) {
    ErrorTrap trap(ErrorTrap::SilentGoOn);
    if (FontTable().empty()) trap.Step([] { LoadCharsetFonts(ArabicCharset); });
    if (FontTable().empty()) return;

    std::int32_t sectionCount = 0;
    trap.Step([&] { sectionCount = report->SectionCount(); });
    for (std::int32_t position = 1; position <= sectionCount; ++position) {
        Ref<Section> section;
        std::int32_t objectCount = 0;
        trap.Step([&] { section = report->Sections(position); });
        trap.Step([&] { objectCount = section->ReportObjectCount(); });
        for (std::int32_t index = 1; index <= objectCount; ++index)
            trap.Step([&] { FitFont(*section->ReportObjects(index)); });
    }
}

} // namespace qbrpt
