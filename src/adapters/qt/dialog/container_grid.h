// The rows and columns of a container.
#pragma once

#include "platform/forms.h"

#include <QtWidgets/QGridLayout>
#include <QtWidgets/QWidget>

#include <cstddef>
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
    /// Brings rows nearer to each other, from step to step; false behind the last.
    bool Tighten();

private:
    struct Filled {
        QGridLayout* grid = nullptr;
        int lastRow = 0;
        bool canGrow = false;  ///< downwards
        bool canWiden = false; ///< something takes what width is left
    };
    void SpaceOut(QWidget& container, Filled& filled) const;
    [[nodiscard]] Filled& GridOf(QWidget& container);
    static void WidenButtons(QGridLayout& grid);

    std::map<QWidget*, Filled> mGrids;
    std::set<const QWidget*> mPlaced;
    std::size_t mTightness = 0;
};

/// Gives everything in `top` its place at once, whether it is shown or not.
void Settle(QWidget& top);

} // namespace qbrpt::qt
