// The locale port without the system's locale data: the same words on every machine.
#pragma once

#include "base/ref.h"
#include "platform/locale.h"

namespace qbrpt {

/// Dates and times of LocaleArabicQatar and LocaleEnglishUs, UTF-8, with Latin digits. Any other locale, a
/// flag, or a date or time that no calendar has is refused with 0.
[[nodiscard]] Ref<Locale> MakeLocale();

} // namespace qbrpt
