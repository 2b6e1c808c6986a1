#include "qtui/cell_text_cache.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QRect>

#include <algorithm>

namespace quillon {

const CellTextCache::LaidOutText& CellTextCache::LaidOut(const QString& text) {
    auto found = laidOut_.constFind(text);
    if (found != laidOut_.constEnd()) return *found;
    if (laidOut_.size() >= kMostTexts) laidOut_.clear();
    LaidOutText laid{QStaticText(text), {}};
    laid.glyphs.setTextFormat(Qt::PlainText);
    laid.glyphs.prepare(QTransform(), font_);
    // The static text's own height leaves out what a fallback font (the Chinese glyphs) adds
    // to the line; the alignment must use the line drawText would lay out. Latin text has the
    // font's own line, known without laying the text out a second time.
    const bool latin = std::all_of(text.begin(), text.end(), [](QChar ch) { return ch.unicode() < 0x80; });
    const QFontMetricsF metrics(font_);
    laid.size = latin ? QSizeF(laid.glyphs.size().width(), metrics.height())
                      : metrics.boundingRect(QRectF(0, 0, 1e6, 1e6), Qt::TextSingleLine, text).size();
    return *laidOut_.insert(text, laid);
}

void CellTextCache::FollowFont(const QPainter& painter) {
    if (painter.font() == font_) return;
    font_ = painter.font();
    laidOut_.clear();
    pictures_.clear();
    seen_.clear();
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
    FollowFont(painter);
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

void CellTextCache::DrawOn(QPainter& painter, const QRect& rect, int flags, const QString& text,
                           const QColor& background) {
    if ((flags & Qt::TextWordWrap) || !IsPlainLine(text)) return painter.drawText(rect, flags, text);
    if (rect.width() <= 0 || rect.height() <= 0) return; // drawText shows nothing there either
    FollowFont(painter);
    const qreal ratio = painter.device() ? painter.device()->devicePixelRatioF() : 1.0;
    const QString key = text + QChar(0x1F) + QString::number(rect.width()) + QChar('x') +
                        QString::number(rect.height()) + QChar(0x1F) + QString::number(flags) + QChar(0x1F) +
                        QString::number(painter.pen().color().rgba()) + QChar(0x1F) +
                        QString::number(background.rgba()) + QChar(0x1F) + QString::number(ratio);
    auto found = pictures_.constFind(key);
    if (found == pictures_.constEnd()) {
        // A cell seen once (a page scrolled past) is drawn as it comes; its picture is made the
        // second time, when a repaint of the same screen shows it is worth keeping.
        if (!seen_.contains(key)) {
            if (seen_.size() >= kMostPictures) seen_.clear();
            seen_.insert(key);
            return Draw(painter, rect, flags, text);
        }
        if (pictures_.size() >= kMostPictures) pictures_.clear();
        QPixmap picture(rect.size() * ratio);
        picture.setDevicePixelRatio(ratio);
        picture.fill(background);
        QPainter p(&picture);
        p.setFont(font_);
        p.setPen(painter.pen());
        Draw(p, QRect(QPoint(0, 0), rect.size()), flags, text);
        p.end();
        found = pictures_.insert(key, picture);
    }
    painter.drawPixmap(rect.topLeft(), *found);
}

} // namespace quillon
