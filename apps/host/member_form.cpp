#include "member_form.h"

#include "examples.h"
#include "look.h"

#include <QtWidgets/QFormLayout>
#include <QtWidgets/QLabel>

namespace cafe {

namespace {

constexpr int LabelWidth = 190;

/// Keeps a Latin word together in an Arabic line.
QString Isolated(const QString& word) {
    return QChar(0x2066) + word + QChar(0x2069);
}

QLabel* TextLine(const QString& text, const char* name, QWidget* parent) {
    auto* label = new QLabel(text, parent);
    label->setObjectName(name);
    label->setWordWrap(true);
    label->setTextFormat(Qt::PlainText);
    if (!text.isRightToLeft()) label->setAlignment(Qt::AlignRight | Qt::AlignAbsolute | Qt::AlignTop);
    return label;
}

/// The member as a programmer reads it.
QString Signature(const Member& member) {
    QStringList arguments;
    for (const MemberArgument& argument : member.arguments) {
        QString text = QString::fromStdString(argument.name);
        if (argument.defaultText)
            text += argument.defaultText->empty() ? " = \"\""
                                                  : " = " + QString::fromStdString(*argument.defaultText);
        arguments += text;
    }
    return Isolated(QString::fromStdString(member.name) + "(" + arguments.join(", ") + ")");
}

QWidget* LabelOf(const MemberArgument& argument, QWidget* field, QWidget* parent) {
    auto* label = new QWidget(parent);
    label->setFixedWidth(LabelWidth);
    auto* column = new QVBoxLayout(label);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    const QString words = QString::fromStdString(argument.help.arabic);
    column->addWidget(TextLine(words, "words", label));
    column->addWidget(TextLine(Isolated(QString::fromStdString(argument.name)), "argument", label));
    column->addStretch(1);
    field->setAccessibleName(words);
    return label;
}

} // namespace

MemberForm::MemberForm(QWidget* parent) : QScrollArea(parent) {
    setObjectName("formArea");
    setFrameShape(NoFrame);
    setWidgetResizable(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}

void MemberForm::Show(const Member& member) {
    mMember = &member;
    mFields.clear();
    auto* page = new QWidget;
    auto* column = new QVBoxLayout(page);
    column->setContentsMargins(2, 0, 2, 0);
    column->setSpacing(LabelGap);
    column->addWidget(TextLine(QString::fromStdString(member.help.arabic), "memberTitle", page));
    column->addWidget(TextLine(Signature(member), "signature", page));
    if (!member.more.arabic.empty())
        column->addWidget(TextLine(QString::fromStdString(member.more.arabic), "more", page));
    column->addSpacing(LabelGap);
    auto* rows = new QFormLayout;
    rows->setHorizontalSpacing(BlockGap);
    rows->setVerticalSpacing(LabelGap + 2);
    for (const MemberArgument& argument : member.arguments) {
        mFields.push_back(MakeField(argument, ExampleStatement(member.name), page));
        mFields.back().widget->setObjectName(QString::fromStdString(argument.name));
        rows->addRow(LabelOf(argument, mFields.back().widget, page), mFields.back().widget);
    }
    column->addLayout(rows);
    column->addStretch(1);
    setWidget(page); // deletes the page before
}

std::vector<Argument> MemberForm::Arguments() const {
    std::vector<Argument> arguments;
    for (const Field& field : mFields)
        arguments.push_back(field.value());
    return arguments;
}

} // namespace cafe
