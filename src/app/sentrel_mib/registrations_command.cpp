#include <charconv>
#include <fstream>
#include <map>
#include <stdexcept>

#include "commands.h"
#include "common/atomic_file.h"
#include "common/failure.h"
#include "mib/enterprise.h"

namespace sentrel::app {
namespace {

constexpr std::uint32_t kNumbersInALine = 10;

/// Names of enterprises by their numbers. A line is "9<tab>ciscoSystems # a comment".
std::map<std::uint32_t, std::string> ReadNames(std::istream& list) {
  std::map<std::uint32_t, std::string> names;
  for (std::string line; std::getline(list, line);) {
    std::uint32_t number = 0;
    const auto [end, error] = std::from_chars(line.data(), line.data() + line.size(), number);
    const auto length = static_cast<size_t>(end - line.data());
    if (error != std::errc() || number == mib::kNoEnterprise) continue;
    std::string name =
        mib::EnterpriseName(std::string_view(line).substr(length, line.find('#') - length));
    if (!name.empty()) names.emplace(number, std::move(name));
  }
  return names;
}

/// As lines of ten numbers each, with a dash where there is no name.
std::string FactsOf(const std::map<std::uint32_t, std::string>& names) {
  std::string facts = "module ENTERPRISE-NUMBERS 0\nbelow 1.3.6.1.4.1\n";
  for (auto name = names.begin(); name != names.end();) {
    std::uint32_t number = name->first - name->first % kNumbersInALine;
    const auto end = names.lower_bound(number + kNumbersInALine);
    facts.append("labels ").append(std::to_string(number));
    for (; name != end; ++number) {
      facts.append(" ").append(name->first == number ? name->second : "-");
      if (name->first == number) ++name;
    }
    facts += '\n';
  }
  return facts;
}

}  // namespace

int WriteRegistrations(const Arguments& arguments) {
  if (arguments.rest.size() != 1 || arguments.output.empty()) {
    throw std::invalid_argument("-o and a file are needed");
  }
  std::ifstream list(arguments.rest.front());
  if (!list) throw Failure(arguments.rest.front() + " cannot be read");
  WriteFile(arguments.output, FactsOf(ReadNames(list)));
  return 0;
}

}  // namespace sentrel::app
