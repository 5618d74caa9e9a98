#include "snmp/datagram_socket.h"

#include <linux/filter.h>
#include <sys/uio.h>
#include <unistd.h>

#include <chrono>
#include <cstring>

namespace sentrel {
namespace {

/// Room for the largest datagram, and a little more: were it a power of two, the beginnings of all
/// slots would compete for the same lines of the processor's cache.
constexpr std::size_t kSlot = 65'536 + 320;
constexpr std::size_t kControl = CMSG_SPACE(sizeof(timespec)) + CMSG_SPACE(sizeof(std::uint32_t)) +
                                 CMSG_SPACE(sizeof(in6_pktinfo));
/// Of a socket's buffer the system takes this much for a small datagram.
constexpr std::size_t kSmallDatagram = 1'280;

bool SetOption(int socket, int level, int name, int value) {
  return setsockopt(socket, level, name, &value, sizeof value) == 0;
}

/// Each option is a help, none is a need: what the system refuses is done without.
void Prepare(int socket, int bufferBytes) {
  if (setsockopt(socket, SOL_SOCKET, SO_RCVBUFFORCE, &bufferBytes, sizeof bufferBytes) != 0) {
    SetOption(socket, SOL_SOCKET, SO_RCVBUF, bufferBytes);
  }
  SetOption(socket, SOL_SOCKET, SO_RXQ_OVFL, 1);
  SetOption(socket, SOL_SOCKET, SO_TIMESTAMPNS, 1);
  // Where the socket has both families, this tells of IPv4 too.
  if (!SetOption(socket, IPPROTO_IPV6, IPV6_RECVPKTINFO, 1)) {
    SetOption(socket, IPPROTO_IP, IP_PKTINFO, 1);
  }
}

Peer::Address OwnAddress(int socket) {
  Peer::Address address{};
  socklen_t length = sizeof address;
  getsockname(socket, &address.any, &length);
  return address;
}

template <typename T>
T Payload(const cmsghdr& header) {
  T value;
  std::memcpy(&value, CMSG_DATA(&header), sizeof value);
  return value;
}

std::chrono::sys_time<std::chrono::nanoseconds> TimeOf(const timespec& stamp) {
  return std::chrono::sys_time<std::chrono::nanoseconds>(std::chrono::seconds(stamp.tv_sec) +
                                                         std::chrono::nanoseconds(stamp.tv_nsec));
}

template <typename T>
void StoreLocal(int level, int type, const T& info, Peer& peer) {
  cmsghdr header{};
  header.cmsg_level = level;
  header.cmsg_type = type;
  header.cmsg_len = CMSG_LEN(sizeof info);
  std::memcpy(peer.local.data(), &header, sizeof header);
  std::memcpy(peer.local.data() + CMSG_LEN(0), &info, sizeof info);
  peer.localLength = CMSG_SPACE(sizeof info);
}

}  // namespace

/// What the system reads and writes for each datagram is close together in memory.
struct DatagramSocket::Slots {
  std::array<mmsghdr, kBatch> messages{};
  std::array<iovec, kBatch> data;
  std::array<Peer::Address, kBatch> remotes;
  struct alignas(cmsghdr) Control {
    std::array<char, kControl> bytes;
  };
  std::array<Control, kBatch> controls;
  std::array<std::array<std::uint8_t, kSlot>, kBatch> bytes;
};

DatagramSocket::DatagramSocket(int descriptor, int bufferBytes)
    : descriptor_(descriptor), slots_(new Slots) {
  Prepare(descriptor_, bufferBytes);
  batch_.reserve(kBatch);
  for (std::size_t i = 0; i < kBatch; ++i) {
    slots_->data[i] = {slots_->bytes[i].data(), kSlot};
    msghdr& message = slots_->messages[i].msg_hdr;
    message.msg_iov = &slots_->data[i];
    message.msg_iovlen = 1;
    message.msg_name = &slots_->remotes[i];
    message.msg_control = &slots_->controls[i];
  }
}

DatagramSocket::~DatagramSocket() {
  close(descriptor_);
}

std::uint16_t DatagramSocket::Port() const {
  return PortOf(OwnAddress(descriptor_));
}

bool DatagramSocket::HasIpv6() const {
  return OwnAddress(descriptor_).any.sa_family == AF_INET6;
}

std::size_t DatagramSocket::Room() const {
  int bytes = 0;
  socklen_t length = sizeof bytes;
  getsockopt(descriptor_, SOL_SOCKET, SO_RCVBUF, &bytes, &length);
  return static_cast<std::size_t>(bytes) / kSmallDatagram;
}

std::span<const Datagram> DatagramSocket::ReadBatch() {
  for (std::size_t i = 0; i < kBatch; ++i) {
    msghdr& message = slots_->messages[i].msg_hdr;
    message.msg_namelen = sizeof(Peer::Address);
    message.msg_controllen = kControl;
  }
  const int count = recvmmsg(descriptor_, slots_->messages.data(), kBatch, MSG_DONTWAIT, nullptr);
  batch_.resize(count > 0 ? count : 0);
  for (std::size_t i = 0; i < batch_.size(); ++i) {
    const mmsghdr& received = slots_->messages[i];
    Datagram& datagram = batch_[i];
    datagram.bytes = {slots_->bytes[i].data(), received.msg_len};
    datagram.peer.remote = slots_->remotes[i];
    datagram.peer.remoteLength = received.msg_hdr.msg_namelen;
    TakeControl(received.msg_hdr, datagram);
  }
  return batch_;
}

void DatagramSocket::Shut() {
  sock_filter takeNothing = BPF_STMT(BPF_RET | BPF_K, 0);
  const sock_fprog program{.len = 1, .filter = &takeNothing};
  // Where the system does not know filters, the socket stays open to all.
  setsockopt(descriptor_, SOL_SOCKET, SO_ATTACH_FILTER, &program, sizeof program);
}

void DatagramSocket::TakeControl(const msghdr& message, Datagram& datagram) {
  Peer& peer = datagram.peer;
  peer.localLength = 0;
  datagram.receivedAt = {};
  auto* whole = const_cast<msghdr*>(&message);
  for (cmsghdr* header = CMSG_FIRSTHDR(whole); header != nullptr;
       header = CMSG_NXTHDR(whole, header)) {
    if (header->cmsg_level == SOL_SOCKET && header->cmsg_type == SO_RXQ_OVFL) {
      systemDrops_ = Payload<std::uint32_t>(*header);
    } else if (header->cmsg_level == SOL_SOCKET && header->cmsg_type == SCM_TIMESTAMPNS) {
      datagram.receivedAt = TimeOf(Payload<timespec>(*header));
    } else if (header->cmsg_level == IPPROTO_IPV6 && header->cmsg_type == IPV6_PKTINFO) {
      auto info = Payload<in6_pktinfo>(*header);
      info.ipi6_ifindex = 0;
      StoreLocal(IPPROTO_IPV6, IPV6_PKTINFO, info, peer);
    } else if (header->cmsg_level == IPPROTO_IP && header->cmsg_type == IP_PKTINFO) {
      auto info = Payload<in_pktinfo>(*header);
      info.ipi_ifindex = 0;
      StoreLocal(IPPROTO_IP, IP_PKTINFO, info, peer);
    }
  }
  const bool isStamped = datagram.receivedAt.time_since_epoch().count() != 0;
  if (!isStamped) datagram.receivedAt = std::chrono::system_clock::now();
}

bool DatagramSocket::Send(const Peer& peer, std::span<const std::uint8_t> bytes) const {
  Peer to = peer;
  iovec data{const_cast<std::uint8_t*>(bytes.data()), bytes.size()};
  msghdr message{};
  message.msg_name = &to.remote;
  message.msg_namelen = to.remoteLength;
  message.msg_iov = &data;
  message.msg_iovlen = 1;
  if (to.localLength != 0) {
    message.msg_control = to.local.data();
    message.msg_controllen = to.localLength;
  }
  if (sendmsg(descriptor_, &message, MSG_DONTWAIT) >= 0) return true;
  // A broadcast or multicast address cannot be sent from.
  message.msg_control = nullptr;
  message.msg_controllen = 0;
  return sendmsg(descriptor_, &message, MSG_DONTWAIT) >= 0;
}

}  // namespace sentrel
