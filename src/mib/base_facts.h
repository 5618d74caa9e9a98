#pragma once

#include <cstdint>
#include <vector>

#include "mib/catalog.h"
#include "mib/image.h"
#include "mib/import_resolver.h"
#include "mib/type_list.h"

namespace sentrel::mib {

/// Takes over all that a base image holds into an empty catalog, names of nodes included: the base
/// image has decided between its own claims. Its entries become the first of the catalog, in the
/// same order, so a Target in the base image is one of them. Reads only once it is made.
class BaseFacts {
 public:
  /// The image and the catalog must outlive this. The catalog's texts are those of the image.
  BaseFacts(const Image& base, Catalog& catalog, TypeList& types);

  /// Of a target in the base image; an entry without node and type where there is none.
  const Entry& EntryOf(const Target& target) const {
    static const Entry kNone;
    return target.definition < entries_ ? catalog_.entries[target.definition] : kNone;
  }
  /// Whether one of the first modules of the catalog, which are the base image's.
  bool HasModule(std::uint32_t module) const { return module < modules_; }
  std::uint32_t Modules() const { return modules_; }

 private:
  void AddNodes();
  void AddTypes(TypeList& types);
  void AddModules();
  void AddEntry(const format::EntryRecord& record);
  void TakeNames();

  const Image& base_;
  Catalog& catalog_;
  /// By position in the base image.
  std::vector<std::uint32_t> nodes_;
  std::vector<std::uint32_t> types_;
  std::uint32_t modules_ = 0;
  std::size_t entries_ = 0;
};

}  // namespace sentrel::mib
