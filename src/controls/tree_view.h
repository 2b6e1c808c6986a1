// tree_view.h — controls layer: headless tree with check boxes. Nodes keep their Index in adding
// order (not tree order); writing Checked from code is silent, only a user's tick raises NodeCheck.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "controls/control.h"

namespace quillon {

// Where Add puts a node, relative to another one.
inline constexpr int tvwFirst = 0;    // first among the relative's siblings
inline constexpr int tvwLast = 1;     // last among the relative's siblings
inline constexpr int tvwNext = 2;     // right behind the relative
inline constexpr int tvwPrevious = 3; // right in front of the relative
inline constexpr int tvwChild = 4;    // last child of the relative

class TreeView;

class TreeNode {
public:
    TreeNode(const TreeNode&) = delete;
    TreeNode& operator=(const TreeNode&) = delete;

    const std::string& Key() const { return key_; }
    const std::string& Text() const { return text_; }
    void SetText(std::string text);
    int Image() const { return image_; }
    int Index() const { return index_; } // 1-based, in the order the nodes were added

    bool Checked() const { return checked_; }
    void SetChecked(bool on); // raises no NodeCheck, whatever the node's place
    bool Expanded() const { return expanded_; }
    void SetExpanded(bool on);

    int Children() const { return static_cast<int>(children_.size()); }
    // Relatives; nullptr where the old tree answered Nothing.
    TreeNode* Child() const { return children_.empty() ? nullptr : children_.front(); }
    const std::vector<TreeNode*>& ChildNodes() const { return children_; } // in tree order
    TreeNode* Parent() const { return parent_; }
    TreeNode* FirstSibling() const;
    TreeNode* LastSibling() const;
    TreeNode* Next() const;
    TreeNode* Previous() const;

private:
    friend class TreeView;
    TreeNode(TreeView& tree, std::string key, std::string text, int image, int index)
        : tree_(&tree), key_(std::move(key)), text_(std::move(text)), image_(image), index_(index) {}
    const std::vector<TreeNode*>& Siblings() const;

    TreeView* tree_;
    std::string key_;
    std::string text_;
    int image_;
    int index_;
    bool checked_ = false;
    bool expanded_ = false;
    TreeNode* parent_ = nullptr;
    std::vector<TreeNode*> children_;
};

class TreeView : public Control {
public:
    explicit TreeView(std::string name = {});

    // Adds a node. An empty relative puts it last among the roots, whatever the relationship;
    // otherwise the relative is a key and the relationship one of tvwFirst … tvwChild.
    // Errors: 35601 for an unknown relative, 35602 "关键字不唯一" for a key already used
    // (an empty key is no key and may repeat), 5 for another relationship number.
    TreeNode& Add(std::string_view relative, int relationship, std::string key, std::string text,
                  int image = 0);
    void Clear();

    int Count() const { return static_cast<int>(nodes_.size()); }
    // Nodes(i) by 1-based index (error 35600 outside), Nodes(key) by key (error 35601).
    TreeNode& Nodes(int index) const;
    TreeNode& Nodes(std::string_view key) const;
    TreeNode* Find(std::string_view key) const; // nullptr when no node has the key

    // All nodes in Index order, for range-for.
    class NodeRange {
    public:
        using Iter = std::vector<std::unique_ptr<TreeNode>>::const_iterator;
        struct iterator {
            Iter it;
            TreeNode& operator*() const { return **it; }
            iterator& operator++() {
                ++it;
                return *this;
            }
            bool operator!=(const iterator& other) const { return it != other.it; }
        };
        iterator begin() const { return {begin_}; }
        iterator end() const { return {end_}; }
        int Count() const { return static_cast<int>(end_ - begin_); }

    private:
        friend class TreeView;
        NodeRange(Iter b, Iter e) : begin_(b), end_(e) {}
        Iter begin_, end_;
    };
    NodeRange Nodes() const { return NodeRange(nodes_.begin(), nodes_.end()); }

    // The roots in tree order.
    const std::vector<TreeNode*>& Roots() const { return roots_; }

    bool Checkboxes() const { return checkboxes_; }
    void SetCheckboxes(bool on);

    // A user's tick or untick of the node's box: sets Checked, then raises NodeCheck.
    void UserCheck(TreeNode& node, bool on);

    Event<TreeNode&> NodeCheck;

private:
    friend class TreeNode;

    std::vector<std::unique_ptr<TreeNode>> nodes_; // Index order
    std::vector<TreeNode*> roots_;
    std::unordered_map<std::string, TreeNode*> byKey_;
    bool checkboxes_ = true;
};

} // namespace quillon
