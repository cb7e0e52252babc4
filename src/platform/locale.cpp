#include "platform/locale.h"

namespace qbrpt {

int Locale::GetDateFormat(std::int32_t locale, std::int32_t flags, const LocaleDate& date,
                          const std::string& picture, char* buffer, int size) {
    Announce("Locale", "GetDateFormat", {std::int64_t{locale}, picture});
    return DoGetDateFormat(locale, flags, date, picture, buffer, size);
}

int Locale::GetTimeFormat(std::int32_t locale, std::int32_t flags, const LocaleTime& time,
                          const std::string& picture, char* buffer, int size) {
    Announce("Locale", "GetTimeFormat", {std::int64_t{locale}, picture});
    return DoGetTimeFormat(locale, flags, time, picture, buffer, size);
}

std::intptr_t FontSource::GetDesktopDC() {
    Announce("Gdi", "GetDC");
    return DoGetDesktopDC();
}

void FontSource::ReleaseDC(std::intptr_t context) {
    Announce("Gdi", "ReleaseDC");
    DoReleaseDC(context);
}

int FontSource::EnumFontFamiliesEx(std::intptr_t context, int charset, const FontCallback& callback) {
    Announce("Gdi", "EnumFontFamiliesEx", {std::int64_t{charset}});
    return DoEnumFontFamiliesEx(context, charset, callback);
}

} // namespace qbrpt
