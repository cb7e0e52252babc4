#include "adapters/qt/arabic_words.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace qbrpt::qt {

namespace {

struct Words {
    std::string_view context;
    std::string_view source;
    const char* arabic;
};

// Without access keys: painted by Qt, an underlined letter falls out of its word.
constexpr std::string_view Files = "QFileDialog";
constexpr std::string_view Model = "QFileSystemModel";
constexpr std::string_view Kinds = "QAbstractFileIconProvider";
constexpr std::string_view Buttons = "QPlatformTheme";
constexpr std::string_view Line = "QLineEdit";
constexpr std::string_view Page = "QWidgetTextControl";

constexpr std::array Table = {
    Words{Files, "Look in:", "المجلد:"},
    Words{Files, "File &name:", "اسم الملف:"},
    Words{Files, "Files of type:", "نوع الملفات:"},
    Words{Files, "Directory:", "المجلد:"},
    Words{Files, "&Open", "فتح"},
    Words{Files, "&Save", "حفظ"},
    Words{Files, "&Choose", "اختيار"},
    Words{Files, "Save As", "حفظ باسم"},
    Words{Files, "Open", "فتح"},
    Words{Files, "Back", "السابق"},
    Words{Files, "Go back", "إلى المجلد السابق"},
    Words{Files, "Forward", "التالي"},
    Words{Files, "Go forward", "إلى المجلد التالي"},
    Words{Files, "Parent Directory", "المجلد الأعلى"},
    Words{Files, "Go to the parent directory", "إلى المجلد الأعلى"},
    Words{Files, "Create New Folder", "مجلد جديد"},
    Words{Files, "Create a New Folder", "إنشاء مجلد جديد"},
    Words{Files, "&New Folder", "مجلد جديد"},
    Words{Files, "New Folder", "مجلد جديد"},
    Words{Files, "List View", "قائمة"},
    Words{Files, "Change to list view mode", "عرض الأسماء وحدها"},
    Words{Files, "Detail View", "تفاصيل"},
    Words{Files, "Change to detail view mode", "عرض التفاصيل"},
    Words{Files, "Sidebar", "الأماكن"},
    Words{Files, "List of places and bookmarks", "الأماكن المحفوظة"},
    Words{Files, "Files", "الملفات"},
    Words{Files, "All Files (*)", "كل الملفات (*)"},
    Words{Files, "Rename", "إعادة تسمية"},
    Words{Files, "&Rename", "إعادة تسمية"},
    Words{Files, "Delete", "حذف"},
    Words{Files, "&Delete", "حذف"},
    Words{Files, "Remove", "إزالة"},
    Words{Files, "Show ", "عرض "},
    Words{Files, "Show &hidden files", "عرض الملفات المخفية"},
    Words{Files, "Show Hidden Files", "عرض الملفات المخفية"},
    Words{Files, "Recent Places", "أماكن حديثة"},
    Words{Files, "My Computer", "جهاز الكمبيوتر"},
    Words{Files, "%1 already exists.\nDo you want to replace it?",
          "الملف %1 موجود من قبل.\nهل تريد استبداله؟"},
    Words{Files, "%1\nDirectory not found.\nPlease verify the correct directory name was given.",
          "%1\nلا يوجد مجلد بهذا الاسم.\nيرجى التحقق من الاسم."},
    Words{Files, "%1\nFile not found.\nPlease verify the correct file name was given.",
          "%1\nلا يوجد ملف بهذا الاسم.\nيرجى التحقق من الاسم."},
    Words{Files, "'%1' is write protected.\nDo you want to delete it anyway?",
          "الملف '%1' محمي من الكتابة.\nهل تريد حذفه رغم ذلك؟"},
    Words{Files, "Are you sure you want to delete '%1'?", "هل تريد حذف '%1'؟"},
    Words{Files, "Could not delete directory.", "تعذر حذف المجلد."},
    Words{Model, "Name", "الاسم"},
    Words{Model, "Size", "الحجم"},
    Words{Model, "Type", "النوع"},
    Words{Model, "Kind", "النوع"},
    Words{Model, "Date Modified", "تاريخ التعديل"},
    Words{Model, "Computer", "الكمبيوتر"},
    Words{Model, "My Computer", "جهاز الكمبيوتر"},
    Words{Model, "Invalid filename", "اسم غير صالح"},
    Words{Model,
          "<b>The name \"%1\" cannot be used.</b><p>Try using another name, with fewer characters or no "
          "punctuation marks.",
          "<b>لا يمكن استعمال الاسم \"%1\".</b><p>جرب اسمًا أقصر أو بلا علامات."},
    Words{Kinds, "Drive", "قرص"},
    Words{Kinds, "%1 File", "ملف %1"},
    Words{Kinds, "File", "ملف"},
    Words{Kinds, "File Folder", "مجلد"},
    Words{Kinds, "Folder", "مجلد"},
    Words{Kinds, "Alias", "اختصار"},
    Words{Kinds, "Shortcut", "اختصار"},
    Words{Kinds, "Unknown", "غير معروف"},
    Words{Buttons, "OK", "موافق"},
    Words{Buttons, "Cancel", "إلغاء الأمر"},
    Words{Buttons, "Save", "حفظ"},
    Words{Buttons, "Open", "فتح"},
    Words{Buttons, "Close", "إغلاق"},
    Words{Buttons, "&Yes", "نعم"},
    Words{Buttons, "&No", "لا"},
    Words{Buttons, "Abort", "إحباط"},
    Words{Buttons, "Retry", "إعادة المحاولة"},
    Words{Buttons, "Ignore", "تجاهل"},
    Words{Line, "&Undo", "تراجع"},
    Words{Line, "&Redo", "إعادة"},
    Words{Line, "Cu&t", "قص"},
    Words{Line, "&Copy", "نسخ"},
    Words{Line, "&Paste", "لصق"},
    Words{Line, "Delete", "حذف"},
    Words{Line, "Select All", "تحديد الكل"},
    Words{Page, "&Undo", "تراجع"},
    Words{Page, "&Redo", "إعادة"},
    Words{Page, "Cu&t", "قص"},
    Words{Page, "&Copy", "نسخ"},
    Words{Page, "&Paste", "لصق"},
    Words{Page, "Delete", "حذف"},
    Words{Page, "Select All", "تحديد الكل"},
};

} // namespace

QString ArabicWords::translate(const char* context, const char* source, const char*, int) const {
    if (context == nullptr || source == nullptr) return {};
    const auto* found = std::find_if(Table.begin(), Table.end(), [&](const Words& row) {
        return row.context == context && row.source == source;
    });
    return found == Table.end() ? QString() : QString::fromUtf8(found->arabic);
}

} // namespace qbrpt::qt
