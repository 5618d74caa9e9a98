#pragma once

#include <vector>

#include "query/subject.h"

namespace sentrel::query {

/// A trap that is what a test says.
struct SubjectOfTexts : Subject {
  std::string_view Sender() const override { return sender; }
  std::string_view Community() const override { return community; }
  const TrapEnvelope& Envelope() const override { return envelope; }
  std::string_view NotificationOid() const override { return notificationOid; }
  std::string_view NotificationName() const override { return notificationName; }
  std::string_view DeviceType() const override { return deviceType; }
  std::span<const NamedValue> Bindings() const override {
    ++asked;
    return bindings;
  }

  std::string sender = "10.1.2.3";
  std::string community = "public";
  TrapEnvelope envelope;
  std::string notificationOid = "1.3.6.1.6.3.1.1.5.3";
  std::string notificationName = "linkDown";
  std::string deviceType = "cat3850";
  std::vector<NamedValue> bindings = {
      {"1.3.6.1.2.1.2.2.1.1.12", "ifIndex.12", "12", ""},
      {"1.3.6.1.2.1.2.2.1.2.12", "ifDescr.12", "GigabitEthernet0/7 Uplink Zürich", ""},
      {"1.3.6.1.2.1.2.2.1.8.12", "ifOperStatus.12", "2", "down"},
      {"1.3.6.1.2.1.31.1.1.1.6.12", "ifHCInOctets.12", "18446744073709551615", ""},
      {"1.3.6.1.4.1.9.9.1", "delta", "-5", ""},
  };
  mutable int asked = 0;
};

}  // namespace sentrel::query
