#include "adapters/qt/viewer/find_bar.h"

#include "adapters/qt/viewer/viewer_words.h"

#include <QtGui/QKeyEvent>
#include <QtWidgets/QHBoxLayout>

namespace qbrpt::viewer {

namespace {

constexpr int FieldWidth = 260;

constexpr const char* Style = R"(
    QWidget#findBar { background: #F1F3F4; border-top: 1px solid #9AA4AB; }
    QLineEdit { background: white; border: 1px solid #9AA4AB; border-radius: 3px; min-height: 24px; padding: 0 6px; }
    QLineEdit:focus { border: 2px solid #1C6680; }
    QToolButton { border: none; border-radius: 3px; padding: 4px 10px; color: #23292F; }
    QToolButton:hover { background: #E6ECEF; }
    QToolButton:pressed { background: #D5E0E4; }
    QToolButton:disabled { color: #8D969D; }
)";

} // namespace

FindBar::FindBar(QWidget* parent, Finder& finder)
    : QWidget(parent), mFinder(finder), mField(new QLineEdit(this)), mNext(new QToolButton(this)),
      mBefore(new QToolButton(this)), mCounts(new QLabel(this)), mClose(new QToolButton(this)) {
    setObjectName("findBar");
    setAttribute(Qt::WA_StyledBackground);
    setStyleSheet(Style);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(8, 6, 8, 6);
    row->setSpacing(6);
    mField->setFixedWidth(FieldWidth);
    mField->installEventFilter(this);
    mClose->setText(QString(QChar(0x2715)));
    for (QWidget* part : std::initializer_list<QWidget*>{mField, mNext, mBefore, mCounts})
        row->addWidget(part);
    row->addStretch();
    row->addWidget(mClose);
    connect(mField, &QLineEdit::textChanged, this, [this](const QString& text) {
        if (typed) typed(text);
    });
    connect(mNext, &QToolButton::clicked, this, [this] { mFinder.Step(true); });
    connect(mBefore, &QToolButton::clicked, this, [this] { mFinder.Step(false); });
    connect(mClose, &QToolButton::clicked, this, [this] {
        if (closed) closed();
    });
    SetLanguage(true);
    hide();
}

void FindBar::SetLanguage(bool arabic) {
    mArabic = arabic;
    const ViewerWords& words = WordsOf(arabic);
    mField->setPlaceholderText(QString::fromUtf8(words.findHint));
    mField->setAccessibleName(QString::fromUtf8(words.findHint));
    mNext->setText(QString::fromUtf8(words.findNext));
    mBefore->setText(QString::fromUtf8(words.findBefore));
    mClose->setToolTip(QString::fromUtf8(words.closeFind));
    mClose->setAccessibleName(QString::fromUtf8(words.closeFind));
    ShowCounts();
}

void FindBar::Open() {
    show();
    mField->setFocus(Qt::ShortcutFocusReason);
    mField->selectAll();
    if (!mField->text().isEmpty() && typed) typed(mField->text());
}

void FindBar::ShowCounts() {
    const ViewerWords& words = WordsOf(mArabic);
    const SearchCourse* course = mFinder.Course();
    const bool any = course != nullptr && course->Total() > 0;
    mNext->setEnabled(any);
    mBefore->setEnabled(any);
    QString text;
    if (course != nullptr && !course->Complete()) {
        const std::size_t percent = course->PagesDone() * 100 / course->Pages();
        text =
            QString::fromUtf8(words.hitsSoFar).arg(course->CurrentNumber()).arg(course->Total()).arg(percent);
    } else if (any) {
        text = QString::fromUtf8(words.hitOf).arg(course->CurrentNumber()).arg(course->Total());
    } else if (course != nullptr) {
        text = QString::fromUtf8(words.noHits);
    }
    mCounts->setText(text);
}

void FindBar::Escape() {
    if (mFinder.Working())
        mFinder.Stop();
    else if (closed)
        closed();
}

bool FindBar::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress) return QWidget::eventFilter(watched, event);
    const auto* key = static_cast<QKeyEvent*>(event);
    switch (key->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        mFinder.Step(!key->modifiers().testFlag(Qt::ShiftModifier));
        return true;
    case Qt::Key_Escape:
        Escape();
        return true;
    default:
        return QWidget::eventFilter(watched, event);
    }
}

} // namespace qbrpt::viewer
