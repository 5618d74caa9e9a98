#include "snmp/repeated_informs.h"

#include <algorithm>
#include <cstring>
#include <random>
#include <string>

#include "snmp/net_snmp.h"

namespace sentrel {
namespace {

/// With its length in front, so that no two lists of fields give the same bytes.
void Append(std::string& bytes, std::string_view field) {
  const std::uint64_t length = field.size();
  bytes.append(reinterpret_cast<const char*>(&length), sizeof length).append(field);
}

}  // namespace

RepeatedInforms::RepeatedInforms() {
  std::random_device random;
  std::generate(key_.begin(), key_.end(), [&] { return static_cast<std::uint8_t>(random()); });
}

std::optional<RepeatedInforms::Digest> RepeatedInforms::DigestOf(
    const InformIdentity& inform) const {
  std::string address;
  AddressText(inform.peer, address);
  const std::string port = std::to_string(PortOf(inform.peer.remote));
  std::string bytes;
  for (const std::string_view field :
       {std::string_view(address), std::string_view(port), inform.engine, inform.user,
        inform.requestId, inform.bindings}) {
    Append(bytes, field);
  }
  Digest digest;
  std::size_t size = digest.size();
  const int error = sc_generate_keyed_hash(
      usmHMAC192SHA256AuthProtocol, OID_LENGTH(usmHMAC192SHA256AuthProtocol), key_.data(),
      key_.size(), reinterpret_cast<const u_char*>(bytes.data()), bytes.size(), digest.data(),
      &size);
  return error == SNMPERR_SUCCESS && size == digest.size() ? std::optional(digest) : std::nullopt;
}

std::size_t RepeatedInforms::Hash::operator()(const Digest& digest) const {
  std::size_t hash = 0;
  std::memcpy(&hash, digest.data(), sizeof hash);
  return hash;
}

bool RepeatedInforms::Has(const Digest& digest, Time now) const {
  const auto found = times_.find(digest);
  return found != times_.end() && now - found->second <= kWindow;
}

void RepeatedInforms::Add(const Digest& digest, Time now) {
  while (!order_.empty() && (order_.size() >= kMost || now - times_.at(order_.front()) > kWindow)) {
    times_.erase(order_.front());
    order_.pop_front();
  }
  times_.emplace(digest, now);
  order_.push_back(digest);
}

}  // namespace sentrel
