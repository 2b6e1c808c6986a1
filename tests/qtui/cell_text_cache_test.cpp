// The cached cell text must land on the very pixels drawText would have painted, in every
// alignment, and leave to drawText what it cannot draw the same way.
#include <gtest/gtest.h>

#include <QFont>
#include <QImage>
#include <QPainter>

#include "qt_test_app.h"
#include "qtui/cell_text_cache.h"

namespace quillon {
namespace {

QImage Blank() {
    QImage image(160, 40, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    return image;
}

int DifferingPixels(const QImage& a, const QImage& b) {
    int differing = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x) differing += a.pixel(x, y) != b.pixel(x, y);
    return differing;
}

TEST(CellTextCache, PaintsWhatDrawTextPaints) {
    TestApp();
    const int horizontal[] = {Qt::AlignLeft, Qt::AlignHCenter, Qt::AlignRight};
    const int vertical[] = {Qt::AlignTop, Qt::AlignVCenter, Qt::AlignBottom};
    const char* texts[] = {"1234.50",
                           "票据编号 0001",
                           "合  计",
                           " 前导",
                           "-0.00",
                           "维修基金KFS",
                           "a text far too long for the cell it is drawn in",
                           "two\nlines",
                           "tab\there",
                           ""};
    const QRect rects[] = {{3, 1, 120, 20}, {10, 5, 61, 29}};
    CellTextCache cache;
    for (const QRect& rect : rects)
        for (int h : horizontal)
            for (int v : vertical)
                for (const char* text : texts)
                    for (int pass = 0; pass < 2; ++pass) { // the first lays out, the second reuses
                        const int flags = h | v | Qt::TextSingleLine;
                        QImage expected = Blank(), drawn = Blank();
                        {
                            QPainter p(&expected);
                            p.setPen(Qt::darkBlue);
                            p.drawText(rect, flags, QString::fromUtf8(text));
                        }
                        {
                            QPainter p(&drawn);
                            p.setPen(Qt::darkBlue);
                            cache.Draw(p, rect, flags, QString::fromUtf8(text));
                        }
                        EXPECT_EQ(DifferingPixels(expected, drawn), 0)
                            << text << " h=" << h << " v=" << v << " rect " << rect.width() << "x"
                            << rect.height() << " pass " << pass;
                    }
    EXPECT_GT(cache.Size(), 0) << "the texts that fit were drawn from the cache";
}

// A cell drawn once, then kept as a picture: its background and text copied must be the pixels
// the background fill and drawText give, on either image format the screen may use.
TEST(CellTextCache, APictureOfTheCellIsWhatFillAndDrawTextPaint) {
    TestApp();
    const int alignments[] = {Qt::AlignLeft | Qt::AlignVCenter, Qt::AlignHCenter | Qt::AlignVCenter,
                              Qt::AlignRight | Qt::AlignVCenter, Qt::AlignRight | Qt::AlignBottom};
    const char* texts[] = {"1234.50", "合  计", "维修基金KFS",
                           "a text far too long for the cell it is drawn in"};
    const QColor backgrounds[] = {Qt::white, QColor(0xC0, 0xC0, 0xC0), QColor(0xFF, 0xFF, 0xC0)};
    const QColor pens[] = {Qt::black, Qt::darkRed};
    const QImage::Format formats[] = {QImage::Format_ARGB32_Premultiplied, QImage::Format_RGB32};
    const QRect rect(7, 3, 90, 18);
    CellTextCache cache;
    for (QImage::Format format : formats)
        for (int flags : alignments)
            for (const char* text : texts)
                for (const QColor& background : backgrounds)
                    for (const QColor& pen : pens)
                        for (int pass = 0; pass < 2; ++pass) {
                            QImage expected(120, 30, format), drawn(120, 30, format);
                            expected.fill(Qt::blue);
                            drawn.fill(Qt::blue);
                            {
                                QPainter p(&expected);
                                p.fillRect(rect, background);
                                p.setPen(pen);
                                p.drawText(rect, flags | Qt::TextSingleLine, QString::fromUtf8(text));
                            }
                            {
                                QPainter p(&drawn);
                                p.fillRect(rect, background);
                                p.setPen(pen);
                                cache.DrawOn(p, rect, flags | Qt::TextSingleLine, QString::fromUtf8(text),
                                             background);
                            }
                            ASSERT_EQ(DifferingPixels(expected, drawn), 0)
                                << text << " flags " << flags << " format " << format << " pass " << pass;
                        }
    EXPECT_EQ(cache.PictureCount(), 4 * 4 * 3 * 2) << "one picture a cell look, kept across formats";
}

TEST(CellTextCache, FollowsThePaintersFont) {
    TestApp();
    CellTextCache cache;
    const QRect rect(0, 0, 160, 40);
    const QString text = QStringLiteral("1234.50");
    for (int size : {9, 14, 9}) {
        QFont font = QApplication::font();
        font.setPointSize(size);
        QImage expected = Blank(), drawn = Blank();
        {
            QPainter p(&expected);
            p.setFont(font);
            p.drawText(rect, Qt::AlignRight | Qt::AlignVCenter, text);
        }
        {
            QPainter p(&drawn);
            p.setFont(font);
            cache.Draw(p, rect, Qt::AlignRight | Qt::AlignVCenter, text);
        }
        EXPECT_EQ(DifferingPixels(expected, drawn), 0) << "point size " << size;
    }
}

} // namespace
} // namespace quillon
