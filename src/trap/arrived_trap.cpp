#include "trap/arrived_trap.h"

#include <utility>

namespace sentrel {

ArrivedTrap::ArrivedTrap(Trap read) : read_(std::make_shared<Trap>(std::move(read))) {}

void ArrivedTrap::Assign(std::string_view sourceAddress, std::string_view community,
                         std::string_view bindings, BindingReader readBindings) {
  read_.reset();
  text_.assign(sourceAddress).append(community).append(bindings);
  communityAt_ = static_cast<std::uint32_t>(sourceAddress.size());
  bindingsAt_ = static_cast<std::uint32_t>(communityAt_ + community.size());
  readBindings_ = readBindings;
}

std::string_view ArrivedTrap::SourceAddress() const {
  return read_ ? read_->SourceAddress : std::string_view(text_).substr(0, communityAt_);
}

std::string_view ArrivedTrap::Community() const {
  return read_ ? read_->Community
               : std::string_view(text_).substr(communityAt_, bindingsAt_ - communityAt_);
}

void ArrivedTrap::Read(Trap& trap) const {
  if (readBindings_ == nullptr) {
    trap = read_ ? *read_ : Trap();
    return;
  }
  trap.SourceAddress = SourceAddress();
  trap.Community = Community();
  readBindings_(std::string_view(text_).substr(bindingsAt_), trap);
}

std::size_t ArrivedTrap::Memory() const {
  return sizeof *this + text_.capacity() + (read_ ? MemoryOf(*read_) : 0);
}

}  // namespace sentrel
