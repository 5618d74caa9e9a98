#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace sentrel {

/// A single address, an address range or a subnet: a pair of bounds that a source address lies
/// between or not.
class DeviceFilter {
 public:
  /// Understands "10.0.1.23", "10.0.1.1 - 10.0.1.255", "10.0.1.0/24", "10.0.1.0/255.255.255.0" and
  /// every Description(). A text that is not understood leaves an empty object with ValidFilter()
  /// false; never throws.
  void SetFilter(std::string_view text);
  /// The normal form, which parses to itself; "" when not valid.
  const std::string& Filter() const { return filter_; }
  /// Filter() behind a label of 20 characters that tells its type; "" when not valid.
  std::string Description() const;

  /// Both bounds belong to the filter.
  bool AddressInFilter(const std::string& address) const;
  /// The same for an address that IPAddressToDouble has converted.
  bool AddressInFilter(double address) const { return beginning_ <= address && address <= ending_; }

  /// 0 not valid, 1 single address, 2 address range, 3 subnet.
  std::int32_t FilterType() const { return filterType_; }
  /// Network address and dotted mask; "" unless the filter is a subnet.
  const std::string& Subnet() const { return subnet_; }
  const std::string& Mask() const { return mask_; }
  const std::string& BeginningAddress() const { return beginningAddress_; }
  const std::string& EndingAddress() const { return endingAddress_; }
  /// Decimal-coded.
  double BeginningAddressDouble() const { return beginning_; }
  /// Decimal-coded, as decimal digits.
  std::string EndingAddressdouble() const;
  bool ValidFilter() const { return validFilter_; }

 private:
  void SetRange(std::string_view text);
  void SetSubnet(std::string_view text);
  void SetSingleAddress(std::string_view text);
  void SetBounds(std::string beginningAddress, std::string endingAddress);

  std::string filter_;
  std::int32_t filterType_ = 0;
  std::string beginningAddress_;
  double beginning_ = 0;
  std::string endingAddress_;
  double ending_ = 0;
  std::string subnet_;
  std::string mask_;
  bool validFilter_ = false;
};

}  // namespace sentrel
