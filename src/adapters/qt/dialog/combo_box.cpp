#include "adapters/qt/dialog/combo_box.h"

#include "adapters/qt/caption_painter.h"
#include "adapters/qt/dialog/control_port.h"
#include "adapters/qt/dialog/painting.h"
#include "adapters/qt/dialog/row_delegate.h"
#include "adapters/qt/shown_text.h"

#include <QtGui/QWheelEvent>
#include <QtWidgets/QListView>

#include <memory>

namespace qbrpt::qt {

namespace {

constexpr int WidthOfNone = 140;
constexpr int RowsShown = 12;

class ComboPort final : public ControlOver<ListControl, DropDown> {
public:
    ComboPort(DropDown& widget, std::function<void()> clicked)
        : ControlOver(widget), mClicked(std::move(clicked)) {}

private:
    void DoClear() override { Shown().Entries().Clear(); }
    void DoAddItem(const std::string& text) override { Shown().Add(QString::fromStdString(text)); }
    [[nodiscard]] std::int32_t DoListCount() const override { return Shown().count(); }
    [[nodiscard]] std::int32_t DoListIndex() const override { return Shown().currentIndex(); }
    void DoSetListIndex(std::int32_t index) override {
        if (index < -1 || index >= Shown().count())
            throw Failure(FailureNumber::InvalidArgument, "The list has no such entry.");
        Shown().setCurrentIndex(index);
        if (index >= 0) mClicked();
    }
    [[nodiscard]] std::int32_t DoItemData(std::int32_t index) const override {
        return Shown().Entries().At(index).data;
    }
    void DoSetItemData(std::int32_t index, std::int32_t data) override {
        Shown().Entries().At(index).data = data;
    }
    [[nodiscard]] std::string DoText() const override {
        const int index = Shown().currentIndex();
        return index < 0 ? std::string() : Shown().Entries().At(index).text.toStdString();
    }

    std::function<void()> mClicked;
};

} // namespace

void ComboEntries::Add(const QString& text) {
    const int row = static_cast<int>(mEntries.size());
    beginInsertRows({}, row, row);
    mEntries.push_back({text, 0});
    endInsertRows();
}

void ComboEntries::Clear() {
    beginResetModel();
    mEntries.clear();
    endResetModel();
}

ComboEntries::Entry& ComboEntries::At(std::int32_t index) {
    if (index < 0 || static_cast<std::size_t>(index) >= mEntries.size())
        throw Failure(FailureNumber::InvalidArgument, "The list has no such entry.");
    return mEntries[static_cast<std::size_t>(index)];
}

int ComboEntries::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(mEntries.size());
}

QVariant ComboEntries::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    const QString& text = mEntries[static_cast<std::size_t>(index.row())].text;
    if (role == Qt::DisplayRole) return KeptInOrder(text);
    if (role == Qt::EditRole || role == Qt::AccessibleTextRole) return text;
    return {};
}

DropDown::DropDown(QWidget* parent) : QComboBox(parent), mEntries(new ComboEntries(this)) {
    auto* list = new QListView(this);
    list->setUniformItemSizes(true); // thousands of entries are not measured one by one
    setView(list);
    setModel(mEntries);
    list->setItemDelegate(new RowDelegate(list));
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
    setMaxVisibleItems(RowsShown);
    setFixedHeight(DialogMeasure::Field);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setAttribute(Qt::WA_Hover);
}

void DropDown::Add(const QString& text) {
    const int before = currentIndex();
    mEntries->Add(text);
    // The first entry would select itself.
    if (before != currentIndex()) setCurrentIndex(before);
}

QSize DropDown::sizeHint() const {
    return {WidthOfNone, DialogMeasure::Field};
}

void DropDown::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const Edge edge = !isEnabled() ? Edge::Faint : hasFocus() ? Edge::Strong : Edge::Plain;
    PaintBox(painter, rect(), isEnabled() ? DialogColor::Field : DialogColor::ReadOnly, edge);
    const bool fromRight = layoutDirection() == Qt::RightToLeft;
    const int drop = DialogMeasure::DropButton;
    const QRgb ink = isEnabled() ? DialogColor::Ink : DialogColor::Faint;
    PaintArrow(painter, {fromRight ? drop / 2.0 : width() - drop / 2.0, height() / 2.0}, Arrow::Down, ink);
    QRect room = rect().adjusted(DialogMeasure::FieldPadding, 0, -DialogMeasure::FieldPadding, 0);
    if (fromRight)
        room.setLeft(drop);
    else
        room.setRight(width() - drop);
    painter.setPen(QColor(ink));
    painter.setFont(font());
    const QString shown = fontMetrics().elidedText(currentText(), Qt::ElideRight, room.width());
    DrawCaption(painter, room, CaptionPlace::Leading, layoutDirection(), QString(shown).replace('&', "&&"));
}

void DropDown::wheelEvent(QWheelEvent* event) {
    if (!hasFocus()) return event->ignore(); // a wheel that only passes over it chooses nothing
    QComboBox::wheelEvent(event);
}

void DropDown::showPopup() {
    if (count() == 0) return;
    view()->setLayoutDirection(layoutDirection());
    QComboBox::showPopup();
}

BuiltControl BuildCombo(QWidget& parent, const ControlRow& row, const ControlEvents& events) {
    auto* combo = new DropDown(&parent);
    const std::function<void()> clicked = [name = std::string(row.name), told = events.click] { told(name); };
    QObject::connect(combo, &QComboBox::activated, combo, clicked);
    return {combo, std::make_shared<ComboPort>(*combo, clicked)};
}

} // namespace qbrpt::qt
