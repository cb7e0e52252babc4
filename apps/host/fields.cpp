#include "fields.h"

#include "date_field.h"
#include "look.h"
#include "open_database.h"

#include <QtWidgets/QBoxLayout>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QSpinBox>

#include <limits>

namespace cafe {

namespace {

constexpr int NumberWidth = 150;
constexpr int StatementHeight = 96;

QString DefaultOf(const MemberArgument& argument) {
    return QString::fromStdString(argument.defaultText.value_or(""));
}

template <class Whole>
Field WholeField(const MemberArgument& argument, QWidget* parent) {
    auto* box = new QSpinBox(parent);
    box->setRange(std::numeric_limits<Whole>::min(), std::numeric_limits<Whole>::max());
    box->setLocale(QLocale::c());
    box->setButtonSymbols(QAbstractSpinBox::NoButtons); // keys and wheel step
    box->setFixedWidth(NumberWidth);
    box->setAlignment(Qt::AlignRight | Qt::AlignAbsolute);
    box->setValue(DefaultOf(argument).toInt());
    return {box, [box] { return Argument{static_cast<Whole>(box->value())}; }};
}

Field DayField(const MemberArgument& argument, QWidget* parent) {
    auto* field = new DateField(DateField::Kind::WholeDays, parent);
    field->SetNumber(DefaultOf(argument).toDouble());
    return {field, [field] { return Argument{static_cast<std::int32_t>(field->Number())}; }};
}

Field MomentField(const MemberArgument& argument, QWidget* parent) {
    auto* field = new DateField(DateField::Kind::WithTime, parent);
    field->SetNumber(DefaultOf(argument).toDouble());
    return {field, [field] { return Argument{field->Number()}; }};
}

Field TextField(const MemberArgument& argument, QWidget* parent) {
    auto* line = new QLineEdit(DefaultOf(argument), parent);
    return {line, [line] { return Argument{line->text().toStdString()}; }};
}

Field StatementField(const MemberArgument& argument, const QString& example, QWidget* parent) {
    auto* whole = new QWidget(parent);
    auto* text = new QPlainTextEdit(DefaultOf(argument), whole);
    text->setFixedHeight(StatementHeight);
    text->setTabChangesFocus(true);
    text->setLayoutDirection(Qt::LeftToRight);
    QTextOption option = text->document()->defaultTextOption();
    option.setTextDirection(Qt::LeftToRight);
    option.setAlignment(Qt::AlignLeft | Qt::AlignAbsolute);
    text->document()->setDefaultTextOption(option);
    auto* fill = new QPushButton(QStringLiteral("مثال"), whole);
    fill->setObjectName("example");
    fill->setAutoDefault(false);
    auto* column = new QVBoxLayout(whole);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(text);
    column->addWidget(fill, 0, Qt::AlignRight | Qt::AlignAbsolute);
    whole->setFocusProxy(text);
    QObject::connect(fill, &QPushButton::clicked, text, [text, example] { text->setPlainText(example); });
    return {whole, [text] { return Argument{text->toPlainText().toStdString()}; }};
}

/// A file name, and a button that asks for it.
QLineEdit* FileLine(QWidget* whole) {
    auto* line = new QLineEdit(whole);
    line->setAlignment(Qt::AlignLeft | Qt::AlignAbsolute);
    auto* choose = new QPushButton(QStringLiteral("استعراض…"), whole);
    choose->setAutoDefault(false);
    auto* row = new QHBoxLayout(whole);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(LabelGap);
    row->addWidget(line, 1);
    row->addWidget(choose);
    whole->setFocusProxy(line);
    QObject::connect(choose, &QPushButton::clicked, line, [line] {
        if (const QString file = AskForDatabase(line->window()); !file.isEmpty()) line->setText(file);
    });
    return line;
}

Field FileField(QWidget* parent) {
    auto* whole = new QWidget(parent);
    QLineEdit* line = FileLine(whole);
    return {whole, [line] { return Argument{line->text().toStdString()}; }};
}

Field DatabaseField(QWidget* parent) {
    auto* whole = new QWidget(parent);
    QLineEdit* line = FileLine(whole);
    return {whole, [line] { return Argument{OpenDatabase(line->text().toStdString())}; }};
}

} // namespace

Field MakeField(const MemberArgument& argument, const QString& example, QWidget* parent) {
    switch (argument.kind) {
    case ArgumentKind::Short:
        return WholeField<std::int16_t>(argument, parent);
    case ArgumentKind::Long:
        return WholeField<std::int32_t>(argument, parent);
    case ArgumentKind::Day:
        return DayField(argument, parent);
    case ArgumentKind::DateNumber:
        return MomentField(argument, parent);
    case ArgumentKind::Statement:
        return StatementField(argument, example, parent);
    case ArgumentKind::File:
        return FileField(parent);
    case ArgumentKind::Database:
        return DatabaseField(parent);
    case ArgumentKind::Text:
        break;
    }
    return TextField(argument, parent);
}

QString AskForDatabase(QWidget* parent) {
    QFileDialog dialog(parent, QStringLiteral("فتح قاعدة بيانات"));
    dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.setViewMode(QFileDialog::List);
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    dialog.setNameFilters(
        {QStringLiteral("قواعد البيانات (*.db *.sqlite *.sqlite3)"), QStringLiteral("كل الملفات (*)")});
    dialog.setLabelText(QFileDialog::LookIn, QStringLiteral("المجلد"));
    dialog.setLabelText(QFileDialog::FileName, QStringLiteral("اسم الملف"));
    dialog.setLabelText(QFileDialog::FileType, QStringLiteral("النوع"));
    dialog.setLabelText(QFileDialog::Accept, QStringLiteral("فتح"));
    dialog.setLabelText(QFileDialog::Reject, QStringLiteral("إلغاء الأمر"));
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().constFirst() : QString{};
}

} // namespace cafe
