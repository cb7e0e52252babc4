#include "member_list.h"

#include "members/members.h"

#include <QtGui/QPainter>
#include <QtWidgets/QStyledItemDelegate>

namespace cafe {

namespace {

constexpr int RowHeight = 42;
constexpr int Padding = 10;
constexpr int NumberWidth = 22;
constexpr int WordsRole = Qt::UserRole;

/// A number at the right, and beside it what the member does over its name.
class MemberRow : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        const bool chosen = (option.state & QStyle::State_Selected) != 0;
        painter->save();
        if (chosen)
            painter->fillRect(option.rect, option.palette.highlight());
        else if ((option.state & QStyle::State_MouseOver) != 0)
            painter->fillRect(option.rect, QColor("#E6ECEF"));
        painter->setPen(chosen ? option.palette.highlightedText().color() : QColor("#3C444B"));
        QRect rest = option.rect.adjusted(Padding, 4, -Padding, -4);
        const int number = index.row() + 1;
        painter->drawText(QRect(rest.right() - NumberWidth, rest.top(), NumberWidth, rest.height()),
                          Qt::AlignVCenter | Qt::AlignRight | Qt::AlignAbsolute, QString::number(number));
        rest.setRight(rest.right() - NumberWidth - Padding);
        const QRect upper(rest.left(), rest.top(), rest.width(), rest.height() / 2);
        const QRect lower = upper.translated(0, upper.height());
        constexpr int line = Qt::AlignVCenter | Qt::AlignRight | Qt::AlignAbsolute | Qt::TextSingleLine;
        painter->drawText(lower, line, index.data().toString());
        if (!chosen) painter->setPen(option.palette.text().color());
        QFont bold = option.font;
        bold.setBold(true);
        painter->setFont(bold);
        painter->drawText(
            upper, line,
            QFontMetrics(bold).elidedText(index.data(WordsRole).toString(), Qt::ElideRight, upper.width()));
        painter->restore();
    }

    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const override {
        return {0, RowHeight};
    }
};

} // namespace

MemberList::MemberList(QWidget* parent) : QListWidget(parent) {
    setObjectName("members");
    setAccessibleName(QStringLiteral("أوامر التقارير"));
    setItemDelegate(new MemberRow(this));
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(ScrollPerPixel);
    setMouseTracking(true);
    for (const auto& member : qbrpt::members::Members()) {
        auto* row = new QListWidgetItem(QString::fromStdString(member.name), this);
        row->setData(WordsRole, QString::fromStdString(member.help.arabic));
        row->setData(Qt::AccessibleDescriptionRole, QString::fromStdString(member.help.arabic));
    }
}

} // namespace cafe
