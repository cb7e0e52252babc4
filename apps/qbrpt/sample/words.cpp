#include "sample/words.h"

namespace qbrpt::sample {

namespace {

constexpr std::string_view FirstNames[] = {
    "أحمد", "محمد", "محمود", "خالد",  "عبد الله", "عبد الرحمن", "يوسف",  "إبراهيم", "عمر",   "علي",   "حسن",
    "حسين", "سعيد", "طارق",  "وليد",  "ماجد",     "فهد",        "سلطان", "ناصر",    "بدر",   "رامي",  "زياد",
    "أنس",  "هشام", "كريم",  "مصطفى", "ياسر",     "سامي",       "نبيل",  "جمال",    "فاطمة", "عائشة", "مريم",
    "زينب", "نورة", "هند",   "سارة",  "ليلى",     "منى",        "رنا",   "دعاء",    "آمنة",  "إيمان", "شيماء",
    "مُعاذ", "لؤي",  "رؤى",   "هناء",  "ضياء",     "ذكرى",       "ثامر",  "غادة",    "ظافر",  "قيس"};

constexpr std::string_view FamilyNames[] = {
    "العلي",   "الحسن",   "الخطيب",   "المصري",  "الشامي", "القحطاني",   "الدوسري", "الأنصاري",
    "العتيبي", "الحربي",  "الزهراني", "الغامدي", "السيد",  "عبد الحميد", "أبو زيد", "الكعبي",
    "المري",   "الهاجري", "النعيمي",  "الكواري", "الحداد", "النجار",     "الصباغ",  "البغدادي",
    "التميمي", "الرفاعي", "الجابري",  "الفارسي", "الطائي", "اليماني"};

constexpr std::string_view LatinNames[] = {"Peter O'Neil", "Maria Santos", "John Smith",    "Anna D'Souza",
                                           "Rajesh Kumar", "Li Wei",       "François Petit"};

constexpr MembershipKind Kinds[MembershipKindCount] = {
    {"شهري 30 ساعة", 1800, 75}, {"شهري 60 ساعة", 3600, 130}, {"أسبوعي 10 ساعات", 600, 30},
    {"طلابي", 1200, 40},        {"ليلي", 2400, 60},          {"VIP 100", 6000, 200}};

constexpr Good Goods[] = {{"شاي", 1},
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
                          {"تجليد تقرير جامعي مع غلاف شفاف وحلزون بلاستيكي", 7.5}};

constexpr std::string_view Supervisors[SupervisorCount] = {"خالد المشرف", "سامي عبد الله", "نورة الكعبي",
                                                           "مصطفى حسن",   "Joseph",        "إيمان الشامي"};

constexpr std::string_view Accounts[AccountCount] = {
    "الصندوق",        "البنك الأهلي",  "مصاريف الإيجار",   "مصاريف الكهرباء والماء",
    "رواتب الموظفين", "صيانة الأجهزة", "حساب الشريك أحمد", "حساب الشريك محمود"};

constexpr std::string_view AuditTags[AuditTagCount] = {
    "تغيير سعر الدقيقة", "حذف سجل استخدام", "تعديل بيانات مشترك", "إلغاء فاتورة",
    "دخول المشرف",       "خروج المشرف",     "فتح درج النقود",     "تعديل ساعة الجهاز"};

constexpr std::string_view Devices[DeviceCount] = {"ADSL خط رئيسي", "ADSL خط احتياطي",
                                                   "مودم 56K - الخط 4412233", "شبكة لاسلكية الصالة"};

constexpr std::string_view CardAccounts[CardAccountCount] = {"بطاقة خمس ساعات", "بطاقة عشر ساعات",
                                                             "بطاقة عشرين ساعة"};

constexpr std::string_view PayOuts[] = {
    "فاتورة الكهرباء",
    "فاتورة الهاتف والإنترنت",
    "شراء حبر للطابعة",
    "أجرة عامل النظافة",
    "ورق طباعة A4 عدد 5",
    "إصلاح جهاز رقم 7",
    "شراء كابل شبكة طول 5'",
    "ضيافة",
    "صيانة المكيفات",
    "شراء لوحات مفاتيح وفأرات جديدة للأجهزة في الصالة الكبرى بدلا من القديمة التي تعطلت، مع أجرة التركيب "
    "والنقل "
    "حسب الفاتورة المرفقة من محل المستلزمات، ويخصم جزء منها من عهدة المشرف المسائي"};

constexpr std::string_view Incomes[] = {"تصميم سيرة ذاتية",     "إدخال بيانات بحث جامعي",
                                        "بيع أجهزة مستعملة",    "تأجير ركن الإعلانات",
                                        "دورة حاسوب للمبتدئين", "تركيب برنامج لعميل"};

constexpr std::string_view Documents[] = {"سيرة ذاتية.doc",
                                          "Microsoft Word - بحث التخرج.doc",
                                          "نموذج طلب وظيفة.pdf",
                                          "Untitled",
                                          "http://www.example.com/schedule.html",
                                          "تقرير المبيعات السنوي - النسخة النهائية بعد المراجعة.xls",
                                          "Photo'1.jpg",
                                          "واجب الرياضيات"};

constexpr std::string_view PrinterNames[] = {"HP LaserJet 1200", "Canon i560 ملون", "EPSON LQ-300"};

constexpr std::string_view AuditTexts[] = {
    "من 0.05 إلى 0.06 للدقيقة",
    "سجل جهاز 4، الوقت 35 دقيقة، المبلغ 1.75",
    "تصحيح الاسم ورقم الهاتف",
    "طلب العميل إلغاء الطباعة لأن الورق انتهى في وسط المستند، وأعيد المبلغ كاملا بعد موافقة المدير المناوب",
    "دخول عادي",
    "انتهاء الوردية",
    "user's request"};

constexpr std::string_view Transfers[] = {"إيداع أسبوعي", "دفعة شهرية", "تسوية", "سلفة", ""};

} // namespace

const MembershipKind& MembershipKindAt(int index) {
    return Kinds[index];
}

std::string_view SupervisorAt(int index) {
    return Supervisors[index];
}

std::string_view AccountAt(int index) {
    return Accounts[index];
}

std::string_view AuditTagAt(int index) {
    return AuditTags[index];
}

std::string_view DeviceAt(int index) {
    return Devices[index];
}

std::string_view CardAccountAt(int index) {
    return CardAccounts[index];
}

std::string PersonName(Random& random) {
    if (random.Chance(4)) return std::string(random.Pick(LatinNames));
    std::string name(random.Pick(FirstNames));
    if (random.Chance(40)) name.append(" ").append(random.Pick(FirstNames));
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

std::string_view AuditText(Random& random) {
    return random.Pick(AuditTexts);
}

std::string_view TransferText(Random& random) {
    return random.Pick(Transfers);
}

} // namespace qbrpt::sample
