#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "trap/trap.h"

namespace sentrel {

/// Replaces the trap's lists by the bindings that `encoded` holds.
using BindingReader = void (*)(std::string_view encoded, Trap& trap);

/// A trap as it is handed on. Its sender is known at once; its bindings may stay as they came over
/// the wire until someone wants to read them, which in a storm hardly anyone does. Small, and at
/// most one piece of memory besides, because a storm moves it from thread to thread and from row to
/// row. It may change threads, but belongs to one at a time.
class ArrivedTrap {
 public:
  /// Holds nothing yet.
  ArrivedTrap() = default;
  ArrivedTrap(Trap read);

  /// Replaces the content, using its memory again. The reader must know the bindings; it may be
  /// asked for them on another thread, and more than once.
  void Assign(std::string_view sourceAddress, std::string_view community, std::string_view bindings,
              BindingReader readBindings);

  /// Valid until the content changes.
  std::string_view SourceAddress() const;
  std::string_view Community() const;

  /// Replaces `trap`, whose memory is used again, by all that arrived.
  void Read(Trap& trap) const;

  /// Memory that it occupies, in bytes, to within a few per cent.
  std::size_t Memory() const;

 private:
  /// Source address, community and encoded bindings, where nobody has read them.
  std::string text_;
  std::uint32_t communityAt_ = 0;
  std::uint32_t bindingsAt_ = 0;
  BindingReader readBindings_ = nullptr;
  std::shared_ptr<const Trap> read_;
};

}  // namespace sentrel
