#include "snmp/receiver.h"

#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <system_error>
#include <utility>

#include "snmp/engine_state.h"

namespace sentrel {
namespace {

/// Where this many datagrams come at once, the next ones are left to gather.
constexpr std::size_t kBusy = 8;
constexpr std::chrono::milliseconds kRest{16};
/// A machine does not send itself more than this meanwhile, and no network brings more.
constexpr std::size_t kMostInRest = 500 * kRest.count();

int MakeStopEvent() {
  const int event = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
  if (event < 0) throw std::system_error(errno, std::generic_category());
  return event;
}

/// Signals are for the event loop's thread.
void BlockSignals(sigset_t& before) {
  sigset_t all;
  sigfillset(&all);
  pthread_sigmask(SIG_BLOCK, &all, &before);
}

}  // namespace

Receiver::Receiver(int descriptor, int bufferBytes, TrapQueue& queue, SharedCounters& counters,
                   ReceptionRecord& record, std::function<SnmpLibrary&()> setUpLibrary,
                   std::function<void()> wake)
    : socket_(descriptor, bufferBytes),
      queue_(queue),
      counters_(counters),
      record_(record),
      setUpLibrary_(std::move(setUpLibrary)),
      wake_(std::move(wake)),
      listening_{.port = socket_.Port(),
                 .hasIpv6 = socket_.HasIpv6(),
                 .bufferedTraps = socket_.Room(),
                 .engine = {}},
      mayRest_(listening_.bufferedTraps > kMostInRest),
      stop_(MakeStopEvent()) {
  sigset_t before;
  BlockSignals(before);
  thread_ = std::thread([this] { Run(); });
  pthread_sigmask(SIG_SETMASK, &before, nullptr);
}

Receiver::~Receiver() {
  eventfd_write(stop_, 1);
  thread_.join();
  close(stop_);
}

void Receiver::Run() {
  Version3Guard& guard = setUpLibrary_().Guard();
  record_.NoteEngine(OwnEngineId(), OwnBoots());
  NotificationParser parser(
      guard, [this](ArrivedTrap& trap) { return queue_.Push(trap); },
      [this](const Peer& peer, std::span<const std::uint8_t> bytes) {
        return socket_.Send(peer, bytes);
      });
  while (WaitForDatagrams()) RestAfter(HandleBatch(parser));
  ReadTheRest(parser);
}

void Receiver::ReadTheRest(NotificationParser& parser) {
  socket_.Shut();
  const auto end = std::chrono::steady_clock::now() + kLastReading;
  while (HandleBatch(parser) > 0 && std::chrono::steady_clock::now() < end) {
  }
}

void Receiver::RestAfter(std::size_t datagrams) const {
  const bool busy = datagrams >= kBusy && datagrams < DatagramSocket::kBatch;
  pollfd stop{.fd = stop_, .events = POLLIN, .revents = 0};
  if (mayRest_ && busy) poll(&stop, 1, kRest.count());
}

bool Receiver::WaitForDatagrams() const {
  std::array<pollfd, 2> waiting = {{{.fd = socket_.Descriptor(), .events = POLLIN, .revents = 0},
                                    {.fd = stop_, .events = POLLIN, .revents = 0}}};
  while (poll(waiting.data(), waiting.size(), -1) < 0 && errno == EINTR) {
  }
  return waiting[1].revents == 0;
}

Outcome Receiver::Handle(NotificationParser& parser, const Datagram& datagram) {
  const Outcome outcome = parser.Parse(datagram);
  counters_.SetAnsweredInforms(parser.AnsweredInforms());
  if (record_.Wants(outcome)) {
    const auto hint = [&] { return parser.Hint(outcome); };
    record_.Note(datagram, outcome, hint, parser.PassedVersion3());
  }
  counters_.Count(outcome);
  return outcome;
}

std::size_t Receiver::HandleBatch(NotificationParser& parser) {
  const auto batch = socket_.ReadBatch();
  // Only now: what has been sent after a change is judged by it.
  parser.TakeChanges();
  const Datagram* accepted = nullptr;
  for (const Datagram& datagram : batch) {
    if (Handle(parser, datagram) == Outcome::kAccepted) accepted = &datagram;
  }
  if (accepted != nullptr) record_.NoteAccepted(*accepted);
  counters_.SetSystemDrops(socket_.SystemDrops());
  if (queue_.Publish()) wake_();
  return batch.size();
}

}  // namespace sentrel
