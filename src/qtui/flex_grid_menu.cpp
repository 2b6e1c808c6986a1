// The grid view's context menu and clipboard: 复制, 全选, 冻结到此列 / 取消冻结, 打印预览….
#include <QAction>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QMenu>
#include <QMimeData>

#include "controls/flex_grid.h"
#include "controls/grid_clip.h"
#include "qtui/flex_grid_widget.h"
#include "qtui/qt_convert.h"

namespace quillon {

void FlexGridWidget::MakeActions() {
    auto make = [this](const char* name, const char* text) {
        auto* action = new QAction(QString::fromUtf8(text), this);
        action->setObjectName(QString::fromUtf8(name));
        return action;
    };
    // The keys are the view's own (keyPressEvent); the menu only names them.
    copyAction_ = make("Copy", "复制\tCtrl+C");
    selectAllAction_ = make("SelectAll", "全选\tCtrl+A");
    freezeAction_ = make("FreezeColumns", "冻结到此列");
    unfreezeAction_ = make("Unfreeze", "取消冻结");
    printAction_ = make("PrintPreview", "打印预览…\tCtrl+P");
    for (QAction*& separator : separators_) {
        separator = new QAction(this);
        separator->setSeparator(true);
    }
    connect(copyAction_, &QAction::triggered, this, [this] { CopySelection(); });
    connect(selectAllAction_, &QAction::triggered, this, [this] { SelectAll(); });
    connect(freezeAction_, &QAction::triggered, this, [this] {
        if (grid_ && menuCol_ >= 0) grid_->SetFrozenCols(menuCol_ + 1);
    });
    connect(unfreezeAction_, &QAction::triggered, this, [this] {
        if (grid_) grid_->SetFrozenCols(0);
    });
    connect(printAction_, &QAction::triggered, this, [this] {
        if (PrintPreviewRequested) PrintPreviewRequested();
    });
}

QList<QAction*> FlexGridWidget::PrepareContextMenu(const QPoint& pos) {
    int row = -1;
    menuCol_ = -1;
    if (grid_) CellAt(pos, row, menuCol_);
    const bool hasCells = grid_ && grid_->Rows() > 0 && grid_->Cols() > 0;
    copyAction_->setEnabled(hasCells);
    selectAllAction_->setEnabled(hasCells);
    // Fixed columns stay put already, and the last column must be left to scroll.
    freezeAction_->setEnabled(grid_ && menuCol_ >= grid_->FixedCols() && menuCol_ < grid_->Cols() - 1);
    unfreezeAction_->setEnabled(grid_ && grid_->FrozenCols() > 0);
    QList<QAction*> actions{copyAction_, selectAllAction_, separators_[0], freezeAction_, unfreezeAction_};
    if (PrintPreviewRequested) actions << separators_[1] << printAction_;
    return actions;
}

void FlexGridWidget::contextMenuEvent(QContextMenuEvent* event) {
    // From the keyboard the menu opens at the current cell.
    const QPoint pos = event->reason() == QContextMenuEvent::Mouse
                           ? event->pos()
                           : (grid_ ? CellRect(grid_->Row(), grid_->Col()).center() : QPoint());
    QMenu menu(this);
    menu.addActions(PrepareContextMenu(pos));
    menu.exec(event->reason() == QContextMenuEvent::Mouse ? event->globalPos()
                                                          : viewport()->mapToGlobal(pos));
}

void FlexGridWidget::CopySelection() const {
    if (!grid_) return;
    const CellRange block = Selection();
    auto* cells = new QMimeData;
    cells->setText(ToQString(GridBlockText(*grid_, block)));
    cells->setHtml(ToQString(GridBlockHtml(*grid_, block)));
    QGuiApplication::clipboard()->setMimeData(cells);
}

} // namespace quillon
