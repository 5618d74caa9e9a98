#pragma once

#include <cstdint>
#include <vector>

#include "mib/catalog.h"

namespace sentrel::mib {

/// What of a catalog names traps:
///
/// - all notifications;
/// - the objects that they carry, the objects that exist only in notifications, the other columns
/// of
///   the same rows, and the indexes of those rows;
/// - the products: values and OBJECT-IDENTITYs with nothing below them, which is what sysObjectID
/// and
///   the enterprise of a version 1 trap hold;
/// - enterprises and everything that has a name on the way from the root to one of these;
/// - the types of all this.
///
/// Of several definitions of one OID it is the one that gives the OID its name, and of
/// notifications and products every one that gives another name. Modules that are held elsewhere
/// as a whole give the names of all their OIDs and have no part in the selection.
class TrapSelection {
 public:
  /// Lets the modules that are held, by their place in the catalog, name their OIDs. The catalog
  /// must outlive the selection.
  TrapSelection(Catalog& catalog, const std::vector<bool>& isHeld);

  bool Has(std::uint32_t entry) const {
    return kept_[entry] && !isHeld_[catalog_.entries[entry].module];
  }

 private:
  void PreferHeld();
  bool IsProduct(const Entry& entry) const;
  const Entry* WinnerOf(std::uint32_t node) const;
  void KeepNode(std::uint32_t node);
  void KeepRelated(const Entry& entry);
  void KeepOtherNames();
  void KeepRows();
  void KeepWayFromRoot();
  void KeepTypes();

  Catalog& catalog_;
  const std::vector<bool>& isHeld_;
  /// By entry.
  std::vector<bool> kept_;
  /// By node: whether there is another one below it that a definition gives.
  std::vector<bool> hasBelow_;
};

}  // namespace sentrel::mib
