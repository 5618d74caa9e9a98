#include "trap/arrived_trap.h"

#include <utility>

namespace sentrel {

ArrivedTrap::ArrivedTrap(Trap read) : read_(std::make_shared<Trap>(std::move(read))) {}

void ArrivedTrap::Assign(const ReceivedMessage& received) {
  const auto narrow = [](std::size_t size) { return static_cast<std::uint32_t>(size); };
  read_.reset();
  text_.assign(received.sourceAddress).append(received.community).append(received.message);
  communityAt_ = narrow(received.sourceAddress.size());
  messageAt_ = communityAt_ + narrow(received.community.size());
  bindingsAt_ = messageAt_ + narrow(received.bindings.data() - received.message.data());
  bindingsSize_ = narrow(received.bindings.size());
  readBindings_ = received.readBindings;
  envelope_ = received.envelope;
}

std::string_view ArrivedTrap::SourceAddress() const {
  return read_ ? read_->SourceAddress : std::string_view(text_).substr(0, communityAt_);
}

std::string_view ArrivedTrap::Community() const {
  return read_ ? read_->Community
               : std::string_view(text_).substr(communityAt_, messageAt_ - communityAt_);
}

std::string_view ArrivedTrap::Message() const {
  return std::string_view(text_).substr(messageAt_);
}

void ArrivedTrap::Read(Trap& trap) const {
  if (readBindings_ == nullptr) {
    trap = read_ ? *read_ : Trap();
    return;
  }
  trap.SourceAddress = SourceAddress();
  trap.Community = Community();
  readBindings_(std::string_view(text_).substr(bindingsAt_, bindingsSize_), trap);
}

std::size_t ArrivedTrap::Memory() const {
  return sizeof *this + text_.capacity() + (read_ ? MemoryOf(*read_) : 0);
}

}  // namespace sentrel
