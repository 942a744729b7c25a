// The nodes of a summed tree: counted, shared between trees, edited in place when one tree alone holds them.
#pragma once

#include <cstdint>
#include <utility>

namespace standin::text {

struct TreeNode {
  uint32_t references = 1;
  uint16_t height = 0;  // 0: a leaf
};

// NOLINTBEGIN(clang-analyzer-*): the analyzer does not follow counts, and takes what is still held for freed.
// Holds one reference to a node, or nil. Tree::destroy frees a node that nobody holds.
template <class Tree>
class NodeReference {
 public:
  NodeReference() = default;
  NodeReference(NodeReference&& other) noexcept : node_(std::exchange(other.node_, nullptr)) {}
  NodeReference(const NodeReference& other) : node_(other.node_) {
    if (node_ != nullptr) ++node_->references;
  }
  NodeReference& operator=(NodeReference other) noexcept {
    std::swap(node_, other.node_);
    return *this;
  }
  ~NodeReference() {
    if (node_ != nullptr && --node_->references == 0) Tree::destroy(node_);
  }
  // Takes over the reference of a new node.
  static NodeReference adopt(TreeNode* node) {
    NodeReference reference;
    reference.node_ = node;
    return reference;
  }

  explicit operator bool() const { return node_ != nullptr; }
  bool operator==(const NodeReference&) const = default;
  TreeNode* get() const { return node_; }
  TreeNode* operator->() const { return node_; }
  // The one reference to a node that has moved.
  void exchange(TreeNode* moved) { node_ = moved; }
  bool isUnique() const { return node_->references == 1; }

 private:
  TreeNode* node_ = nullptr;
};
// NOLINTEND(clang-analyzer-*)

}  // namespace standin::text
