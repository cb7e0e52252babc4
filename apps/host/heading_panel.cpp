#include "heading_panel.h"

#include "look.h"

#include <QtWidgets/QBoxLayout>
#include <QtWidgets/QGridLayout>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QStyle>

namespace cafe {

namespace {

constexpr int FrameInner = 12;

QLabel* Chip(const char* accessible, QWidget* parent) {
    auto* chip = new QLabel(parent);
    chip->setObjectName("chip");
    chip->setAccessibleName(accessible);
    chip->setAlignment(Qt::AlignCenter);
    return chip;
}

/// `wanting`: something is missing for reports.
void SetChip(QLabel& chip, const QString& text, bool wanting) {
    chip.setText(text);
    chip.setProperty("wanting", wanting);
    chip.style()->unpolish(&chip); // colours depend on the property
    chip.style()->polish(&chip);
}

} // namespace

HeadingPanel::HeadingPanel(std::function<void()> open, std::function<void()> changed, QWidget* parent)
    : QGroupBox(QStringLiteral("المقهى"), parent), mFile(new QLineEdit(this)),
      mDatabase(Chip("IsDbValid", this)), mPrinters(Chip("CanPrint", this)) {
    mFile->setReadOnly(true);
    mFile->setAlignment(Qt::AlignRight | Qt::AlignAbsolute);
    mFile->setObjectName("file");
    auto* openButton = new QPushButton(QStringLiteral("فتح…"), this);
    openButton->setObjectName("open");
    openButton->setAutoDefault(false);
    connect(openButton, &QPushButton::clicked, this, std::move(open));

    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(FrameInner, FrameInner, FrameInner, FrameInner);
    grid->setHorizontalSpacing(LabelGap);
    grid->setVerticalSpacing(LabelGap);
    grid->addWidget(new QLabel(QStringLiteral("قاعدة البيانات"), this), 0, 0);
    grid->addWidget(mFile, 0, 1, 1, 3);
    grid->addWidget(openButton, 0, 4);
    auto* chips = new QHBoxLayout;
    chips->setSpacing(LabelGap);
    chips->addWidget(mDatabase);
    chips->addWidget(mPrinters);
    grid->addLayout(chips, 0, 5);
    const QStringList captions = {QStringLiteral("اسم المقهى"), QStringLiteral("العنوان"),
                                  QStringLiteral("سطر آخر")};
    for (std::size_t i = 0; i < mLines.size(); ++i) {
        mLines[i] = new QLineEdit(this);
        mLines[i]->setObjectName("heading" + QString::number(i));
        mLines[i]->setAccessibleName(captions[static_cast<int>(i)]);
        connect(mLines[i], &QLineEdit::textChanged, this, changed);
    }
    auto* lines = new QHBoxLayout;
    lines->setSpacing(LabelGap);
    lines->addWidget(mLines[0], 1);
    for (std::size_t i = 1; i < mLines.size(); ++i) {
        lines->addSpacing(LabelGap);
        lines->addWidget(new QLabel(captions[static_cast<int>(i)], this));
        lines->addWidget(mLines[i], 1);
    }
    grid->addWidget(new QLabel(captions[0], this), 1, 0);
    grid->addLayout(lines, 1, 1, 1, 5);
    grid->setColumnStretch(1, 1);
}

HeadingPanel::Heading HeadingPanel::Lines() const {
    return {mLines[0]->text().toStdString(), mLines[1]->text().toStdString(),
            mLines[2]->text().toStdString()};
}

void HeadingPanel::SetLines(const Heading& lines) {
    for (std::size_t i = 0; i < lines.size(); ++i)
        mLines[i]->setText(QString::fromStdString(lines[i]));
}

void HeadingPanel::SetFile(const QString& file) {
    mFile->setText(file);
    mFile->setToolTip(file);
}

void HeadingPanel::SetAnswers(bool database, int printers) {
    SetChip(*mDatabase, database ? QStringLiteral("القاعدة جاهزة") : QStringLiteral("لا قاعدة بيانات"),
            !database);
    SetChip(*mPrinters, QStringLiteral("الطابعات: ") + QString::number(printers), printers == 0);
}

} // namespace cafe
