#include "mib/lookup.h"

#include <iostream>

#include "commands.h"
#include "common/failure.h"
#include "surroundings.h"

namespace sentrel::app {
namespace {

/// Names OIDs out of a database of which only what is read is checked for damage.
class Namer {
 public:
  explicit Namer(const Arguments& arguments)
      : folders_(arguments.folders), wantsAll_(arguments.all) {}

  void Print(const std::string& oid) {
    std::string line;
    try {
      if (database_ == nullptr) database_ = Open(mib::DamageCheck::WhenRead);
      line = LineOf(oid);
    } catch (const Failure&) {
      // Damage is found at once now, and the user's image made anew.
      database_ = Open(mib::DamageCheck::AtOnce);
      line = LineOf(oid);
    }
    std::cout << line;
  }

 private:
  std::shared_ptr<const mib::Database> Open(mib::DamageCheck check) const {
    return folders_.empty() ? ProgramDatabase(check) : DatabaseWith(folders_, check);
  }

  std::string LineOf(const std::string& oid) const {
    if (wantsAll_) return LinesOf(mib::LookUpAll(*database_, oid), oid);
    const mib::Lookup found = mib::LookUp(*database_, oid);
    return oid + '\t' + found.name + '\t' + mib::ListOf(found.type) + '\n';
  }

  static std::string LinesOf(const std::vector<mib::Answer>& answers, const std::string& oid) {
    std::string lines;
    for (const mib::Answer& answer : answers) {
      lines.append(oid).append("\t").append(answer.name).append("\t").append(answer.module);
      lines.append("\t").append(mib::ListOf(answer.type)).append("\n");
    }
    return lines;
  }

  const std::vector<std::string>& folders_;
  const bool wantsAll_;
  std::shared_ptr<const mib::Database> database_;
};

}  // namespace

int LookUpOids(const Arguments& arguments) {
  Namer namer(arguments);
  for (const std::string& oid : arguments.rest) namer.Print(oid);
  if (!arguments.rest.empty()) return 0;
  for (std::string line; std::getline(std::cin, line);) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    if (!line.empty()) namer.Print(line);
  }
  return 0;
}

}  // namespace sentrel::app
