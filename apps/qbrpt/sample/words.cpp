#include "sample/words.h"

#include <array>

namespace qbrpt::sample {

namespace {

constexpr auto FirstNames = std::to_array<std::string_view>(
    {"أحمد", "محمد", "محمود", "خالد",  "عبد الله", "عبد الرحمن", "يوسف",  "إبراهيم", "عمر",
     "علي",  "حسن",  "حسين",  "سعيد",  "طارق",     "وليد",       "ماجد",  "فهد",     "سلطان",
     "ناصر", "بدر",  "رامي",  "زياد",  "أنس",      "هشام",       "كريم",  "مصطفى",   "ياسر",
     "سامي", "نبيل", "جمال",  "فاطمة", "عائشة",    "مريم",       "زينب",  "نورة",    "هند",
     "سارة", "ليلى", "منى",   "رنا",   "دعاء",     "آمنة",       "إيمان", "شيماء",   "مُعاذ",
     "لؤي",  "رؤى",  "هناء",  "ضياء",  "ذكرى",     "ثامر",       "غادة",  "ظافر",    "قيس"});

constexpr auto FamilyNames = std::to_array<std::string_view>(
    {"العلي",   "الحسن",   "الخطيب",   "المصري",  "الشامي", "القحطاني",   "الدوسري", "الأنصاري",
     "العتيبي", "الحربي",  "الزهراني", "الغامدي", "السيد",  "عبد الحميد", "أبو زيد", "الكعبي",
     "المري",   "الهاجري", "النعيمي",  "الكواري", "الحداد", "النجار",     "الصباغ",  "البغدادي",
     "التميمي", "الرفاعي", "الجابري",  "الفارسي", "الطائي", "اليماني"});

constexpr auto LatinNames =
    std::to_array<std::string_view>({"Peter O'Neil", "Maria Santos", "John Smith", "Anna D'Souza",
                                     "Rajesh Kumar", "Li Wei", "François Petit"});

constexpr auto Kinds = std::to_array<MembershipKind>({{"شهري 30 ساعة", 1800, 75, 30},
                                                      {"شهري 60 ساعة", 3600, 130, 30},
                                                      {"أسبوعي 10 ساعات", 600, 30, 7},
                                                      {"طلابي", 1200, 40, 30},
                                                      {"ليلي", 2400, 60, 30},
                                                      {"VIP 100", 6000, 200, 60}});

constexpr auto Goods = std::to_array<Good>({{"شاي", 1},
                                            {"قهوة تركية", 2.5},
                                            {"قهوة سريعة", 2},
                                            {"عصير برتقال", 4},
                                            {"ماء معدني", 1},
                                            {"بيبسي", 1.5},
                                            {"سندويتش جبن", 5},
                                            {"سندويتش فلافل", 3.5},
                                            {"بسكويت", 1.25},
                                            {"قرص CD فارغ", 2},
                                            {"سماعة رأس", 15},
                                            {"تصوير مستندات", 0.5},
                                            {"تجليد تقرير جامعي مع غلاف شفاف وحلزون بلاستيكي", 7.5}});

constexpr auto Supervisors = std::to_array<std::string_view>(
    {"خالد المشرف", "سامي عبد الله", "نورة الكعبي", "مصطفى حسن", "Joseph", "إيمان الشامي"});

constexpr auto Accounts = std::to_array<std::string_view>(
    {"الصندوق", "البنك الأهلي", "مصاريف الإيجار", "مصاريف الكهرباء والماء", "رواتب الموظفين", "صيانة الأجهزة",
     "حساب الشريك أحمد", "حساب الشريك محمود"});

constexpr auto AuditTags = std::to_array<std::string_view>(
    {"تغيير سعر الدقيقة", "حذف سجل استخدام", "تعديل بيانات مشترك", "إلغاء فاتورة", "دخول المشرف",
     "خروج المشرف", "فتح درج النقود", "تعديل ساعة الجهاز"});

constexpr auto Devices = std::to_array<std::string_view>(
    {"ADSL خط رئيسي", "ADSL خط احتياطي", "مودم 56K - الخط 4412233", "شبكة لاسلكية الصالة"});

constexpr auto CardAccounts =
    std::to_array<std::string_view>({"بطاقة خمس ساعات", "بطاقة عشر ساعات", "بطاقة عشرين ساعة"});

constexpr auto PayOuts = std::to_array<std::string_view>(
    {"فاتورة الكهرباء", "فاتورة الهاتف والإنترنت", "شراء حبر للطابعة", "أجرة عامل النظافة",
     "ورق طباعة A4 عدد 5", "إصلاح جهاز رقم 7", "شراء كابل شبكة طول 5'", "ضيافة", "صيانة المكيفات",
     // NOLINTNEXTLINE(bugprone-suspicious-missing-comma): one long text
     "شراء لوحات مفاتيح وفأرات جديدة للأجهزة في الصالة الكبرى بدلا من القديمة التي تعطلت، مع أجرة التركيب "
     "والنقل "
     "حسب الفاتورة المرفقة من محل المستلزمات، ويخصم جزء منها من عهدة المشرف المسائي"});

constexpr auto Incomes =
    std::to_array<std::string_view>({"تصميم سيرة ذاتية", "إدخال بيانات بحث جامعي", "بيع أجهزة مستعملة",
                                     "تأجير ركن الإعلانات", "دورة حاسوب للمبتدئين", "تركيب برنامج لعميل"});

constexpr auto Documents = std::to_array<std::string_view>(
    {"سيرة ذاتية.doc", "Microsoft Word - بحث التخرج.doc", "نموذج طلب وظيفة.pdf", "Untitled",
     "http://www.example.com/schedule.html", "تقرير المبيعات السنوي - النسخة النهائية بعد المراجعة.xls",
     "Photo'1.jpg", "واجب الرياضيات"});

constexpr auto PrinterNames =
    std::to_array<std::string_view>({"HP LaserJet 1200", "Canon i560 ملون", "EPSON LQ-300"});

/// What each kind of event says.
constexpr std::array<std::array<std::string_view, 3>, AuditTagCount> AuditTexts{{
    {"من 0.05 إلى 0.06 للدقيقة", "من 0.06 إلى 0.05 للدقيقة", "سعر خاص لجهاز VIP 1 بأمر المدير"},
    {"سجل جهاز 4، الوقت 35 دقيقة، المبلغ 1.75", "سجل جهاز 7، الوقت 10 دقائق، المبلغ 0.50", "user's request"},
    {"تصحيح الاسم ورقم الهاتف", "تمديد الاشتراك أسبوعًا", "تغيير كلمة المرور"},
    {"طلب العميل إلغاء الطباعة لأن الورق انتهى في وسط المستند، وأعيد المبلغ كاملا بعد موافقة المدير المناوب",
     "الفاتورة 1184، المبلغ 4.50", "الفاتورة 1207، طلب العميل"},
    {"بداية الوردية", "دخول عادي", "بعد انقطاع الكهرباء"},
    {"انتهاء الوردية", "خروج عادي", "استراحة"},
    {"صرف نقود معدنية", "تسليم الوردية", "دفع للمورد"},
    {"جهاز 3، تقديم 5 دقائق", "جهاز 6، بعد إعادة التشغيل", "جهاز 2، بعد تغيير البطارية"},
}};

constexpr auto Transfers =
    std::to_array<std::string_view>({"إيداع أسبوعي", "دفعة شهرية", "تسوية", "سلفة", ""});

static_assert(Kinds.size() == MembershipKindCount && Supervisors.size() == SupervisorCount &&
              Accounts.size() == AccountCount && AuditTags.size() == AuditTagCount &&
              Devices.size() == DeviceCount && CardAccounts.size() == CardAccountCount);

} // namespace

const MembershipKind& MembershipKindAt(int index) {
    return Kinds.at(static_cast<std::size_t>(index));
}

std::string_view SupervisorAt(int index) {
    return Supervisors.at(static_cast<std::size_t>(index));
}

std::string_view AccountAt(int index) {
    return Accounts.at(static_cast<std::size_t>(index));
}

std::string_view AuditTagAt(int index) {
    return AuditTags.at(static_cast<std::size_t>(index));
}

std::string_view DeviceAt(int index) {
    return Devices.at(static_cast<std::size_t>(index));
}

std::string_view CardAccountAt(int index) {
    return CardAccounts.at(static_cast<std::size_t>(index));
}

std::string PersonName(Random& random) {
    if (random.Chance(4)) return std::string(random.Pick(LatinNames));
    const std::string_view first = random.Pick(FirstNames);
    std::string name(first);
    if (random.Chance(40)) {
        const std::string_view second = random.Pick(FirstNames);
        if (second != first) name.append(" ").append(second);
    }
    return name.append(" ").append(random.Pick(FamilyNames));
}

const Good& AnyGood(Random& random) {
    return random.Pick(Goods);
}

std::string_view PayOutText(Random& random) {
    return random.Pick(PayOuts);
}

std::string_view IncomeText(Random& random) {
    return random.Pick(Incomes);
}

std::string_view DocumentName(Random& random) {
    return random.Pick(Documents);
}

std::string_view PrinterName(Random& random) {
    return random.Pick(PrinterNames);
}

std::string_view AuditText(int tag, Random& random) {
    return random.Pick(AuditTexts.at(static_cast<std::size_t>(tag)));
}

std::string_view TransferText(Random& random) {
    return random.Pick(Transfers);
}

} // namespace qbrpt::sample
