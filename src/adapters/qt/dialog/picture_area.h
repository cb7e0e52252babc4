// Pictures, surfaces to paint on, and panels.
#pragma once

#include "adapters/gdi/raster_gdi.h"
#include "adapters/qt/control_events.h"
#include "adapters/qt/dialog/built_control.h"
#include "base/ref.h"
#include "platform/forms.h"

#include <QtGui/QImage>
#include <QtWidgets/QWidget>

#include <memory>
#include <string_view>

namespace qbrpt::qt {

/// Lets its rules paint on a canvas of the drawing system, which it then shows.
class PictureArea final : public QWidget {
public:
    PictureArea(QWidget* parent, std::string_view picture);
    ~PictureArea() override;
    PictureArea(const PictureArea&) = delete;
    PictureArea& operator=(const PictureArea&) = delete;

    [[nodiscard]] GdiHandle Picture() const { return mPicture; }
    /// 0 but while it is painted.
    [[nodiscard]] GdiHandle Canvas();
    void SetBorder(bool border);

    std::function<void()> painted = [] {};

private:
    void paintEvent(QPaintEvent* event) override;

    Ref<Gdi> mGdi; ///< that the handles belong to
    QImage mShown; ///< the picture that it was built with
    GdiHandle mPicture = 0;
    GdiHandle mCanvas = 0;
    bool mPainting = false;
    bool mBorder = false;
};

[[nodiscard]] BuiltControl BuildPictureBox(QWidget& parent, const ControlRow& row,
                                           const ControlEvents& events);

} // namespace qbrpt::qt
