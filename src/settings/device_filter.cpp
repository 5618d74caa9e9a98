#include "settings/device_filter.h"

#include <fmt/format.h>

#include <charconv>
#include <utility>

#include "common/text.h"
#include "settings/ip_functions.h"

namespace sentrel {
namespace {

enum Type { kSingleAddress = 1, kAddressRange = 2, kSubnet = 3 };

std::string_view BehindLastColon(std::string_view text) {
  const auto colon = text.rfind(':');
  return colon == std::string_view::npos ? text : text.substr(colon + 1);
}

/// The first two pieces; the second is empty where there is no separator.
std::pair<std::string_view, std::string_view> FirstTwo(std::string_view text,
                                                       std::string_view separator) {
  const auto pieces = Split(text, separator);
  return {pieces[0], pieces.size() > 1 ? pieces[1] : std::string_view()};
}

/// The mask that stands behind the "/", in dots or as a prefix length; "" if it is neither.
std::string MaskOfPiece(std::string_view piece) {
  if (IsSubnetMask(piece)) return std::string(piece);
  if (piece.find('.') != std::string_view::npos) return {};
  std::int16_t length = 0;
  std::from_chars(piece.data(), piece.data() + piece.size(), length);
  return length > 0 && length <= 32 ? MaskOfPrefixLength(length) : std::string();
}

}  // namespace

void DeviceFilter::SetFilter(std::string_view text) {
  *this = {};
  const std::string plain = ReplaceAll(ReplaceAll(BehindLastColon(text), "\\", "/"), " ", "");
  if (plain.find('-') != std::string::npos) {
    SetRange(plain);
  } else if (plain.find('/') != std::string::npos) {
    SetSubnet(plain);
  } else {
    SetSingleAddress(plain);
  }
}

void DeviceFilter::SetRange(std::string_view text) {
  const auto [first, second] = FirstTwo(text, "-");
  if (!IsIPAddress(first) || !IsIPAddress(second)) return;
  if (IPAddressToDouble(second) < IPAddressToDouble(first)) return;
  filter_ = fmt::format("{}-{}", first, second);
  filterType_ = kAddressRange;
  SetBounds(std::string(first), std::string(second));
}

void DeviceFilter::SetSubnet(std::string_view text) {
  const auto [address, maskPiece] = FirstTwo(text, "/");
  std::string mask = MaskOfPiece(maskPiece);
  if (!IsIPAddress(address) || mask.empty()) return;
  filterType_ = kSubnet;
  mask_ = std::move(mask);
  subnet_ = SubnetOfAddress(address, mask_);
  filter_ = fmt::format("{}/{}", subnet_, mask_);
  SetBounds(subnet_, LastAddressOfSubnet(subnet_, mask_));
}

void DeviceFilter::SetSingleAddress(std::string_view text) {
  if (!IsIPAddress(text)) return;
  filter_ = text;
  filterType_ = kSingleAddress;
  SetBounds(filter_, filter_);
}

void DeviceFilter::SetBounds(std::string beginningAddress, std::string endingAddress) {
  beginningAddress_ = std::move(beginningAddress);
  beginning_ = IPAddressToDouble(beginningAddress_);
  endingAddress_ = std::move(endingAddress);
  ending_ = IPAddressToDouble(endingAddress_);
  validFilter_ = true;
}

std::string DeviceFilter::Description() const {
  switch (filterType_) {
    case kSingleAddress:
      return "Single IP Address : " + filter_;
    case kAddressRange:
      return "Address Range     : " + filter_;
    case kSubnet:
      return "Subnet            : " + filter_;
    default:
      return {};
  }
}

bool DeviceFilter::AddressInFilter(const std::string& address) const {
  return AddressInFilter(IPAddressToDouble(address));
}

std::string DeviceFilter::EndingAddressdouble() const {
  return fmt::format("{:.0f}", ending_);
}

}  // namespace sentrel
