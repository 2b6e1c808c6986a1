// flex_grid_widget.h — Qt skin: the view of a FlexGrid model. It paints the model itself, only
// the rows and columns on screen, so it stays quick at tens of thousands of rows: fixed rows
// and columns stay put while the rest scrolls by whole rows and columns, merged blocks are
// painted once, colours are the model's BGR values, texts wrap when WordWrap is on. Clicks and
// double clicks are handed on as (row, col).
#pragma once

#include <QAbstractScrollArea>

#include <functional>

#include "controls/control.h"

namespace quillon {

class FlexGrid;
struct CellRange;

class FlexGridWidget : public QAbstractScrollArea {
public:
    explicit FlexGridWidget(QWidget* parent = nullptr);

    // The grid painted; nullptr paints nothing.
    void SetGrid(FlexGrid* grid);
    FlexGrid* Grid() const { return grid_; }

    // The model changed: repaint, and after a change of shape fit the scroll bars.
    void ModelChanged(Aspect what);

    // The cell under a point of the viewport; false off the cells.
    bool CellAt(const QPoint& pos, int& row, int& col) const;
    // Where a single cell is on the viewport (before clipping to its section).
    QRect CellRect(int row, int col) const;

    // A user's click or double click on a cell.
    std::function<void(int row, int col)> CellClicked;
    std::function<void(int row, int col)> CellDoubleClicked;

    // Rows painted by the last paint, for the speed test.
    int LastPaintedRowCount() const { return lastPaintedRows_; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    int RowPx(int row) const;
    int ColPx(int col) const;
    int FixedHeight() const;
    int FixedWidth() const;
    int TopRow() const;
    int LeftCol() const;
    int RowY(int row) const; // top edge on the viewport
    int ColX(int col) const; // left edge on the viewport
    int MaxTopRow() const;
    int MaxLeftCol() const;
    QRect RangeRect(const CellRange& range) const;
    void PaintCell(QPainter& painter, const QRect& rect, int row, int col, const QString& text) const;
    void UpdateScrollBars();
    void SyncScrollBars();
    void MoveCurrentCell(int row, int col);

    FlexGrid* grid_ = nullptr;
    int pressRow_ = -1;
    int pressCol_ = -1;
    bool swallowRelease_ = false;
    bool syncing_ = false; // the view moves its own scroll bars
    int lastPaintedRows_ = 0;
};

} // namespace quillon
