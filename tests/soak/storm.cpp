#include "storm.h"

#include "fakes/notification.h"

namespace sentrel {
namespace {

constexpr std::uint64_t kMostOnTheirWay = 100;
constexpr std::size_t kLargestText = 65'507 - 120;

const std::vector<std::string> kOids = {"1.3.6.1.2.1.2.2.1.8.7", "1.3.6.1.2.1.1.5.0",
                                        "1.3.6.1.4.1.58213.1.1", "1.3.6.1.6.3.1.1.4.3.0",
                                        "1.3.6.1.2.1.31.1.1.1.18.4294967295"};
const std::vector<std::string> kCommunities = {"public", "private", "a=b::c", "<b>bold</b>",
                                               "\u202Ecilbup"};
/// Texts that try to break out of where they are shown.
const std::vector<std::string> kTexts = {
    "up",
    "2",
    "1.3.6.1.2.1.2.2.1.8.7",
    "",
    "two\r\nlines\rthree\nfour",
    "<img src='file:///etc/passwd'><b>bold</b><script>alert(1)</script>",
    "&lt;entities&gt; &amp;",
    "\u202Eright to left\u2066isolated",
    "\x07\x1b[31m\x08 control",
    "a" + std::string(300, '\n'),
    "=HYPERLINK(\"x\")",
    "c\u0300" + std::string(400, 'x'),
    "tab\tbed",
    "\\::\\=::",
    "\xFF\xFE no text"};

}  // namespace

Storm::Storm(std::uint16_t port, std::uint32_t seed, std::vector<std::string> samples)
    : random_(seed), samples_(std::move(samples)), informSender_(port), sender_(port) {}

void Storm::Blow(std::uint64_t received) {
  Answers();  // they must not fill the buffer of the socket
  for (std::uint32_t count = Below(12); count > 0; --count) {
    if (sent_ - received >= kMostOnTheirWay) return;
    switch (Below(10)) {
      case 0:
        Send(informSender_, Notification(true));
        ++informs_;
        break;
      case 1:
        Send(sender_, AnyOf(samples_));
        break;
      case 2:
      case 3:
      case 4:
        Send(sender_,
             test::Mutated(Below(2) == 0 ? AnyOf(samples_) : Notification(false), 4, random_));
        break;
      case 5:
        // As large as the whole buffer may be, so only where nothing else is on its way.
        if (sent_ == received && Below(20) == 0) {
          const std::string large(kLargestText, static_cast<char>('a' + Below(26)));
          SendMarker(kOids[2], large);
        }
        break;
      default:
        Send(sender_, Notification(false));
    }
  }
}

void Storm::SendMarker(const std::string& oid, const std::string& text) {
  Send(sender_, NotificationBytes("public", {oid}, {text}));
}

std::uint64_t Storm::Answers() {
  answers_ += informSender_.TakeAll();
  return answers_;
}

std::string Storm::Notification(bool inform) {
  std::vector<std::string> oids(Below(8));
  std::vector<std::string> texts(oids.size());
  for (std::string& oid : oids) oid = AnyOf(kOids);
  for (std::string& text : texts) text = AnyOf(kTexts);
  const std::string& community = AnyOf(kCommunities);
  const std::string message = NotificationBytes(community, oids, texts);
  return inform ? AsInform(message, community) : message;
}

void Storm::Send(const test::UdpSocket& sender, const std::string& datagram) {
  sender.Send(datagram);
  ++sent_;
}

}  // namespace sentrel
