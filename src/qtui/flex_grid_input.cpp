// The grid view's mouse and keys: clicks handed to the model, the user's block selection, and
// column widths dragged at the header's column edges.
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>

#include <algorithm>
#include <cstdlib>

#include "controls/flex_grid.h"
#include "qtui/flex_grid_widget.h"
#include "qtui/qt_convert.h"

namespace quillon {
namespace {

constexpr int kEdgeGrip = 3;        // pixels either side of a column edge that grab it
constexpr int kNarrowestColumn = 8; // pixels: a dragged column never vanishes

} // namespace

CellRange FlexGridWidget::Selection() const {
    if (!grid_) return {};
    if (!selected_) return grid_->MergedRangeAt(grid_->Row(), grid_->Col());
    return {std::min(anchorRow_, endRow_), std::min(anchorCol_, endCol_), std::max(anchorRow_, endRow_),
            std::max(anchorCol_, endCol_)};
}

void FlexGridWidget::SelectBlock(int anchorRow, int anchorCol, int endRow, int endCol) {
    selected_ = true;
    anchorRow_ = anchorRow;
    anchorCol_ = anchorCol;
    endRow_ = endRow;
    endCol_ = endCol;
    viewport()->update();
}

void FlexGridWidget::SelectAll() {
    if (!grid_ || grid_->Rows() == 0 || grid_->Cols() == 0) return;
    SelectBlock(0, 0, grid_->Rows() - 1, grid_->Cols() - 1);
}

void FlexGridWidget::ExtendSelection(int row, int col) {
    if (!selected_) {
        const CellRange current = Selection();
        anchorRow_ = current.row1;
        anchorCol_ = current.col1;
    }
    SelectBlock(anchorRow_, anchorCol_, std::clamp(row, 0, grid_->Rows() - 1),
                std::clamp(col, 0, grid_->Cols() - 1));
    ScrollToShow(endRow_, endCol_);
}

int FlexGridWidget::ResizableColumnAt(const QPoint& pos) const {
    if (!grid_ || pos.y() < 0 || pos.y() >= FixedHeight()) return -1;
    const int still = grid_->StillCols();
    int best = -1, bestDistance = kEdgeGrip + 1;
    auto consider = [&](int c) {
        if (ColPx(c) == 0) return; // hidden: its edge belongs to the column left of it
        const int distance = std::abs(pos.x() - (ColX(c) + ColPx(c)));
        if (distance < bestDistance) {
            best = c;
            bestDistance = distance;
        }
    };
    for (int c = 0; c < still; ++c) consider(c);
    for (int c = LeftCol(); c < grid_->Cols() && ColX(c) < viewport()->width(); ++c)
        if (ColX(c) + ColPx(c) > StillWidth()) consider(c);
    return best;
}

void FlexGridWidget::ResizeColumnTo(int x) {
    const int pixels = std::max(kNarrowestColumn, x + grabOffset_ - ColX(resizingCol_));
    grid_->SetColWidth(resizingCol_, PixelsToTwips(pixels));
}

void FlexGridWidget::mousePressEvent(QMouseEvent* event) {
    setFocus(Qt::MouseFocusReason);
    pressRow_ = -1;
    if (!grid_) return;
    const QPoint pos = event->position().toPoint();
    int row = 0, col = 0;
    const bool onCell = CellAt(pos, row, col);
    if (event->button() == Qt::RightButton) {
        // The menu acts on the selection: a click outside it selects the cell first.
        if (onCell && !Selection().Contains(row, col)) SelectBlock(row, col, row, col);
        return;
    }
    if (event->button() != Qt::LeftButton) return;
    resizingCol_ = ResizableColumnAt(pos);
    if (resizingCol_ >= 0) {
        grabOffset_ = ColX(resizingCol_) + ColPx(resizingCol_) - pos.x();
        return;
    }
    if (!onCell) return;
    if (event->modifiers() & Qt::ShiftModifier) {
        ExtendSelection(row, col); // a selecting gesture: no click for the window
        return;
    }
    SelectBlock(row, col, row, col);
    selecting_ = true;
    pressRow_ = row;
    pressCol_ = col;
}

void FlexGridWidget::mouseMoveEvent(QMouseEvent* event) {
    if (!grid_) return;
    const QPoint pos = event->position().toPoint();
    if (resizingCol_ >= 0) {
        ResizeColumnTo(pos.x());
        return;
    }
    if (!selecting_ || !(event->buttons() & Qt::LeftButton)) {
        viewport()->setCursor(ResizableColumnAt(pos) >= 0 ? Qt::SplitHCursor : Qt::ArrowCursor);
        return;
    }
    // Past the edge the grid scrolls on by a row or column per move, as a spreadsheet does.
    const QRect inside = viewport()->rect().adjusted(0, 0, -1, -1);
    const QPoint clamped(std::clamp(pos.x(), 0, inside.right()), std::clamp(pos.y(), 0, inside.bottom()));
    int row = endRow_, col = endCol_;
    if (!CellAt(clamped, row, col)) {
        row = endRow_;
        col = endCol_;
    }
    if (pos.x() > inside.right()) col = std::min(endCol_ + 1, grid_->Cols() - 1);
    if (pos.y() > inside.bottom()) row = std::min(endRow_ + 1, grid_->Rows() - 1);
    if (row != endRow_ || col != endCol_) ExtendSelection(row, col);
}

void FlexGridWidget::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    selecting_ = false;
    if (resizingCol_ >= 0) {
        resizingCol_ = -1;
        return;
    }
    if (swallowRelease_) {
        swallowRelease_ = false; // the release that ends a double click
        return;
    }
    const int row = pressRow_, col = pressCol_;
    pressRow_ = -1;
    if (row >= 0 && CellClicked) CellClicked(row, col);
}

