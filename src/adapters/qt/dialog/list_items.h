// The items of a list view.
#pragma once

#include <QtCore/QAbstractTableModel>
#include <QtCore/QSet>

#include <cstdint>
#include <string>
#include <vector>

namespace qbrpt::qt {

/// Items with a key that no other has, their texts in columns. Counted from 1, as the system does.
class ListItems final : public QAbstractTableModel {
public:
    ListItems(const QStringList& captions, QObject* parent);

    void Clear();
    /// Raises NotUnique for a key that is there already.
    void Add(const QString& key, const QString& text);
    [[nodiscard]] std::int32_t Count() const { return static_cast<std::int32_t>(mItems.size()); }
    /// These raise InvalidArgument where there is no such item.
    [[nodiscard]] const QString& KeyOf(std::int32_t item) const { return mItems[PositionOf(item)].key; }
    [[nodiscard]] QString TextOf(std::int32_t item, std::int32_t column) const;
    void SetText(std::int32_t item, std::int32_t column, const QString& text);

    [[nodiscard]] int rowCount(const QModelIndex& parent) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

private:
    struct Item {
        QString key;
        QStringList texts;
    };
    [[nodiscard]] std::size_t PositionOf(std::int32_t item) const;

    QStringList mCaptions;
    std::vector<Item> mItems;
    QSet<QString> mKeys;
};

} // namespace qbrpt::qt
