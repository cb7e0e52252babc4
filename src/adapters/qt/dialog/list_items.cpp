#include "adapters/qt/dialog/list_items.h"

#include "adapters/qt/shown_text.h"
#include "base/failure.h"

namespace qbrpt::qt {

ListItems::ListItems(const QStringList& captions, QObject* parent)
    : QAbstractTableModel(parent), mCaptions(captions) {}

void ListItems::Clear() {
    beginResetModel();
    mItems.clear();
    mKeys.clear();
    endResetModel();
}

void ListItems::Add(const QString& key, const QString& text) {
    if (mKeys.contains(key))
        throw Failure(FailureNumber::NotUnique,
                      "The list has an item with the key \"" + key.toStdString() + "\".");
    const int row = Count();
    beginInsertRows({}, row, row);
    mKeys.insert(key);
    mItems.push_back({key, {text}});
    endInsertRows();
}

std::size_t ListItems::PositionOf(std::int32_t item) const {
    if (item < 1 || item > Count())
        throw Failure(FailureNumber::InvalidArgument, "The list has no item " + std::to_string(item) + ".");
    return static_cast<std::size_t>(item - 1);
}

QString ListItems::TextOf(std::int32_t item, std::int32_t column) const {
    return mItems[PositionOf(item)].texts.value(column);
}

void ListItems::SetText(std::int32_t item, std::int32_t column, const QString& text) {
    QStringList& texts = mItems[PositionOf(item)].texts;
    while (texts.size() <= column)
        texts.append(QString());
    texts[column] = text;
    const QModelIndex cell = index(item - 1, column);
    emit dataChanged(cell, cell);
}

int ListItems::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : Count();
}

int ListItems::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(mCaptions.size());
}

QVariant ListItems::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    const QString text = TextOf(index.row() + 1, index.column());
    if (role == Qt::DisplayRole) return KeptInOrder(text);
    if (role == Qt::EditRole || role == Qt::AccessibleTextRole) return text;
    return {};
}

QVariant ListItems::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal) return {};
    if (role == Qt::DisplayRole) return mCaptions.value(section);
    return {};
}

Qt::ItemFlags ListItems::flags(const QModelIndex& index) const {
    const Qt::ItemFlags usual = QAbstractTableModel::flags(index);
    return index.column() == 0 ? usual | Qt::ItemIsEditable : usual;
}

bool ListItems::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (role != Qt::EditRole) return false;
    SetText(index.row() + 1, index.column(), value.toString());
    return true;
}

} // namespace qbrpt::qt
