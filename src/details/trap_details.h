#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "details/message_parts.h"
#include "details/oid_numbers.h"
#include "details/value_words.h"
#include "trap/arrived_trap.h"

namespace sentrel {

/// A line of a trap's details. All texts can be shown as they are (VisibleText).
struct DetailLine {
  std::string name;
  std::string oid = {};
  std::string type = {};
  std::string value = {};
  /// In the message.
  ByteRange bytes = {};
  /// The parts of an instance's index.
  std::vector<DetailLine> parts = {};
};

/// One trap taken apart: first what is told around its bindings, then each binding. A binding is
/// put into words when its line is first asked for, so that thousands of them cost nothing that
/// nobody sees. Used on the event loop only.
class TrapDetails {
 public:
  /// The last two must outlive this.
  TrapDetails(std::shared_ptr<const ArrivedTrap> trap, MibLibrary& names, const MibFacts& facts);

  /// What the bytes of the lines are places in (ArrivedTrap::Message).
  std::string_view Message() const { return trap_->Message(); }
  SnmpVersion Version() const { return trap_->Envelope().version; }

  std::size_t Lines() const { return head_.size() + bindings_.size(); }
  /// The first line that is a binding.
  std::size_t FirstBinding() const { return head_.size(); }
  /// Values of more than kMostShownOctets are cut, and say so. Valid as long as this.
  const DetailLine& Line(std::size_t line) const;
  /// The value of a line without a cut.
  std::string WholeValue(std::size_t line) const;
  /// The line that a byte of the message belongs to; nothing for what is around all of them.
  std::optional<std::size_t> LineAt(std::size_t byte) const;

 private:
  void AddHead();
  void AddNotification();
  void AddSender();
  void AddMessageHead();
  void AddVersion1Head();
  void Add(const char* name, const std::string& value, const std::optional<MessagePart>& part = {});
  void AddOid(const char* name, const std::string& oid, const ByteRange& bytes);
  /// The binding with this encoded name, or null.
  const BindingPart* Find(std::string_view encodedName) const;
  DetailLine MakeBinding(const BindingPart& part) const;
  std::vector<DetailLine> IndexLines(const ObjectFacts& facts, const OidNumbers& oid) const;

  const std::shared_ptr<const ArrivedTrap> trap_;
  const ValueWords words_;
  const MibFacts& facts_;
  const MessageParts parts_;
  std::vector<DetailLine> head_;
  /// Those that somebody has asked for.
  mutable std::vector<std::unique_ptr<const DetailLine>> bindings_;
};

}  // namespace sentrel
