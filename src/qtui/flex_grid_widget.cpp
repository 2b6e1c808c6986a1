#include "qtui/flex_grid_widget.h"

#include <QPainter>
#include <QPointer>
#include <QScrollBar>

#include <algorithm>
#include <vector>

#include "controls/flex_grid.h"
#include "qtui/binding_kinds.h"
#include "qtui/qt_convert.h"
#include "qtui/user_action.h"

namespace quillon {
namespace {

constexpr std::uint32_t kColorAppWorkspace = 0x8000000C; // behind the last row and column
const QColor kGridLine(0xC0, 0xC0, 0xC0);
const QColor kFixedShadow(0x80, 0x80, 0x80);
const QColor kFixedLight(0xFF, 0xFF, 0xFF);

Qt::Alignment QtAlignment(int alignment) {
    Qt::Alignment horizontal = alignment / 3 == 0   ? Qt::AlignLeft
                               : alignment / 3 == 1 ? Qt::AlignHCenter
                                                    : Qt::AlignRight;
    Qt::Alignment vertical = alignment % 3 == 0   ? Qt::AlignTop
                             : alignment % 3 == 1 ? Qt::AlignVCenter
                                                  : Qt::AlignBottom;
    return horizontal | vertical;
}

// Rows (or columns) of one section on screen: the fixed ones, or the scrolling ones from
// TopRow (LeftCol) to the last one that shows, with the band of the viewport they own.
struct Section {
    int first = 0;
    int last = -1;
    int bandStart = 0;
    int bandEnd = 0;
    bool fixed = false;
};

} // namespace

FlexGridWidget::FlexGridWidget(QWidget* parent) : QAbstractScrollArea(parent) {
    setFocusPolicy(Qt::StrongFocus);
    setFrameShape(QFrame::StyledPanel);
    verticalScrollBar()->setSingleStep(1);
    horizontalScrollBar()->setSingleStep(1);
    viewport()->setAutoFillBackground(false);
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent); // paintEvent covers every pixel itself
    viewport()->setMouseTracking(true);                // the resize cursor over a column's edge
    MakeActions();
}

void FlexGridWidget::SetGrid(FlexGrid* grid) {
    grid_ = grid;
    selected_ = false;
    shapeRows_ = grid ? grid->Rows() : -1;
    shapeCols_ = grid ? grid->Cols() : -1;
    UpdateScrollBars();
    viewport()->update();
}

void FlexGridWidget::ModelChanged(Aspect what) {
    if (!grid_) return;
    if (grid_->Rows() != shapeRows_ || grid_->Cols() != shapeCols_) {
        selected_ = false; // a new result: the old selection means nothing in it
        shapeRows_ = grid_->Rows();
        shapeCols_ = grid_->Cols();
    }
    if (what == Aspect::Layout || what == Aspect::Redraw) UpdateScrollBars();
    if (what == Aspect::CurrentCell) SyncScrollBars();
    viewport()->update();
}

// --- geometry

int FlexGridWidget::RowPx(int row) const {
    return TwipsToPixels(grid_->RowHeight(row));
}
int FlexGridWidget::ColPx(int col) const {
    return TwipsToPixels(grid_->ColWidth(col));
}

int FlexGridWidget::FixedHeight() const {
    int h = 0;
    for (int r = 0; r < grid_->FixedRows(); ++r) h += RowPx(r);
    return h;
}

int FlexGridWidget::StillWidth() const {
    int w = 0;
    for (int c = 0; c < grid_->StillCols(); ++c) w += ColPx(c);
    return w;
}

int FlexGridWidget::TopRow() const {
    return std::clamp(grid_->TopRow(), grid_->FixedRows(), std::max(grid_->Rows() - 1, grid_->FixedRows()));
}

int FlexGridWidget::LeftCol() const {
    return grid_->LeftCol(); // the model keeps it right of the fixed and frozen columns
}

int FlexGridWidget::RowY(int row) const {
    int y = 0;
    if (row < grid_->FixedRows()) {
        for (int r = 0; r < row; ++r) y += RowPx(r);
        return y;
    }
    y = FixedHeight();
    const int top = TopRow();
    for (int r = top; r < row; ++r) y += RowPx(r);
    for (int r = row; r < top; ++r) y -= RowPx(r); // a block that starts above the screen
    return y;
}

int FlexGridWidget::ColX(int col) const {
    int x = 0;
    if (col < grid_->StillCols()) {
        for (int c = 0; c < col; ++c) x += ColPx(c);
        return x;
    }
    x = StillWidth();
    const int left = LeftCol();
    for (int c = left; c < col; ++c) x += ColPx(c);
    for (int c = col; c < left; ++c) x -= ColPx(c);
    return x;
}

