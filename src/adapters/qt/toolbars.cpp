#include "adapters/qt/toolbars.h"

#include "adapters/qt/button_bar.h"
#include "adapters/qt/twips.h"
#include "base/failure.h"

#include <QtCore/QPointer>

#include <algorithm>
#include <memory>
#include <vector>

namespace qbrpt::qt {

namespace {

[[noreturn]] void NoSuchButton(const std::string& which) {
    throw Failure(FailureNumber::NotInCollection, "The tool bar has no button " + which + ".");
}

class QtButton final : public ToolbarButton {
public:
    QtButton(const ButtonBar& bar, BarButton* button) : mBar(&bar), mButton(button) {}

private:
    std::string DoKey() override { return mButton ? mButton->Key() : std::string{}; }
    ButtonStyle DoStyle() override { return mButton ? ButtonStyle::Default : ButtonStyle::Separator; }
    std::int16_t DoImage() override { return mButton ? mButton->Image() : std::int16_t{0}; }
    void DoSetImage(std::int16_t image) override {
        if (mButton && mBar) mButton->SetImage(mBar->ImageList(), image);
    }
    void DoSetValue(std::int16_t value) override {
        if (mButton) mButton->setChecked(value == 1);
    }
    void DoSetToolTipText(const std::string& text) override {
        if (mButton) mButton->SetTip(QString::fromStdString(text));
    }
    void DoSetEnabled(bool enabled) override {
        if (mButton) mButton->setEnabled(enabled);
    }
    QPointer<const ButtonBar> mBar;
    QPointer<BarButton> mButton; ///< null: a separator
};

class QtToolbar final : public Toolbar {
public:
    QtToolbar(QWidget& widget, ButtonBar* bar) : mWidget(&widget), mBar(bar) {}

private:
    [[nodiscard]] std::vector<BarPlace> Places() const {
        return mBar ? mBar->Places() : std::vector<BarPlace>{};
    }
    std::int16_t DoButtonCount() override { return static_cast<std::int16_t>(Places().size()); }
    Ref<ToolbarButton> DoButtons(std::int16_t index) override {
        const std::vector<BarPlace> places = Places();
        const auto position = static_cast<std::size_t>(index) - 1;
        if (index < 1 || position >= places.size()) NoSuchButton(std::to_string(index));
        return std::make_shared<QtButton>(*mBar, places[position].button);
    }
    Ref<ToolbarButton> DoButtonOf(const std::string& key) override {
        for (const BarPlace& place : Places()) {
            if (place.button != nullptr && place.button->Key() == key)
                return std::make_shared<QtButton>(*mBar, place.button);
        }
        NoSuchButton("\"" + key + "\"");
    }
    void DoSetImageList(const std::string& name) override {
        if (mBar) mBar->SetImageList(name);
    }
    std::int32_t DoWidth() override { return mWidget ? Twips(mWidget->width()) : 0; }
    std::int32_t DoHeight() override { return mWidget ? Twips(mWidget->height()) : 0; }
    void DoMove(std::int32_t left, std::int32_t top) override {
        if (mWidget) mWidget->move(Pixels(left), Pixels(top));
    }
    void DoZOrder() override {
        if (mWidget) mWidget->raise();
    }
    QPointer<QWidget> mWidget;
    QPointer<ButtonBar> mBar; ///< null: a strip
};

} // namespace

Ref<Toolbar> ToolbarOver(ButtonBar& bar) {
    return std::make_shared<QtToolbar>(bar, &bar);
}

Ref<Toolbar> ToolbarOver(QWidget& strip) {
    return std::make_shared<QtToolbar>(strip, nullptr);
}

} // namespace qbrpt::qt
