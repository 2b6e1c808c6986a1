#include "qtui/print_painter.h"

#include <QFont>
#include <QPageLayout>
#include <QPainter>

#include <cmath>
#include <stdexcept>

#include "controls/flex_grid.h"
#include "qtui/qt_convert.h"

namespace quillon {
namespace {

// The painter works in twips; fonts are sized in them too, 20 twips to the point.
constexpr int kTwipsPerPoint = 20;
constexpr int kGridLineTwips = 10;
const QColor kPrintGridLine(0x60, 0x60, 0x60);

QFont PrintFont(int points, bool bold = false) {
    QFont font(QStringLiteral("Noto Sans CJK SC")); // the windows' font
    font.setPixelSize(points * kTwipsPerPoint);
    font.setBold(bold);
    return font;
}

QRect ToQRect(const TwipsRect& r) {
    return QRect(r.left, r.top, r.width, r.height);
}

int QtTextFlags(int alignment, bool wordWrap) {
    const int horizontal = alignment / 3 == 0   ? Qt::AlignLeft
                           : alignment / 3 == 1 ? Qt::AlignHCenter
                                                : Qt::AlignRight;
    const int vertical = alignment % 3 == 0   ? Qt::AlignTop
                         : alignment % 3 == 1 ? Qt::AlignVCenter
                                              : Qt::AlignBottom;
    return horizontal | vertical | (wordWrap ? Qt::TextWordWrap : Qt::TextSingleLine);
}

void PaintCell(QPainter& painter, const FlexGrid& grid, const PrintCell& cell) {
    const QRect rect = ToQRect(cell.rect);
    if (rect.isEmpty()) return;
    painter.fillRect(rect, ColorFromBgr(grid.BackColorAt(cell.row, cell.col)));
    painter.setPen(QPen(kPrintGridLine, kGridLineTwips));
    painter.drawRect(rect);
    const std::string& text = grid.TextMatrix(cell.row, cell.col);
    if (text.empty()) return;
    const int alignment = ResolveGeneralAlignment(grid.AlignmentAt(cell.row, cell.col), text);
    painter.setPen(ColorFromBgr(grid.ForeColorAt(cell.row, cell.col)));
    // The screen's inner padding of 3 px left, 4 right, 1 top and 2 below, in twips.
    painter.drawText(rect.adjusted(45, 15, -60, -30), QtTextFlags(alignment, grid.WordWrap()),
                     ToQString(text));
}

} // namespace

void PaintPrintPage(QPainter& painter, const PrintLayout& layout, const PrintPage& page,
                    const FlexGrid& grid) {
    painter.setPen(Qt::black);
    painter.setFont(PrintFont(14, true));
    painter.drawText(ToQRect(layout.titleRect), Qt::AlignCenter | Qt::TextSingleLine,
                     ToQString(layout.title));
    painter.setFont(PrintFont(9));
    if (!layout.subtitle.empty())
        painter.drawText(ToQRect(page.subtitleRect), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                         ToQString(layout.subtitle));
    painter.drawText(ToQRect(layout.footerRect), Qt::AlignCenter | Qt::TextSingleLine,
                     ToQString(page.footer));
    for (const PrintCell& cell : page.cells) PaintCell(painter, grid, cell);
}

PaperSpec PaperOf(const QPagedPaintDevice& device) {
    const QPageLayout layout = device.pageLayout();
    const QSizeF points = layout.pageSize().size(QPageSize::Point);
    PaperSpec paper;
    paper.width = static_cast<int>(std::lround(points.width() * kTwipsPerPoint));
    paper.height = static_cast<int>(std::lround(points.height() * kTwipsPerPoint));
    paper.orientation = layout.orientation() == QPageLayout::Landscape ? PageOrientation::Landscape
                                                                       : PageOrientation::Portrait;
    return paper;
}

void SetDevicePaper(QPagedPaintDevice& device, const PrintLayout& layout) {
    device.setPageSize(QPageSize(QPageSize::A4));
    device.setPageOrientation(layout.landscape ? QPageLayout::Landscape : QPageLayout::Portrait);
    // A printer may keep margins of its own; the pages are placed from the paper's corner anyway.
    device.setPageMargins(QMarginsF(0, 0, 0, 0));
}

void PaintPrintLayout(const PrintLayout& layout, const FlexGrid& grid, QPagedPaintDevice& device) {
    QPainter painter;
    if (!painter.begin(&device)) throw std::runtime_error("the pages cannot be painted on this device");
    // Twips from the paper's corner, wherever the device's own painting area begins.
    const int dpiX = device.logicalDpiX();
    const int dpiY = device.logicalDpiY();
    const QRect paintArea = device.pageLayout().paintRectPixels(dpiX);
    painter.translate(-paintArea.left(), -paintArea.top());
    painter.scale(dpiX / 1440.0, dpiY / 1440.0);
    painter.setRenderHint(QPainter::Antialiasing, false);
    for (std::size_t i = 0; i < layout.pages.size(); ++i) {
        if (i > 0 && !device.newPage()) throw std::runtime_error("no new page on the device");
        PaintPrintPage(painter, layout, layout.pages[i], grid);
    }
    painter.end();
}

} // namespace quillon
