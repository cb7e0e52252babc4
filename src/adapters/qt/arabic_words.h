// Arabic words for the dialogs and menus that Qt brings itself.
#pragma once

#include <QtCore/QTranslator>

namespace qbrpt::qt {

/// File dialogs, the buttons of standard boxes, and the menus of text fields.
class ArabicWords final : public QTranslator {
public:
    using QTranslator::QTranslator;
    [[nodiscard]] QString translate(const char* context, const char* source, const char* disambiguation,
                                    int number) const override;
    [[nodiscard]] bool isEmpty() const override { return false; }
};

} // namespace qbrpt::qt
