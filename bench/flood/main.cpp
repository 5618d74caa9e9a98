// What a flood of forged version 3 messages does to genuine traps. Every message is of an engine
// that was never seen before. Prints how long genuine traps of versions 2c and 3 took from being
// sent to being taken, the slowest of all, against a bound, and what the flood costs in processor
// time and memory. Then what the first genuine trap of an engine costs, whose keys are to be made,
// against a bound and beside a later one.

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <thread>

#include "bare_path.h"
#include "genuine_traps.h"
#include "process_time.h"
#include "storm.h"

namespace sentrel::bench {
namespace {

using namespace std::chrono_literals;
using namespace std::string_literals;
using Clock = std::chrono::steady_clock;
using Milliseconds = std::chrono::duration<double, std::milli>;

constexpr std::uint32_t kRate = 40'000;
constexpr std::uint32_t kSeconds = 10;
constexpr double kBoundMilliseconds = 100;
constexpr std::uint32_t kProbes = 36;
constexpr double kFirstBoundMicroseconds = 500;

struct Forgery {
  const char* name;
  const char* user;
  /// Asks for a report, as a sender does that wants to know this engine's ID.
  bool asks;
  /// Carries a digest, which is wrong: SHA-256 makes 24 octets.
  bool isSigned;
};

std::string Element(char tag, const std::string& content) {
  return std::string{tag, static_cast<char>(content.size())} + content;
}

/// A message of an engine with this number, not encrypted.
std::string Forged(std::uint32_t number, const Forgery& forgery) {
  std::string engine = "\x80\x00\x00\x00\x05"s;
  for (int shift = 24; shift >= 0; shift -= 8) engine += static_cast<char>(number >> shift);
  const std::string one = Element(2, "\x01");
  const std::string nothing = Element(4, "");
  const std::string zero = Element(2, "\0"s);
  const char flags = static_cast<char>((forgery.asks ? 4 : 0) + (forgery.isSigned ? 1 : 0));
  const std::string header = Element(
      0x30, one + Element(2, "\x08\x00"s) + Element(4, std::string(1, flags)) + Element(2, "\x03"));
  const std::string digest = Element(4, std::string(forgery.isSigned ? 24 : 0, 'x'));
  const std::string security = Element(
      4,
      Element(0x30, Element(4, engine) + one + one + Element(4, forgery.user) + digest + nothing));
  const std::string pdu = Element(static_cast<char>(0xA7), one + zero + zero + Element(0x30, ""));
  const std::string scoped = Element(0x30, Element(4, engine) + nothing + pdu);
  return Element(0x30, Element(2, "\x03") + header + security + scoped);
}

Datagrams ForgedMessages(const Forgery& forgery) {
  Datagrams messages;
  for (std::uint32_t i = 0; i < kRate * kSeconds; ++i) messages.push_back(Forged(i, forgery));
  return messages;
}

Milliseconds TimeToAccept(const BarePath& path, const std::string& trap) {
  const std::uint64_t before = path.Accepted();
  const auto start = Clock::now();
  Storm(path.Port(), {1, 0}, {trap}).Await();
  while (path.Accepted() == before && Clock::now() - start < 10s)
    std::this_thread::sleep_for(100us);
  return Clock::now() - start;
}

void Measure(const Forgery& forgery) {
  const Datagrams genuine = GenuineVersion3(kProbes, Engines::One);
  const Datagrams messages = ForgedMessages(forgery);
  BarePath path;
  path.Users().Replace({GenuineUser()});
  TimeToAccept(path, LinkDown().front());
  const std::uint64_t memory = OwnMemory();
  const double used = OwnSeconds();
  Milliseconds slowest2c{}, slowest3{};
  Storm flood(path.Port(), {kRate * kSeconds, kRate}, messages);
  for (std::size_t i = 0; i < genuine.size() && flood.Rages(); ++i) {
    slowest2c = std::max(slowest2c, TimeToAccept(path, LinkDown().front()));
    slowest3 = std::max(slowest3, TimeToAccept(path, genuine[i]));
    std::this_thread::sleep_for(kSeconds * 1000ms / kProbes);
  }
  flood.Await();
  path.Settle();
  std::printf(
      "%-22s %6.0f/s  version 2c %5.1f ms (%4.2f x bound)  version 3 %5.1f ms (%4.2f x "
      "bound)  %4.2f us a message  %+5.1f MB\n",
      forgery.name, flood.Rate(), slowest2c.count(), slowest2c.count() / kBoundMilliseconds,
      slowest3.count(), slowest3.count() / kBoundMilliseconds,
      (OwnSeconds() - used) / (kRate * kSeconds) * 1e6,
      (static_cast<double>(OwnMemory()) - static_cast<double>(memory)) / 1e6);
}

/// Processor time for each of the traps, in microseconds.
double CostOf(const BarePath& path, const Datagrams& traps) {
  const std::uint64_t before = path.Accepted();
  const double used = OwnSeconds();
  const auto count = static_cast<std::uint32_t>(traps.size());
  Storm(path.Port(), {count, count}, traps).Await();
  path.Settle();
  if (path.Accepted() - before != traps.size()) std::abort();
  return (OwnSeconds() - used) / count * 1e6;
}

void MeasureFirstTraps() {
  constexpr std::uint32_t kEngines = 200;
  BarePath path;
  path.Users().Replace({GenuineUser()});
  const Datagrams one = GenuineVersion3(kEngines, Engines::One);
  TimeToAccept(path, one.front());
  const double later = CostOf(path, {one.begin() + 1, one.end()});
  const double first = CostOf(path, GenuineVersion3(kEngines, Engines::OneForEach));
  std::printf("first trap of an engine %5.1f us (%4.2f x bound of %.0f us), a later one %5.1f us\n",
              first, first / kFirstBoundMicroseconds, kFirstBoundMicroseconds, later);
}

void Main() {
  std::printf("bound: %.0f ms until a genuine trap is taken\n", kBoundMilliseconds);
  Measure({"unknown users", "eve", false, false});
  Measure({"unknown users asking", "eve", true, false});
  Measure({"wrong digests", "ann", false, true});
  MeasureFirstTraps();
}

}  // namespace
}  // namespace sentrel::bench

int main() {
  sentrel::bench::Main();
}
