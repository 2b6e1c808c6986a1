// The tree with check boxes. A window fills it node by node, so the widget follows the model
// once per pass of the event loop rather than once per node.
#include <QHash>
#include <QHeaderView>
#include <QSignalBlocker>
#include <QTimer>
#include <QTreeWidget>

#include "controls/tree_view.h"
#include "qtui/binding_kinds.h"
#include "qtui/qt_convert.h"
#include "qtui/user_action.h"

namespace quillon {
namespace {

class TreeViewBinding : public ControlBinding {
public:
    TreeViewBinding(TreeView& tree, QTreeWidget* widget) : ControlBinding(tree, widget), widget_(widget) {
        widget->setHeaderHidden(true);
        widget->setColumnCount(1);
        widget->setUniformRowHeights(true);
        QObject::connect(widget, &QTreeWidget::itemChanged, this, [this](QTreeWidgetItem* item, int) {
            TreeNode* node = NodeOf(item);
            if (!node) return;
            const bool on = item->checkState(0) == Qt::Checked;
            if (on == node->Checked()) return;
            auto* m = ModelAs<TreeView>();
            RunUserAction([m, node, on] { m->UserCheck(*node, on); });
            if (Model()) Sync();
        });
        QObject::connect(widget, &QTreeWidget::itemExpanded, this, [this](QTreeWidgetItem* item) {
            if (TreeNode* node = NodeOf(item)) node->SetExpanded(true);
        });
        QObject::connect(widget, &QTreeWidget::itemCollapsed, this, [this](QTreeWidgetItem* item) {
            if (TreeNode* node = NodeOf(item)) node->SetExpanded(false);
        });
    }

    // Brings the widget in line now: rebuilt when nodes came or went, else updated in place.
    void Sync() {
        pending_ = false;
        const TreeView* m = ModelAs<TreeView>();
        if (!m) return;
        QSignalBlocker block(widget_);
        if (!SameNodes(*m)) Rebuild(*m);
        for (TreeNode& node : m->Nodes()) {
            QTreeWidgetItem* item = items_.value(&node);
            item->setText(0, ToQString(node.Text()));
            if (m->Checkboxes())
                item->setCheckState(0, node.Checked() ? Qt::Checked : Qt::Unchecked);
            else
                item->setData(0, Qt::CheckStateRole, QVariant());
            item->setExpanded(node.Expanded());
        }
    }

protected:
    void Refresh(Aspect what) override {
        if (what != Aspect::Nodes && what != Aspect::Appearance) return;
        if (pending_) return;
        pending_ = true;
        QTimer::singleShot(0, this, [this] { Sync(); });
    }

private:
    // A node of the current model, or nullptr while the widget lags behind it.
    TreeNode* NodeOf(QTreeWidgetItem* item) const {
        if (!Model() || pending_) return nullptr;
        return nodes_.value(item, nullptr);
    }

    bool SameNodes(const TreeView& m) const {
        if (items_.size() != m.Count()) return false;
        for (TreeNode& node : m.Nodes()) {
            QTreeWidgetItem* item = items_.value(&node, nullptr);
            if (!item) return false;
            QTreeWidgetItem* parent = item->parent();
            if ((parent ? nodes_.value(parent, nullptr) : nullptr) != node.Parent()) return false;
        }
        return true;
    }

    void Rebuild(const TreeView& m) {
        widget_->clear();
        items_.clear();
        nodes_.clear();
        for (TreeNode* root : m.Roots()) AddNode(root, nullptr);
    }

    void AddNode(TreeNode* node, QTreeWidgetItem* parent) {
        auto* item = parent ? new QTreeWidgetItem(parent) : new QTreeWidgetItem(widget_);
        item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
        items_.insert(node, item);
        nodes_.insert(item, node);
        for (TreeNode* child : node->ChildNodes()) AddNode(child, item);
    }

    QTreeWidget* widget_;
    QHash<const TreeNode*, QTreeWidgetItem*> items_;
    QHash<const QTreeWidgetItem*, TreeNode*> nodes_;
    bool pending_ = false;
};

} // namespace

std::unique_ptr<ControlBinding> BindTreeView(TreeView& tree, QWidget* parent) {
    auto binding = std::make_unique<TreeViewBinding>(tree, new QTreeWidget(parent));
    binding->RefreshAll();
    binding->Sync();
    return binding;
}

} // namespace quillon
