// The locale port without the system's locale data: the same words on every machine.
#pragma once

#include "base/ref.h"
#include "platform/locale.h"

#include <string>
#include <string_view>

namespace qbrpt {

/// Dates and times of LocaleArabicQatar and LocaleEnglishUs, UTF-8, with Latin digits. Any other locale, a
/// flag, or a date or time that no calendar has is refused with 0.
[[nodiscard]] Ref<Locale> MakeLocale();

/// The same texts for what the windows themselves show, of a date or time that is known to be one.
[[nodiscard]] std::string ArabicDateText(const LocaleDate& date, std::string_view picture);
[[nodiscard]] std::string ArabicTimeText(const LocaleTime& time, std::string_view picture);

} // namespace qbrpt