QRect FlexGridWidget::CellRect(int row, int col) const {
    if (!grid_) return {};
    return QRect(ColX(col), RowY(row), ColPx(col), RowPx(row));
}

QRect FlexGridWidget::RangeRect(const CellRange& range) const {
    const int x = ColX(range.col1);
    const int y = RowY(range.row1);
    return QRect(x, y, ColX(range.col2) + ColPx(range.col2) - x, RowY(range.row2) + RowPx(range.row2) - y);
}

// The last top row that still fills the screen: the scroll bar ends there.
int FlexGridWidget::MaxTopRow() const {
    const int fixedRows = grid_->FixedRows();
    if (grid_->Rows() <= fixedRows) return fixedRows;
    const int room = viewport()->height() - FixedHeight();
    int row = grid_->Rows() - 1;
    int used = RowPx(row);
    while (row - 1 >= fixedRows && used + RowPx(row - 1) <= room) used += RowPx(--row);
    return row;
}

int FlexGridWidget::MaxLeftCol() const {
    const int fixedCols = grid_->StillCols();
    if (grid_->Cols() <= fixedCols) return fixedCols;
    const int room = viewport()->width() - StillWidth();
    int col = grid_->Cols() - 1;
    int used = ColPx(col);
    while (col - 1 >= fixedCols && used + ColPx(col - 1) <= room) used += ColPx(--col);
    return col;
}

bool FlexGridWidget::CellAt(const QPoint& pos, int& row, int& col) const {
    if (!grid_ || pos.x() < 0 || pos.y() < 0) return false;
    auto find = [](int at, int fixedCount, int first, int count, auto size) {
        int edge = 0;
        for (int i = 0; i < fixedCount; ++i) {
            edge += size(i);
            if (at < edge) return i;
        }
        for (int i = first; i < count; ++i) {
            edge += size(i);
            if (at < edge) return i;
        }
        return -1;
    };
    row = find(pos.y(), grid_->FixedRows(), TopRow(), grid_->Rows(), [this](int r) { return RowPx(r); });
    col = find(pos.x(), grid_->StillCols(), LeftCol(), grid_->Cols(), [this](int c) { return ColPx(c); });
    return row >= 0 && col >= 0;
}

// --- scrolling: by whole rows and columns, as the old grid scrolled

// The bars' signals stay live, since the area shows or hides a bar on its range; while the
// view itself moves them, their moves are not handed back to the model.
void FlexGridWidget::UpdateScrollBars() {
    syncing_ = true;
    if (!grid_) {
        verticalScrollBar()->setRange(0, 0);
        horizontalScrollBar()->setRange(0, 0);
        syncing_ = false;
        return;
    }
    const int maxTop = MaxTopRow();
    const int maxLeft = MaxLeftCol();
    verticalScrollBar()->setRange(0, maxTop - grid_->FixedRows());
    verticalScrollBar()->setPageStep(std::max(1, grid_->Rows() - maxTop));
    horizontalScrollBar()->setRange(0, maxLeft - grid_->StillCols());
    horizontalScrollBar()->setPageStep(std::max(1, grid_->Cols() - maxLeft));
    syncing_ = false;
    SyncScrollBars();
}

void FlexGridWidget::SyncScrollBars() {
    if (!grid_) return;
    syncing_ = true;
    verticalScrollBar()->setValue(TopRow() - grid_->FixedRows());
    horizontalScrollBar()->setValue(LeftCol() - grid_->StillCols());
    syncing_ = false;
}

void FlexGridWidget::scrollContentsBy(int, int) {
    if (!grid_ || syncing_) return;
    grid_->SetTopRow(grid_->FixedRows() + verticalScrollBar()->value());
    grid_->SetLeftCol(grid_->StillCols() + horizontalScrollBar()->value());
    viewport()->update();
}

void FlexGridWidget::resizeEvent(QResizeEvent* event) {
    QAbstractScrollArea::resizeEvent(event);
    if (grid_) UpdateScrollBars();
}

// --- painting