void FlexGridWidget::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    const QPoint pos = event->position().toPoint();
    int row = 0, col = 0;
    if (ResizableColumnAt(pos) >= 0 || !CellAt(pos, row, col)) return;
    swallowRelease_ = true;
    if (CellDoubleClicked) CellDoubleClicked(row, col);
}

void FlexGridWidget::keyPressEvent(QKeyEvent* event) {
    if (grid_ && event->matches(QKeySequence::Copy)) {
        CopySelection();
        return;
    }
    if (grid_ && event->matches(QKeySequence::SelectAll)) {
        SelectAll();
        return;
    }
    if (!grid_ || grid_->Rows() <= grid_->FixedRows() || grid_->Cols() <= grid_->FixedCols()) {
        QAbstractScrollArea::keyPressEvent(event);
        return;
    }
    // Shift moves the selection's far end; without it the current cell moves and the selection
    // shrinks back to it.
    const bool extend = event->modifiers() & Qt::ShiftModifier;
    const int page = std::max(1, verticalScrollBar()->pageStep());
    int row = extend && selected_ ? endRow_ : grid_->Row();
    int col = extend && selected_ ? endCol_ : grid_->Col();
    switch (event->key()) {
    case Qt::Key_Up:
        --row;
        break;
    case Qt::Key_Down:
        ++row;
        break;
    case Qt::Key_Left:
        --col;
        break;
    case Qt::Key_Right:
        ++col;
        break;
    case Qt::Key_PageUp:
        row -= page;
        break;
    case Qt::Key_PageDown:
        row += page;
        break;
    case Qt::Key_Home:
        col = grid_->FixedCols();
        grid_->SetLeftCol(grid_->StillCols()); // back to the start, also when col 0 is frozen
        break;
    case Qt::Key_End:
        col = grid_->Cols() - 1;
        break;
    default:
        QAbstractScrollArea::keyPressEvent(event);
        return;
    }
    if (extend) {
        ExtendSelection(std::max(row, grid_->FixedRows()), std::max(col, grid_->FixedCols()));
        return;
    }
    selected_ = false;
    MoveCurrentCell(row, col);
}

void FlexGridWidget::MoveCurrentCell(int row, int col) {
    FlexGrid& g = *grid_;
    row = std::clamp(row, g.FixedRows(), g.Rows() - 1);
    col = std::clamp(col, g.FixedCols(), g.Cols() - 1);
    g.SetRow(row);
    g.SetCol(col);
    ScrollToShow(row, col);
}

// Scrolls just far enough that the cell shows whole; fixed and frozen ones always show.
void FlexGridWidget::ScrollToShow(int row, int col) {
    FlexGrid& g = *grid_;
    if (row >= g.FixedRows()) {
        if (row < TopRow()) g.SetTopRow(row);
        while (TopRow() < row && RowY(row) + RowPx(row) > viewport()->height()) g.SetTopRow(TopRow() + 1);
    }
    if (col >= g.StillCols()) {
        if (col < LeftCol()) g.SetLeftCol(col);
        while (LeftCol() < col && ColX(col) + ColPx(col) > viewport()->width()) g.SetLeftCol(LeftCol() + 1);
    }
    SyncScrollBars();
    viewport()->update();
}

} // namespace quillon
