#include "reception/watch.h"

#include <algorithm>
#include <utility>

#include "common/failure.h"
#include "reception/reasons.h"

namespace sentrel {
namespace {

std::string InLowerCase(std::string_view reason) {
  std::string text(reason);
  if (text != ReasonText(Outcome::kNotSnmp)) text[0] = static_cast<char>(text[0] | 0x20);
  return text;
}

}  // namespace

void Watch::Start(Clock::time_point now) {
  seen_.clear();
  forgotten_ = 0;
  missed_ = 0;
  end_ = now + kLongest;
  monitor_.SetWatching(true);
}

void Watch::Stop() {
  if (!end_) return;
  end_.reset();
  monitor_.SetWatching(false);
}

std::chrono::seconds Watch::Left(Clock::time_point now) const {
  using std::chrono::seconds;
  if (!end_) return seconds(0);
  return std::max(seconds(0), std::chrono::duration_cast<seconds>(*end_ - now));
}

void Watch::Look(Clock::time_point now) {
  if (!end_) return;
  for (SeenDatagram& seen : monitor_.TakeWatched()) {
    seen_.push_back(Judge(std::move(seen)));
    if (seen_.size() <= kMostKept) continue;
    seen_.pop_front();
    ++forgotten_;
  }
  missed_ = monitor_.MissedByWatch();
  if (now >= *end_) Stop();
}

WatchedDatagram Watch::Judge(SeenDatagram seen) const {
  WatchedDatagram judged{.seen = std::move(seen), .notification = "", .verdict = "", .cure = {}};
  judged.notification = NameOf(judged.seen.notification);
  const std::string& sender = judged.seen.sender;
  const CommunityStrings& communities = *settings_.CommunityStrings();
  const auto is = [&judged](std::string verdict, Cure cure) {
    judged.verdict = std::move(verdict);
    judged.cure = cure;
  };
  if (judged.seen.outcome != Outcome::kAccepted) {
    const std::string& hint = judged.seen.hint;
    is(InLowerCase(ReasonText(judged.seen.outcome)) + (hint.empty() ? "" : ". " + hint),
       IsAboutUsers(judged.seen.outcome) ? Cure::kUsers : Cure::kNone);
  } else if (settings_.Paused()) {
    is("paused", Cure::kNone);
  } else if (!settings_.AcceptsDevice(sender)) {
    is("no device filter fits " + sender, Cure::kDeviceFilter);
  } else if (communities.Count() > 0 && !communities.Exists(judged.seen.community)) {
    is("community not in the list", Cure::kCommunityFilter);
  } else {
    is("shown", Cure::kNone);
  }
  return judged;
}

std::string Watch::NameOf(const std::string& oid) const {
  std::string name = oid;
  if (!oid.empty()) {
    Attempt([&] {
      const auto object = mibs_.MakeOIDObject();
      object->SetOID(oid);
      name = object->Name();
    });
  }
  return name;
}

}  // namespace sentrel