void FlexGridWidget::paintEvent(QPaintEvent*) {
    QPainter painter(viewport());
    const QRect area = viewport()->rect();
    lastPaintedRows_ = 0;
    if (!grid_) return painter.fillRect(area, ColorFromBgr(kColorAppWorkspace));
    const FlexGrid& g = *grid_;
    const int fixedHeight = FixedHeight();
    const int stillWidth = StillWidth();
    const int stillCols = g.StillCols();

    Section rowSections[2] = {{0, g.FixedRows() - 1, 0, fixedHeight, true},
                              {TopRow(), TopRow() - 1, fixedHeight, area.height(), false}};
    Section colSections[2] = {{0, stillCols - 1, 0, stillWidth, true},
                              {LeftCol(), LeftCol() - 1, stillWidth, area.width(), false}};
    // Where the cells end: the workspace colour shows right of the last column and below the
    // last row.
    int cellsBottom = std::min(fixedHeight, area.height());
    int cellsRight = std::min(stillWidth, area.width());
    if (g.Rows() > g.FixedRows())
        for (int r = TopRow(); r < g.Rows() && cellsBottom < area.height(); cellsBottom += RowPx(r++))
            rowSections[1].last = r;
    if (g.Cols() > stillCols)
        for (int c = LeftCol(); c < g.Cols() && cellsRight < area.width(); cellsRight += ColPx(c++))
            colSections[1].last = c;
    const QColor workspace = ColorFromBgr(kColorAppWorkspace);
    painter.fillRect(QRect(cellsRight, 0, area.width() - cellsRight, area.height()), workspace);
    painter.fillRect(QRect(0, cellsBottom, cellsRight, area.height() - cellsBottom), workspace);
    const CellRange selection = Selection();
    const bool showSelection = selected_ && !selection.IsSingleCell();
    QColor selectionTint = palette().color(QPalette::Highlight);
    selectionTint.setAlpha(70);

    for (const Section& rows : rowSections) {
        if (rows.first > rows.last) continue;
        lastPaintedRows_ += rows.last - rows.first + 1;
        std::vector<int> rowY, rowH;
        for (int r = rows.first, y = rows.bandStart; r <= rows.last; y += RowPx(r++)) {
            rowY.push_back(y);
            rowH.push_back(RowPx(r));
        }
        // Merged blocks are painted whole, once per column section they reach into; their cells
        // are skipped one by one.
        std::vector<CellRange> blocks;
        if (g.MergeCells() != flexMergeNever) blocks = g.MergedRanges(rows.first, rows.last);
        const int cols = g.Cols();
        std::vector<char> covered(static_cast<std::size_t>(rows.last - rows.first + 1) * cols, 0);
        for (const CellRange& b : blocks)
            for (int r = std::max(b.row1, rows.first); r <= std::min(b.row2, rows.last); ++r)
                for (int c = b.col1; c <= b.col2; ++c)
                    covered[static_cast<std::size_t>(r - rows.first) * cols + c] = 1;

        for (const Section& columns : colSections) {
            if (columns.first > columns.last) continue;
            const QRect band(columns.bandStart, rows.bandStart, columns.bandEnd - columns.bandStart,
                             rows.bandEnd - rows.bandStart);
            painter.setClipRect(band.intersected(area));
            std::vector<CellBox> boxes;
            for (int r = rows.first; r <= rows.last; ++r) {
                const int h = rowH[r - rows.first];
                if (h == 0) continue;
                const int y = rowY[r - rows.first];
                for (int c = columns.first, x = ColX(columns.first); c <= columns.last; x += ColPx(c), ++c) {
                    const int w = ColPx(c);
                    if (w == 0 || covered[static_cast<std::size_t>(r - rows.first) * cols + c]) continue;
                    boxes.push_back({QRect(x, y, w, h), r, c});
                }
            }
            PaintCells(painter, boxes);
            // A block the freeze edge cuts shows its text on both sides, as a split pane does.
            for (const CellRange& b : blocks) {
                CellRange part = b;
                if (columns.fixed) {
                    part.col2 = std::min(b.col2, stillCols - 1);
                } else {
                    part.col1 = std::max(b.col1, stillCols);
                    if (b.col2 < columns.first) continue;
                }
                if (part.col1 > part.col2 || part.col1 > columns.last) continue;
                const QRect rect = RangeRect(part);
                if (rect.width() > 0 && rect.height() > 0) PaintCells(painter, {{rect, b.row1, b.col1}});
            }
            if (showSelection) {
                const CellRange shown{
                    std::max(selection.row1, rows.first), std::max(selection.col1, columns.first),
                    std::min(selection.row2, rows.last), std::min(selection.col2, columns.last)};
                if (shown.row1 <= shown.row2 && shown.col1 <= shown.col2)
                    painter.fillRect(RangeRect(shown), selectionTint);
            }
        }
    }

    // The current cell's focus mark, clipped to the part of the scrolling rows it stands in.
    if (hasFocus() && !g.IsFixedCell(g.Row(), g.Col())) {
        const bool inStill = g.Col() < stillCols;
        painter.setClipRect(
            inStill ? QRect(0, fixedHeight, stillWidth, area.height() - fixedHeight)
                    : QRect(stillWidth, fixedHeight, area.width() - stillWidth, area.height() - fixedHeight));
        QRect rect = RangeRect(g.MergedRangeAt(g.Row(), g.Col()));
        painter.setPen(QPen(Qt::black, 1, Qt::DotLine));
        painter.drawRect(rect.adjusted(1, 1, -3, -3));
    }
}

