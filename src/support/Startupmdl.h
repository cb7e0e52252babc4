// The font pass of the report templates.
#pragma once

#include "platform/CrystalRuntime.h"
#include "platform/locale.h"

#include <string>
#include <vector>

namespace qbrpt {

/// Full names of the outline fonts of one character set, in the order in which the platform reports them.
/// Empty until LoadCharsetFonts found some; then kept to the end of the process.
[[nodiscard]] const std::vector<std::string>& FontTable();

/// Fills the font table anew. True when it holds a name and the enumeration ran to its end.
bool LoadCharsetFonts(int nCharset);

/// The callback of the enumeration: appends an outline font to the table. Returns 1 to go on, 0 where there
/// is no record.
int OnFontFamily(const EnumLogFont* font);

/// Makes every field, text and blob field of `report` fit for Arabic: an object that is not yet in that
/// character set keeps its font where the font table has it (in any case of letters), else it takes the
/// table's first. Failures are passed over: an object that cannot be read is left as it is. With no Arabic
/// outline font nothing changes.
void ApplyReportFonts(const Ref<CrystalRuntime::Report>& report);

} // namespace qbrpt
