// Drop-down lists.
#pragma once

#include "adapters/qt/control_events.h"
#include "adapters/qt/dialog/built_control.h"
#include "base/ref.h"
#include "platform/forms.h"

#include <QtCore/QAbstractListModel>
#include <QtWidgets/QComboBox>

#include <cstdint>
#include <vector>

namespace qbrpt::qt {

/// Entries with a number each.
class ComboEntries final : public QAbstractListModel {
public:
    using QAbstractListModel::QAbstractListModel;
    struct Entry {
        QString text;
        std::int32_t data = 0;
    };
    [[nodiscard]] const std::vector<Entry>& All() const { return mEntries; }
    void Add(const QString& text);
    void Clear();
    /// Raises InvalidArgument where there is no such entry.
    [[nodiscard]] Entry& At(std::int32_t index);

    [[nodiscard]] int rowCount(const QModelIndex& parent) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

private:
    std::vector<Entry> mEntries;
};

class DropDown final : public QComboBox {
public:
    explicit DropDown(QWidget* parent);
    [[nodiscard]] ComboEntries& Entries() { return *mEntries; }
    void Add(const QString& text);
    void showPopup() override;

private:
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

    ComboEntries* mEntries;
};

[[nodiscard]] BuiltControl BuildCombo(QWidget& parent, const ControlRow& row, const ControlEvents& events);

} // namespace qbrpt::qt
