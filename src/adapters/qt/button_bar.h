// A row of picture buttons that lies freely in its window.
#pragma once

#include "platform/forms.h"

#include <QtWidgets/QToolButton>
#include <QtWidgets/QWidget>

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

class QHBoxLayout;

namespace qbrpt::qt {

/// A button of a bar. Stays pressed or not as it was told, whatever is clicked.
class BarButton final : public QToolButton {
public:
    BarButton(QWidget* parent, std::string key);
    [[nodiscard]] const std::string& Key() const { return mKey; }
    [[nodiscard]] std::int16_t Image() const { return mImage; }
    void SetImage(const std::string& list, std::int16_t image);
    void SetTip(const QString& tip);

private:
    void nextCheckState() override {}

    std::string mKey;
    std::int16_t mImage = 0;
};

/// One place of a bar: a button, or a separator.
struct BarPlace {
    QWidget* widget = nullptr;
    BarButton* button = nullptr; ///< null for a separator
};

class ButtonBar final : public QWidget {
public:
    using Clicked = std::function<void(const std::string& key)>;

    ButtonBar(QWidget* parent, std::string imageList, Clicked clicked);
    void AddButton(const ControlRow& row);
    void AddSeparator();

    [[nodiscard]] const std::vector<BarPlace>& Places() const { return mPlaces; }
    /// Shows the pictures of another list; the buttons lose theirs until they are given one again.
    void SetImageList(const std::string& name);
    [[nodiscard]] const std::string& ImageList() const { return mImageList; }

private:
    std::string mImageList;
    Clicked mClicked;
    QHBoxLayout* mRow;
    std::vector<BarPlace> mPlaces;
};

} // namespace qbrpt::qt
