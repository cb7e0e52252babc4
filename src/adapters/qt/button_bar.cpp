#include "adapters/qt/button_bar.h"

#include "adapters/qt/icons.h"
#include "adapters/qt/look.h"

#include <QtWidgets/QFrame>
#include <QtWidgets/QHBoxLayout>

#include <utility>

namespace qbrpt::qt {

BarButton::BarButton(QWidget* parent, std::string key) : QToolButton(parent), mKey(std::move(key)) {
    setObjectName(QString::fromStdString(mKey));
    setFixedSize(Measure::Button, Measure::Button);
    setIconSize(QSize(Measure::Icon, Measure::Icon));
    setFocusPolicy(Qt::NoFocus); // the keyboard has the menu, which holds the same commands
    setCheckable(true);
}

void BarButton::SetImage(const std::string& list, std::int16_t image) {
    mImage = image;
    setIcon(ListPicture(list, image));
}

void BarButton::SetTip(const QString& tip) {
    setToolTip(tip);
    setAccessibleName(tip);
}

ButtonBar::ButtonBar(QWidget* parent, std::string imageList, Clicked clicked)
    : QWidget(parent), mImageList(std::move(imageList)), mClicked(std::move(clicked)),
      mRow(new QHBoxLayout(this)) {
    setObjectName("buttonBar");
    setAttribute(Qt::WA_StyledBackground);
    constexpr int above = (Measure::Strip - Measure::Button) / 2;
    mRow->setContentsMargins(Measure::BarMargin, above, Measure::BarMargin, above);
    mRow->setSpacing(Measure::ButtonGap);
    mRow->setSizeConstraint(QLayout::SetFixedSize); // as wide as its buttons, and never squeezed
}

void ButtonBar::AddButton(const ControlRow& row) {
    auto* button = new BarButton(this, std::string(row.name));
    button->SetTip(QString::fromUtf8(row.caption.data(), static_cast<qsizetype>(row.caption.size())));
    button->SetImage(mImageList, row.image);
    connect(button, &QToolButton::clicked, [this, button] { mClicked(button->Key()); });
    mRow->addWidget(button);
    mPlaces.push_back({button, button});
}

void ButtonBar::AddSeparator() {
    auto* line = new QFrame(this);
    line->setFixedSize(1, Measure::SeparatorHeight);
    constexpr int gap = Measure::SeparatorGap - Measure::ButtonGap;
    mRow->addSpacing(gap);
    mRow->addWidget(line, 0, Qt::AlignVCenter);
    mRow->addSpacing(gap);
    mPlaces.push_back({line, nullptr});
}

void ButtonBar::SetImageList(const std::string& name) {
    mImageList = name;
    for (const BarPlace& place : mPlaces) {
        if (place.button != nullptr) place.button->SetImage(name, 0);
    }
}

} // namespace qbrpt::qt
