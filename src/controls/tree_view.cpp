#include "controls/tree_view.h"

#include <algorithm>
#include <utility>

#include "base/vb_error.h"

namespace quillon {

void TreeNode::SetText(std::string text) {
    tree_->Assign(text_, std::move(text), Aspect::Nodes);
}

void TreeNode::SetChecked(bool on) {
    if (checked_ == on) return;
    checked_ = on;
    tree_->Notify(Aspect::Nodes);
}

void TreeNode::SetExpanded(bool on) {
    if (expanded_ == on) return;
    expanded_ = on;
    tree_->Notify(Aspect::Nodes);
}

const std::vector<TreeNode*>& TreeNode::Siblings() const {
    return parent_ ? parent_->children_ : tree_->roots_;
}

TreeNode* TreeNode::FirstSibling() const {
    return Siblings().front();
}

TreeNode* TreeNode::LastSibling() const {
    return Siblings().back();
}

TreeNode* TreeNode::Next() const {
    const auto& siblings = Siblings();
    auto it = std::find(siblings.begin(), siblings.end(), this);
    return it + 1 == siblings.end() ? nullptr : *(it + 1);
}

TreeNode* TreeNode::Previous() const {
    const auto& siblings = Siblings();
    auto it = std::find(siblings.begin(), siblings.end(), this);
    return it == siblings.begin() ? nullptr : *(it - 1);
}

TreeView::TreeView(std::string name) : Control(std::move(name)) {}

TreeNode& TreeView::Add(std::string_view relative, int relationship, std::string key, std::string text,
                        int image) {
    TreeNode* rel = nullptr;
    if (!relative.empty()) {
        rel = Find(relative);
        if (!rel) throw VbError(kErrElementNotFound, "找不到元素");
        if (relationship < tvwFirst || relationship > tvwChild)
            throw VbError(kErrInvalidProcCall, "无效的过程调用或参数");
    }
    if (!key.empty() && byKey_.contains(key)) throw VbError(kErrKeyNotUnique, "关键字不唯一");

    auto owned =
        std::unique_ptr<TreeNode>(new TreeNode(*this, std::move(key), std::move(text), image, Count() + 1));
    TreeNode* node = owned.get();
    if (!rel) {
        roots_.push_back(node);
    } else if (relationship == tvwChild) {
        node->parent_ = rel;
        rel->children_.push_back(node);
    } else {
        node->parent_ = rel->parent_;
        auto& siblings = rel->parent_ ? rel->parent_->children_ : roots_;
        auto at = std::find(siblings.begin(), siblings.end(), rel);
        switch (relationship) {
        case tvwFirst:
            at = siblings.begin();
            break;
        case tvwLast:
            at = siblings.end();
            break;
        case tvwNext:
            ++at;
            break;
        default:
            break; // tvwPrevious: in front of the relative
        }
        siblings.insert(at, node);
    }
    if (!node->key_.empty()) byKey_.emplace(node->key_, node);
    nodes_.push_back(std::move(owned));
    Notify(Aspect::Nodes);
    return *node;
}

void TreeView::Clear() {
    roots_.clear();
    byKey_.clear();
    nodes_.clear();
    Notify(Aspect::Nodes);
}

TreeNode& TreeView::Nodes(int index) const {
    if (index < 1 || index > Count()) throw VbError(kErrIndexOutOfBounds, "索引超出范围");
    return *nodes_[index - 1];
}

TreeNode& TreeView::Nodes(std::string_view key) const {
    TreeNode* node = Find(key);
    if (!node) throw VbError(kErrElementNotFound, "找不到元素");
    return *node;
}

TreeNode* TreeView::Find(std::string_view key) const {
    if (key.empty()) return nullptr;
    auto it = byKey_.find(std::string(key));
    return it == byKey_.end() ? nullptr : it->second;
}

void TreeView::SetCheckboxes(bool on) {
    if (checkboxes_ == on) return;
    checkboxes_ = on;
    Notify(Aspect::Appearance);
}

void TreeView::UserCheck(TreeNode& node, bool on) {
    node.SetChecked(on);
    NodeCheck.Raise(node);
}

} // namespace quillon
