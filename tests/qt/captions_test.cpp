// Captions as they are painted.
#include "adapters/qt/application.h"
#include "adapters/qt/caption_painter.h"
#include "adapters/qt/look.h"
#include "adapters/qt/shown_text.h"
#include "window_platform.h"

#include <QtGui/QImage>
#include <gmock/gmock.h>

#include <set>

namespace qbrpt::test {
namespace {

using ::testing::SizeIs;

constexpr int Width = 160;
constexpr int Height = 26;

class Captions : public ::testing::Test {
protected:
    Captions() { qt::RequireApplication(); }

    static QImage Painted(const QString& caption, qt::CaptionPlace place = qt::CaptionPlace::Leading,
                          Qt::LayoutDirection direction = Qt::RightToLeft) {
        QImage image(Width, Height, QImage::Format_ARGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        painter.setFont(qt::WindowFont());
        painter.setPen(Qt::black);
        qt::DrawCaption(painter, image.rect(), place, direction, caption);
        return image;
    }
    /// Rows in which two pictures differ.
    static std::set<int> Rows(const QImage& one, const QImage& other) {
        std::set<int> rows;
        for (int y = 0; y < Height; ++y) {
            for (int x = 0; x < Width; ++x) {
                if (one.pixel(x, y) != other.pixel(x, y)) rows.insert(y);
            }
        }
        return rows;
    }
    static QRect Inked(const QImage& image) {
        QRect ink;
        for (int y = 0; y < Height; ++y) {
            for (int x = 0; x < Width; ++x) {
                if (image.pixel(x, y) != 0xFFFFFFFF) ink |= QRect(x, y, 1, 1);
            }
        }
        return ink;
    }

    WindowPlatform platform;
};

TEST_F(Captions, LettersStayJoinedOverTheUnderlinedOne) {
    for (const char* caption : {"&ملف", "&عرض", "&طباعة", "إ&عدادت الطابعة", "إ&غلاق"}) {
        const QString marked = caption;
        EXPECT_THAT(Rows(Painted(marked), Painted(QString(marked).remove('&'))), SizeIs(1)) << caption;
    }
}

TEST_F(Captions, StandWhereReadingBegins) {
    EXPECT_GT(Inked(Painted("ملف")).left(), Width / 2);
    EXPECT_LT(Inked(Painted("File", qt::CaptionPlace::Leading, Qt::LeftToRight)).right(), Width / 2);
    EXPECT_LT(Inked(Painted("Ctrl+P", qt::CaptionPlace::Trailing)).right(), Width / 2);
    EXPECT_NEAR(Inked(Painted("ملف", qt::CaptionPlace::Middle)).center().x(), Width / 2, 3);
}

TEST_F(Captions, ADoubledMarkIsALetter) {
    EXPECT_GT(Inked(Painted("a&&b")).width(), Inked(Painted("ab")).width());
}

TEST_F(Captions, WithoutArabicLettersKeepTheirOrder) {
    EXPECT_NE(Painted("400 %"), Painted(qt::KeptInOrder("400 %"))) << "else the isolate would be needless";
    const QImage alone = Painted("400 %", qt::CaptionPlace::Leading, Qt::LeftToRight);
    const QImage kept = Painted(qt::KeptInOrder("400 %"));
    EXPECT_EQ(kept.copy(Inked(kept)), alone.copy(Inked(alone)));
    EXPECT_EQ(qt::KeptInOrder("ملف"), "ملف");
    EXPECT_EQ(qt::KeptInOrder(""), "");
}

} // namespace
} // namespace qbrpt::test
