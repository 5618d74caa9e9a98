#pragma once

#include <cstddef>
#include <cstdint>

#include "mib/huge_pages.h"

namespace sentrel::mib {

/// A set of OIDs as a tree while it is being built. Nodes are numbered in the order in which they
/// came, parents before children; node 0 is the root above iso.
class OidTree {
 public:
  static constexpr std::uint32_t kRoot = 0;
  /// The most numbers that an OID has (RFC 2578 section 7.1.3).
  static constexpr int kDeepest = 128;

  struct Node {
    std::uint32_t number = 0;
    std::uint32_t parent = 0;
    std::uint32_t depth = 0;
  };

  OidTree();
  /// Makes room for this many nodes in all.
  void Reserve(size_t nodes);
  /// The child of the node with this number, made if there is none.
  std::uint32_t Child(std::uint32_t node, std::uint32_t number);
  const BigVector<Node>& Nodes() const { return nodes_; }

 private:
  size_t SlotOf(std::uint32_t node, std::uint32_t number) const;
  void Resize(size_t slots);

  BigVector<Node> nodes_;
  /// Open addressing over (parent, number); 0 marks a free slot, as the root is no child.
  BigVector<std::uint32_t> slots_;
};

}  // namespace sentrel::mib
