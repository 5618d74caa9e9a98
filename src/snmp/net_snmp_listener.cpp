#include "snmp/net_snmp_listener.h"

#include <sys/utsname.h>

#include <cerrno>
#include <exception>
#include <utility>

#include "common/coarse_clock.h"
#include "snmp/listen_failure.h"
#include "snmp/port_helper.h"
#include "snmp/receiver.h"
#include "snmp/snmp_library.h"

namespace sentrel {
namespace {

utsname System() {
  utsname system{};
  uname(&system);
  return system;
}

}  // namespace

NetSnmpListener::NetSnmpListener(ListenerOptions options, TrapObserver& observer,
                                 std::function<void()> wake)
    : options_(std::move(options)),
      observer_(observer),
      wake_(std::move(wake)),
      sender_(options_.sendPort),
      users_(options_.stateFolder.empty() ? "" : options_.stateFolder + "/version3-users"),
      queue_(options_.queue) {}

NetSnmpListener::~NetSnmpListener() = default;

int NetSnmpListener::OpenSocket() const {
  const int socket = BindTrapSocket(options_.port);
  const bool tryHelper = socket == -EACCES && options_.port == kTrapPort;
  if (!tryHelper || options_.portHelper.empty()) return socket;
  const int handed = SocketFromPortHelper(options_.portHelper);
  // A helper that is missing or broken has nothing to add to the refusal itself.
  return handed >= 0 || handed == -EADDRINUSE ? handed : -EACCES;
}

std::int16_t NetSnmpListener::StartListening() {
  if (IsListening()) return 0;
  // The socket first: a second copy of the program must not touch the first one's state.
  const int socket = OpenSocket();
  if (socket < 0) {
    failure_ = ExplainListenFailure(-socket, options_.port, options_.portHelper);
    return 1;
  }
  try {
    receiver_ = std::make_unique<Receiver>(
        socket, options_.receiveBuffer, queue_, counters_, record_,
        [this]() -> SnmpLibrary& { return SetUpLibrary(); }, wake_);
    return 0;
  } catch (const std::exception& error) {
    failure_ = {std::string("The system refuses what reception needs: ") + error.what() + ".",
                "Close some other programs and start this one again."};
    return 1;
  }
}

SnmpLibrary& NetSnmpListener::SetUpLibrary() {
  if (!library_) {
    library_ =
        std::make_unique<SnmpLibrary>(options_.stateFolder, options_.configurationPath, users_);
  }
  return *library_;
}

void NetSnmpListener::StopListening() {
  using std::chrono::milliseconds;
  const CoarseClock::time_point end = CoarseClock::now() + kMostForLastTraps;
  receiver_.reset();
  Deliver(std::chrono::duration_cast<milliseconds>(end - CoarseClock::now()));
  queue_.Clear();
  taken_.Clear();
  next_ = 0;
}

void NetSnmpListener::CloseListener() {
  StopListening();
  library_.reset();
}

std::string NetSnmpListener::LocalText1() const {
  return System().nodename;
}

std::string NetSnmpListener::LocalText2() const {
  const utsname system = System();
  return std::string(system.sysname) + " " + system.release + " " + system.machine;
}

const ArrivedTrap* NetSnmpListener::TakeNext() {
  if (next_ == taken_.Size()) {
    queue_.Take(taken_);
    next_ = 0;
  }
  return next_ == taken_.Size() ? nullptr : &taken_[next_++];
}

bool NetSnmpListener::Deliver(std::chrono::milliseconds budget) {
  const CoarseClock::time_point end = CoarseClock::now() + budget;
  while (const ArrivedTrap* trap = TakeNext()) {
    observer_.OnTrap(*trap);
    if (CoarseClock::now() >= end) break;
  }
  return Waiting() > 0;
}

ListeningFacts NetSnmpListener::Listening() const {
  if (!receiver_) return {};
  ListeningFacts facts = receiver_->Listening();
  record_.TellEngine(facts);
  return facts;
}

std::uint16_t NetSnmpListener::Port() const {
  return receiver_ ? receiver_->Port() : 0;
}

}  // namespace sentrel
