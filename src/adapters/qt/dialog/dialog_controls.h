// The controls of dialogs, built from the rows of a form's table.
#pragma once

#include "adapters/qt/control_events.h"
#include "adapters/qt/dialog/container_grid.h"
#include "adapters/qt/dialog/default_button.h"
#include "adapters/qt/dialog/focus_watch.h"
#include "base/ref.h"
#include "platform/forms.h"

#include <QtWidgets/QWidget>

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace qbrpt::qt {

class TabBox;

/// Puts a window of the form under a handle, inside that of another.
using AddToTree = std::function<WindowHandle(QWidget& widget, const ControlRow& row, WindowHandle parent)>;

class DialogControls {
public:
    /// `client` is where the form's controls stand.
    DialogControls(QWidget& client, const FormTable& table, ControlEvents events);

    /// Rows that are no control of a dialog are passed over.
    void Add(const ControlRow& row, const AddToTree& addToTree);
    /// To be called when all stand.
    void Finish();

    /// Null where there is none of this name.
    [[nodiscard]] Ref<Control> Find(const std::string& name) const;
    [[nodiscard]] QWidget* WidgetOf(const std::string& name) const;

    /// The size that the form is given, or what all controls need where that is more. They come nearer to
    /// each other before they need more.
    [[nodiscard]] QSize Fit(const QSize& given);
    /// Gives all their places. Panels without a place of their own fill the tab strip beside them.
    void Settle();
    void FocusFirst();
    /// Keys that no control has taken.
    [[nodiscard]] bool TakesKey(QKeyEvent& event);

private:
    struct Built {
        const ControlRow* row = nullptr;
        QWidget* widget = nullptr;
        Ref<Control> port;
    };
    [[nodiscard]] QSize LeastSize() const;
    [[nodiscard]] Built Make(QWidget& parent, const ControlRow& row) const;
    void NameFields();
    void OrderTabKey();
    void TurnTabsByKeys();
    void FitPanels();
    [[nodiscard]] bool IsFreePanel(const Built& built) const;
    [[nodiscard]] std::vector<QWidget*> InTabOrder() const;

    QWidget& mClient;
    const FormTable& mTable;
    ControlEvents mEvents;
    std::shared_ptr<DefaultButton> mDefaults = std::make_shared<DefaultButton>();
    FocusWatch mFocus;
    ContainerGrids mGrids;
    std::vector<Built> mBuilt;
    TabBox* mTabs = nullptr;
};

} // namespace qbrpt::qt
