#include "adapters/qt/viewer/viewer_words.h"

namespace qbrpt::viewer {

namespace {

constexpr ViewerWords Arabic = {
    .pages = "صفحات التقرير",
    .pageOf = "صفحة %1 من %2",
    .find = "بحث…",
    .findHint = "ابحث في التقرير",
    .findNext = "التالي",
    .findBefore = "السابق",
    .closeFind = "إغلاق البحث",
    .hitOf = "%1 من %2",
    .hitsSoFar = "%1 من %2 حتى الآن (%3%)",
    .noHits = "لا توجد نتائج",
    .copy = "نسخ",
    .fitWidth = "ملاءمة عرض الصفحة",
    .fitPage = "ملاءمة الصفحة كاملة",
    .fullSize = "الحجم الطبيعي \u2066100 %\u2069",
    .goToPage = "الانتقال إلى صفحة…",
    .pageNumber = "رقم الصفحة (من 1 إلى %1):",
    .saveAs = "حفظ باسم",
    .saveAsPdf = "ملف PDF…",
    .saveAsXlsx = "جدول بيانات XLSX…",
    .saveAsCsv = "ملف CSV…",
    .saveAsHtml = "صفحة ويب HTML…",
    .saving = "يجري حفظ التقرير…",
    .ok = "موافق",
    .cancel = "إلغاء الأمر",
    .fileName = "اسم الملف:",
    .fileKind = "نوع الملف:",
    .folder = "المجلد:",
    .save = "حفظ",
};

constexpr ViewerWords English = {
    .pages = "Pages of the report",
    .pageOf = "Page %1 of %2",
    .find = "Find…",
    .findHint = "Find in the report",
    .findNext = "Next",
    .findBefore = "Previous",
    .closeFind = "Close the find bar",
    .hitOf = "%1 of %2",
    .hitsSoFar = "%1 of %2 so far (%3%)",
    .noHits = "Not found",
    .copy = "Copy",
    .fitWidth = "Fit Width",
    .fitPage = "Fit Page",
    .fullSize = "Normal Size 100 %",
    .goToPage = "Go to Page…",
    .pageNumber = "Page number (1 to %1):",
    .saveAs = "Save As",
    .saveAsPdf = "PDF File…",
    .saveAsXlsx = "XLSX Spreadsheet…",
    .saveAsCsv = "CSV File…",
    .saveAsHtml = "HTML Web Page…",
    .saving = "Saving the report…",
    .ok = "OK",
    .cancel = "Cancel",
    .fileName = "File name:",
    .fileKind = "File kind:",
    .folder = "Folder:",
    .save = "Save",
};

} // namespace

const ViewerWords& WordsOf(bool arabic) {
    return arabic ? Arabic : English;
}

QString PageOf(const ViewerWords& words, std::int32_t page, std::int32_t pages) {
    return QString::fromUtf8(words.pageOf).arg(page).arg(pages);
}

} // namespace qbrpt::viewer
