#include "query/trap_subject.h"

#include <algorithm>
#include <charconv>

#include "common/failure.h"
#include "trap/readable_value.h"

namespace sentrel::query {
namespace {

constexpr std::string_view kTrapOid = "1.3.6.1.6.3.1.1.4.1.0";
constexpr std::string_view kEnterpriseOid = "1.3.6.1.6.3.1.1.4.3.0";
constexpr int kInteger = 2;
constexpr int kOctets = 4;
constexpr int kObjectIdentifier = 6;

/// "down" of "down(2)"; empty where the number has no label.
std::string LabelOf(const OIDObject& object, const std::string& value) {
  std::int32_t number = 0;
  const auto [end, error] = std::from_chars(value.data(), value.data() + value.size(), number);
  std::string label;
  if (error != std::errc() || end != value.data() + value.size()) return label;
  Attempt([&] {
    if (object.EnumerationList().empty()) return;
    const std::string named = object.EnumerationName(number);
    if (named != "unknown(0)") label = named.substr(0, named.rfind('('));
  });
  return label;
}

}  // namespace

const OIDObject* Names::Find(const std::string& oid) {
  if (const auto found = objects_.find(oid); found != objects_.end()) return found->second.get();
  if (objects_.size() >= kMostKept) objects_.clear();
  std::shared_ptr<OIDObject> object;
  Attempt([&] {
    auto made = mibs_.MakeOIDObject();
    made->SetOID(oid);
    object = std::move(made);
  });
  return objects_.emplace(oid, std::move(object)).first->second.get();
}

std::string Names::NameOf(const std::string& oid) {
  std::string name = oid;
  if (oid.empty()) return name;
  const OIDObject* const object = Find(oid);
  if (object != nullptr) Attempt([&] { name = object->Name(); });
  return name;
}

const TrapSubject::Content& TrapSubject::Read() const {
  if (content_) return *content_;
  content_.emplace();
  trap_.Read(content_->trap);
  const Trap& trap = content_->trap;
  const std::size_t count = std::min(trap.OIDs.size(), trap.Values.size());
  for (std::size_t i = 0; i < count; ++i) {
    if (trap.OIDs[i] == kTrapOid && content_->notificationOid.empty()) {
      content_->notificationOid = trap.Values[i];
    } else if (trap.OIDs[i] == kEnterpriseOid) {
      content_->enterpriseOid = trap.Values[i];
    }
  }
  return *content_;
}

std::string_view TrapSubject::NotificationName() const {
  if (!notificationName_) notificationName_ = names_.NameOf(Read().notificationOid);
  return *notificationName_;
}

std::string_view TrapSubject::DeviceType() const {
  if (!deviceType_) deviceType_ = names_.NameOf(Read().enterpriseOid);
  return *deviceType_;
}

NamedValue TrapSubject::Named(std::size_t binding) const {
  const Trap& trap = Read().trap;
  NamedValue named{.oid = trap.OIDs[binding],
                   .name = names_.NameOf(trap.OIDs[binding]),
                   .value = trap.Values[binding],
                   .label = ""};
  switch (trap.DataTypes[binding]) {
    case kInteger:
      if (const auto* const object = names_.Find(named.oid)) {
        named.label = LabelOf(*object, named.value);
      }
      break;
    case kOctets:
      named.value = ReadableValue(trap, binding).value_or(std::move(named.value));
      break;
    case kObjectIdentifier:
      named.label = names_.NameOf(named.value);
      break;
    default:
      break;
  }
  return named;
}

std::span<const NamedValue> TrapSubject::Bindings() const {
  if (bindings_) return *bindings_;
  const Trap& trap = Read().trap;
  const std::size_t count = std::min({trap.OIDs.size(), trap.DataTypes.size(), trap.Values.size()});
  bindings_.emplace();
  bindings_->reserve(count);
  for (std::size_t i = 0; i < count; ++i) bindings_->push_back(Named(i));
  return *bindings_;
}

}  // namespace sentrel::query
