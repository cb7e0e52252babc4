#include "report/page.h"

namespace qbrpt::report {

void Page::Clear() {
    items.clear();
    figureText.clear();
    texts.clear();
    pictures.clear();
}

} // namespace qbrpt::report
