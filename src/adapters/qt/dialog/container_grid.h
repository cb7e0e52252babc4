// The rows and columns of a container.
#pragma once

#include "platform/forms.h"

#include <QtWidgets/QGridLayout>
#include <QtWidgets/QWidget>

#include <map>
#include <set>

namespace qbrpt::qt {

/// Puts the controls of a form where their rows have them: at a fixed place, or in the grid of their
/// container, sized by the font.
class ContainerGrids {
public:
    void Place(QWidget& container, QWidget& widget, const ControlRow& row);
    /// To be called when all stand: what room is left goes to what can grow, else above the last row.
    void Finish();

private:
    struct Filled {
        QGridLayout* grid = nullptr;
        int lastRow = 0;
        bool canGrow = false; ///< downwards
    };
    [[nodiscard]] Filled& GridOf(QWidget& container);
    static void WidenButtons(QGridLayout& grid);

    std::map<QWidget*, Filled> mGrids;
    std::set<const QWidget*> mPlaced;
};

/// Gives everything in `top` its place at once, whether it is shown or not.
void Settle(QWidget& top);

} // namespace qbrpt::qt
