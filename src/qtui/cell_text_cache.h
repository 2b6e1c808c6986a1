// cell_text_cache.h — the texts of the grid's cells kept laid out between repaints. Laying out
// (shaping) a text costs as much as drawing its glyphs, and a repaint mostly shows the texts
// the last one showed: scrolling a row or moving the current cell keeps nearly all of them.
#pragma once

#include <QColor>
#include <QFont>
#include <QHash>
#include <QPixmap>
#include <QSet>
#include <QSizeF>
#include <QStaticText>
#include <QString>

class QPainter;
class QRect;

namespace quillon {

class CellTextCache {
public:
    // Draws `text` in `rect` as QPainter::drawText(rect, flags, text) does, with the painter's
    // font and pen, cut at the rect's edges. One line of text is drawn from the cache; wrapped
    // text and text with breaks or tabs are left to drawText.
    void Draw(QPainter& painter, const QRect& rect, int flags, const QString& text);

    // The same over a rect already filled with `background`: a cell painted again is kept as a
    // picture of the filled rect with its text, so that the next repaint copies it rather than
    // blending its glyphs anew.
    void DrawOn(QPainter& painter, const QRect& rect, int flags, const QString& text,
                const QColor& background);

    int Size() const { return static_cast<int>(laidOut_.size()); }
    int PictureCount() const { return static_cast<int>(pictures_.size()); }

private:
    struct LaidOutText {
        QStaticText glyphs;
        QSizeF size; // as drawText measures the line, fallback fonts and all
    };
    const LaidOutText& LaidOut(const QString& text);

    // Bound the cache: a few screens of cells.
    static constexpr int kMostTexts = 8192;
    static constexpr int kMostPictures = 4096; // some 30 MB of cells at the most
    void FollowFont(const QPainter& painter);

    QFont font_;
    QHash<QString, LaidOutText> laidOut_;
    QHash<QString, QPixmap> pictures_;
    QSet<QString> seen_; // cells drawn once, without a picture yet
};

} // namespace quillon
