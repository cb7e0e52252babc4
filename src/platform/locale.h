// Date and time in the words of a locale, and the fonts of a character set.
#pragma once

#include "platform/port.h"

#include <cstdint>
#include <functional>
#include <string>

namespace qbrpt {

/// Locale identifiers that the system asks for.
constexpr std::int32_t LocaleArabicQatar = 0x4001;
constexpr std::int32_t LocaleEnglishUs = 0x0409;

struct LocaleDate {
    int day = 0;
    int month = 0;
    int year = 0;
};

struct LocaleTime {
    int hour = 0;
    int minute = 0;
};

/// The two formatters `GetDateFormat` and `GetTimeFormat`. A call with size 0 returns the length in
/// bytes of the UTF-8 text with its closing NUL; a call with a buffer fills it. 0 means that the locale,
/// the date or the picture is unknown, or that the buffer is too small.
class Locale : public Port {
public:
    int GetDateFormat(std::int32_t locale, std::int32_t flags, const LocaleDate& date,
                      const std::string& picture, char* buffer, int size);
    int GetTimeFormat(std::int32_t locale, std::int32_t flags, const LocaleTime& time,
                      const std::string& picture, char* buffer, int size);

private:
    virtual int DoGetDateFormat(std::int32_t locale, std::int32_t flags, const LocaleDate& date,
                                const std::string& picture, char* buffer, int size) = 0;
    virtual int DoGetTimeFormat(std::int32_t locale, std::int32_t flags, const LocaleTime& time,
                                const std::string& picture, char* buffer, int size) = 0;
};

/// Arabic in the numbers of character sets.
constexpr int ArabicCharset = 178;
/// `lfOutPrecision` with which the platform reports outline fonts.
constexpr int OutStrokePrecision = 3;

/// One font that an enumeration reports.
struct EnumLogFont {
    int outPrecision = 0;
    std::string fullName; ///< may carry bytes behind a closing NUL
};

/// Returns 0 to stop the enumeration, 1 to go on.
using FontCallback = std::function<int(const EnumLogFont* font)>;

class FontSource : public Port {
public:
    /// A device context of the desktop, for the enumeration; given back with ReleaseDC.
    [[nodiscard]] std::intptr_t GetDesktopDC();
    void ReleaseDC(std::intptr_t context);
    /// Reports each font that offers `charset`, the faces of the house's own chain first, then the
    /// others by name. Returns what the callback returned last, or 0 where it never ran.
    int EnumFontFamiliesEx(std::intptr_t context, int charset, const FontCallback& callback);

private:
    virtual std::intptr_t DoGetDesktopDC() = 0;
    virtual void DoReleaseDC(std::intptr_t context) = 0;
    virtual int DoEnumFontFamiliesEx(std::intptr_t context, int charset, const FontCallback& callback) = 0;
};

} // namespace qbrpt
