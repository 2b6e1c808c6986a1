#include "qtui/cell_text_cache.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QRect>

namespace quillon {

const CellTextCache::LaidOutText& CellTextCache::LaidOut(const QString& text) {
    auto found = laidOut_.constFind(text);
    if (found != laidOut_.constEnd()) return *found;
    if (laidOut_.size() >= kMostTexts) laidOut_.clear();
    LaidOutText laid{QStaticText(text), {}};
    laid.glyphs.setTextFormat(Qt::PlainText);
    laid.glyphs.prepare(QTransform(), font_);
    // The static text's own height leaves out what a fallback font (the Chinese glyphs) adds
    // to the line; the alignment must use the line drawText would lay out.
    laid.size = QFontMetricsF(font_).boundingRect(QRectF(0, 0, 1e6, 1e6), Qt::TextSingleLine, text).size();
    return *laidOut_.insert(text, laid);
}

namespace {

// One line with nothing the line layout would treat apart: no break, no tab, no control mark.
bool IsPlainLine(const QString& text) {
    for (const QChar ch : text)
        if (ch.unicode() < 0x20) return false;
    return true;
}

} // namespace

void CellTextCache::Draw(QPainter& painter, const QRect& rect, int flags, const QString& text) {
    if ((flags & Qt::TextWordWrap) || !IsPlainLine(text)) return painter.drawText(rect, flags, text);
    if (painter.font() != font_) {
        font_ = painter.font();
        laidOut_.clear();
    }
    const LaidOutText& laid = LaidOut(text);
    const QSizeF size = laid.size;
    const bool overflows = size.width() > rect.width() || size.height() > rect.height();
    qreal x = rect.left();
    if (flags & Qt::AlignRight)
        x = rect.left() + rect.width() - size.width();
    else if (flags & Qt::AlignHCenter)
        x = rect.left() + (rect.width() - size.width()) / 2;
    qreal y = rect.top();
    if (flags & Qt::AlignBottom)
        y = rect.top() + rect.height() - size.height();
    else if (flags & Qt::AlignVCenter)
        y = rect.top() + (rect.height() - size.height()) / 2;
    if (!overflows) return painter.drawStaticText(QPointF(x, y), laid.glyphs);
    // Placed as if it fitted, then cut at the cell's edges, as drawText does.
    painter.save();
    painter.setClipRect(rect, Qt::IntersectClip);
    painter.drawStaticText(QPointF(x, y), laid.glyphs);
    painter.restore();
}

} // namespace quillon
