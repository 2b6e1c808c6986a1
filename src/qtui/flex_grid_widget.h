// flex_grid_widget.h — Qt skin: the view of a FlexGrid model. It paints the model itself, only
// the rows and columns on screen, so it stays quick at tens of thousands of rows: fixed rows
// and columns, and the columns the user froze, stay put while the rest scrolls by whole rows and
// columns, merged blocks are painted once, colours are the model's BGR values, texts wrap when
// WordWrap is on. Clicks and double clicks are handed on as (row, col).
//
// What a desktop user expects of a grid, beyond the old one: a block of cells selected with the
// mouse or Shift+arrows and copied with Ctrl+C (text and an HTML table, see grid_clip.h); a
// context menu with 复制, 全选, 冻结到此列 / 取消冻结 and 打印预览…; column widths dragged at the
// header's column edges, written to the model's ColWidth as a program's change would be.
#pragma once

#include <QAbstractScrollArea>

#include <functional>
#include <vector>

#include "controls/control.h"
#include "controls/merged_cells.h"
#include "qtui/cell_text_cache.h"

class QAction;

namespace quillon {

class FlexGrid;

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
    // 打印预览… of the context menu; the entry is left out while this is empty.
    std::function<void()> PrintPreviewRequested;

    // The block the user selected; without a selection of the user's, the current cell's block.
    CellRange Selection() const;
    void SelectAll();
    // The selection onto the clipboard, as tab-separated text and as an HTML table.
    void CopySelection() const;

    // The column whose right edge a drag at this viewport point would move (only within the fixed
    // header rows, never a hidden column); -1 when none.
    int ResizableColumnAt(const QPoint& pos) const;

    // The context menu's entries for a point of the viewport, made ready (enabled, aimed at the
    // column under the point) as the menu shows them.
    QList<QAction*> PrepareContextMenu(const QPoint& pos);

    // Rows painted by the last paint, for the speed test.
    int LastPaintedRowCount() const { return lastPaintedRows_; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    // geometry and painting (flex_grid_widget.cpp)
    int RowPx(int row) const;
    int ColPx(int col) const;
    int FixedHeight() const;
    int StillWidth() const; // fixed and frozen columns
    int TopRow() const;
    int LeftCol() const;
    int RowY(int row) const; // top edge on the viewport
    int ColX(int col) const; // left edge on the viewport
    int MaxTopRow() const;
    int MaxLeftCol() const;
    QRect RangeRect(const CellRange& range) const;
    struct CellBox {
        QRect rect;
        int row;
        int col;
    };
    void PaintCells(QPainter& painter, const std::vector<CellBox>& boxes) const;
    void UpdateScrollBars();
    void SyncScrollBars();

    // the user's mouse and keys (flex_grid_input.cpp)
    void MoveCurrentCell(int row, int col);
    void ScrollToShow(int row, int col);
    void SelectBlock(int anchorRow, int anchorCol, int endRow, int endCol);
    void ExtendSelection(int row, int col);
    void ResizeColumnTo(int x);

    // the context menu (flex_grid_menu.cpp)
    void MakeActions();

    FlexGrid* grid_ = nullptr;
    int pressRow_ = -1;
    int pressCol_ = -1;
    bool swallowRelease_ = false;
    bool syncing_ = false; // the view moves its own scroll bars
    int lastPaintedRows_ = 0;
    mutable CellTextCache textCache_;

    // The user's selection: anchor and moving end, both inclusive, while selected_ is set. It
    // is dropped when the grid changes shape (a new run).
    bool selected_ = false;
    bool selecting_ = false; // the left button is down on the cells
    int anchorRow_ = 0, anchorCol_ = 0, endRow_ = 0, endCol_ = 0;
    int shapeRows_ = -1, shapeCols_ = -1;

    int resizingCol_ = -1; // the column whose width the user drags
    int grabOffset_ = 0;   // from the pointer to the column's edge when the drag began

    int menuCol_ = -1; // the column the context menu was opened on
    QAction* copyAction_ = nullptr;
    QAction* selectAllAction_ = nullptr;
    QAction* freezeAction_ = nullptr;
    QAction* unfreezeAction_ = nullptr;
    QAction* printAction_ = nullptr;
    QAction* separators_[2] = {nullptr, nullptr};
};

} // namespace quillon
