// cell_text_cache.h — the texts of the grid's cells kept laid out between repaints. Laying out
// (shaping) a text costs as much as drawing its glyphs, and a repaint mostly shows the texts
// the last one showed: scrolling a row or moving the current cell keeps nearly all of them.
#pragma once

#include <QFont>
#include <QHash>
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

    int Size() const { return static_cast<int>(laidOut_.size()); }

private:
    struct LaidOutText {
        QStaticText glyphs;
        QSizeF size; // as drawText measures the line, fallback fonts and all
    };
    const LaidOutText& LaidOut(const QString& text);

    // Bound the cache: a few screens of cells.
    static constexpr int kMostTexts = 8192;
    QFont font_;
    QHash<QString, LaidOutText> laidOut_;
};

} // namespace quillon