// A screen holds some thousand cells: they are painted in three sweeps, each in as few calls
// as the cells allow — backgrounds by runs of one colour along a row, the lines of each pen in
// one call, then the texts. Cells never overlap, so the order between them changes no pixel.
void FlexGridWidget::PaintCells(QPainter& painter, const std::vector<CellBox>& boxes) const {
    const FlexGrid& g = *grid_;
    for (std::size_t i = 0; i < boxes.size();) {
        const std::uint32_t color = g.BackColorAt(boxes[i].row, boxes[i].col);
        QRect run = boxes[i].rect;
        std::size_t j = i + 1;
        for (; j < boxes.size() && boxes[j].row == boxes[i].row && boxes[j].rect.left() == run.right() + 1 &&
               boxes[j].rect.top() == run.top() && boxes[j].rect.height() == run.height() &&
               g.BackColorAt(boxes[j].row, boxes[j].col) == color;
             ++j)
            run.setRight(boxes[j].rect.right());
        painter.fillRect(run, ColorFromBgr(color));
        i = j;
    }

    QVector<QLine> light, shadow, plain;
    for (const CellBox& box : boxes) {
        const QRect& rect = box.rect;
        const bool fixed = g.IsFixedCell(box.row, box.col);
        if (fixed) {
            light.append(QLine(rect.left(), rect.top(), rect.right() - 1, rect.top()));
            light.append(QLine(rect.left(), rect.top(), rect.left(), rect.bottom() - 1));
        }
        QVector<QLine>& edges = fixed ? shadow : plain;
        edges.append(QLine(rect.right(), rect.top(), rect.right(), rect.bottom()));
        edges.append(QLine(rect.left(), rect.bottom(), rect.right(), rect.bottom()));
    }
    const std::pair<const QColor*, const QVector<QLine>*> pens[] = {
        {&kFixedLight, &light}, {&kFixedShadow, &shadow}, {&kGridLine, &plain}};
    for (const auto& [color, lines] : pens) {
        if (lines->isEmpty()) continue;
        painter.setPen(*color);
        painter.drawLines(*lines);
    }

    std::uint32_t pen = 0;
    bool penSet = false;
    for (const CellBox& box : boxes) {
        const std::string& cell = g.TextMatrix(box.row, box.col);
        if (cell.empty()) continue;
        const int alignment = ResolveGeneralAlignment(g.AlignmentAt(box.row, box.col), cell);
        const int flags = QtAlignment(alignment) | (g.WordWrap() ? Qt::TextWordWrap : Qt::TextSingleLine);
        const std::uint32_t fore = g.ForeColorAt(box.row, box.col);
        if (!penSet || fore != pen) {
            painter.setPen(ColorFromBgr(fore));
            pen = fore;
            penSet = true;
        }
        textCache_.DrawOn(painter, box.rect.adjusted(3, 1, -4, -2), flags, ToQString(cell),
                          ColorFromBgr(g.BackColorAt(box.row, box.col))); // clipped to the cell
    }
}

// --- the binding

namespace {

class FlexGridBinding : public ControlBinding {
public:
    FlexGridBinding(FlexGrid& grid, FlexGridWidget* widget) : ControlBinding(grid, widget), widget_(widget) {
        widget->SetGrid(&grid);
        widget->CellClicked = [this](int row, int col) {
            if (auto* m = ModelAs<FlexGrid>()) RunUserAction([m, row, col] { m->ClickCell(row, col); });
        };
        widget->CellDoubleClicked = [this](int row, int col) {
            if (auto* m = ModelAs<FlexGrid>()) RunUserAction([m, row, col] { m->DblClickCell(row, col); });
        };
    }
    ~FlexGridBinding() override { Detach(); }

protected:
    void Refresh(Aspect what) override { widget_->ModelChanged(what); }
    void OnDetach() override {
        if (!widget_) return;
        widget_->SetGrid(nullptr);
        widget_->CellClicked = nullptr;
        widget_->CellDoubleClicked = nullptr;
        widget_->PrintPreviewRequested = nullptr;
    }

private:
    QPointer<FlexGridWidget> widget_;
};

} // namespace

std::unique_ptr<ControlBinding> BindFlexGrid(FlexGrid& grid, QWidget* parent) {
    auto binding = std::make_unique<FlexGridBinding>(grid, new FlexGridWidget(parent));
    binding->RefreshAll();
    return binding;
}

} // namespace quillon
