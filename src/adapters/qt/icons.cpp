#include "adapters/qt/icons.h"

#include "adapters/qt/look.h"

#include <QtGui/QIconEngine>
#include <QtGui/QPainter>
#include <QtSvg/QSvgRenderer>

#include <array>
#include <memory>

// Resources of a static library are asked for by name, from outside of any namespace.
static void LoadIcons() {
    Q_INIT_RESOURCE(icons);
}

namespace qbrpt::qt {

namespace {

struct Picture {
    const char* name;
    bool turns; ///< shows a direction, and so is another one in the other list
};

// In the order of their numbers.
constexpr std::array Pictures = {
    Picture{"close", false},   Picture{"print", false},  Picture{"first", true},    Picture{"prev", true},
    Picture{"next", true},     Picture{"last", true},    Picture{"zoomin", false},  Picture{"zoomout", false},
    Picture{"zoom25", false},  Picture{"zoom50", false}, Picture{"zoom100", false}, Picture{"zoom200", false},
    Picture{"zoom400", false},
};

/// Draws its file anew at each size, so that it is sharp at every density.
class DrawingEngine final : public QIconEngine {
public:
    DrawingEngine(const QString& name, bool mirrored)
        : mName(name), mMirrored(mirrored),
          mDrawing(std::make_shared<QSvgRenderer>(QStringLiteral(":/qbrpt/icons/%1.svg").arg(name))) {}

    void paint(QPainter* painter, const QRect& place, QIcon::Mode mode, QIcon::State) override {
        painter->save();
        if (mode == QIcon::Disabled) painter->setOpacity(painter->opacity() * Measure::DisabledIcon);
        painter->translate(place.topLeft());
        if (mMirrored) {
            painter->translate(place.width(), 0);
            painter->scale(-1, 1);
        }
        mDrawing->render(painter, QRectF(QPointF(0, 0), place.size()));
        painter->restore();
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(0, 0), size), mode, state);
        return pixmap;
    }
    QIconEngine* clone() const override { return new DrawingEngine(*this); }
    QString iconName() override { return mMirrored ? mName + "-mirrored" : mName; }
    bool isNull() override { return !mDrawing->isValid(); }
    // Of a window's icon, which is handed over as pictures.
    QList<QSize> availableSizes(QIcon::Mode, QIcon::State) override {
        return {{16, 16}, {24, 24}, {32, 32}, {48, 48}, {64, 64}};
    }

private:
    QString mName;
    bool mMirrored;
    std::shared_ptr<QSvgRenderer> mDrawing;
};

// Of the accounts window, in the order of their numbers.
constexpr std::array AccountTabs = {"tab-accounts", "tab-entry", "tab-reports"};

} // namespace

QIcon Drawing(const QString& name, bool mirrored) {
    LoadIcons();
    return QIcon(new DrawingEngine(name, mirrored));
}

QIcon TabPicture(std::string_view form, std::int16_t number) {
    if (form != "frmAccount" || number < 1 || static_cast<std::size_t>(number) > AccountTabs.size())
        return {};
    return Drawing(AccountTabs[static_cast<std::size_t>(number) - 1]);
}

QIcon ListPicture(std::string_view list, std::int16_t number) {
    const bool leftToRight = list == "ImageList2";
    if (!leftToRight && list != "ImageList1") return {};
    if (number < 1 || static_cast<std::size_t>(number) > Pictures.size()) return {};
    const Picture& picture = Pictures[static_cast<std::size_t>(number) - 1];
    return Drawing(picture.name, leftToRight && picture.turns);
}

} // namespace qbrpt::qt
