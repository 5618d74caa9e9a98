#include "settings/pasted_users.h"

#include <fmt/format.h>

#include <optional>
#include <utility>

#include "common/text.h"
#include "settings/pasted_command.h"
#include "settings/pasted_statement.h"
#include "settings/version3_user_check.h"

namespace sentrel {
namespace {

constexpr std::size_t kLongestText = 65'536;
constexpr const char* kTooLong =
    "This is too much text. Please copy only the lines that create users.";
constexpr const char* kOpenQuotation = "A closing quotation mark is missing.";

enum class Form { kCreateUser, kDeviceCommand, kStatement };

struct Beginning {
  Form form;
  std::vector<std::string> words;
};

const std::vector<Beginning>& Beginnings() {
  static const std::vector<Beginning> beginnings = {
      {Form::kCreateUser, {"createuser"}},
      {Form::kDeviceCommand, {"snmp-server", "user"}},
      {Form::kDeviceCommand, {"snmpv3", "user"}},
      {Form::kDeviceCommand, {"snmp-agent", "usm-user", "v3"}},
      {Form::kStatement, {"set", "snmp", "v3", "usm"}},
  };
  return beginnings;
}

/// A prompt may stand in front of the word, without a blank.
PastedWord WithoutPrompt(PastedWord word) {
  const auto end = word.text.find_last_of("#>]$");
  if (end != std::string::npos) word.text.erase(0, end + 1);
  return word;
}

bool BeginsAt(std::size_t at, const std::vector<PastedWord>& words, const Beginning& beginning) {
  if (words.size() - at < beginning.words.size()) return false;
  for (std::size_t i = 0; i < beginning.words.size(); ++i) {
    const PastedWord& word = words[at + i];
    if (!(i == 0 ? WithoutPrompt(word) : word).Is(beginning.words[i])) return false;
  }
  return true;
}

/// What creates a user, and the number of the first word behind it.
std::optional<std::pair<Form, std::size_t>> FindBeginning(const std::vector<PastedWord>& words) {
  for (std::size_t at = 0; at < words.size(); ++at) {
    if (words[at].Is("no") || words[at].Is("undo")) return std::nullopt;
    for (const Beginning& beginning : Beginnings()) {
      if (BeginsAt(at, words, beginning))
        return std::pair(beginning.form, at + beginning.words.size());
    }
  }
  return std::nullopt;
}

/// Whether a command is about another version of SNMP, whose users are communities. `name` is the
/// number of the user's name.
bool IsOfOldVersion(const std::vector<PastedWord>& words, std::size_t name) {
  for (std::size_t i = name + 1; i < words.size(); ++i) {
    if (words[i].Is("v3") || words[i].Is("auth")) return false;
    if (words[i].Is("v1") || words[i].Is("v2c")) return true;
  }
  return false;
}

/// The words of a line, if a closing quotation mark is missing up to the one that opens it.
std::vector<PastedWord> WordsBeforeQuotation(std::string_view line) {
  return *WordsOf(line.substr(0, line.find_first_of("\"'")), Backslash::kLetter);
}

void ReadLine(std::string_view line, std::vector<PastedUser>& users) {
  const auto words = WordsOf(line, Backslash::kLetter);
  const auto& readable = words ? *words : WordsBeforeQuotation(line);
  const auto beginning = FindBeginning(readable);
  if (!beginning) return;
  const auto& [form, first] = *beginning;
  if (form == Form::kCreateUser) {
    const auto escaped = WordsOf(line, Backslash::kEscape);
    const auto again = escaped ? FindBeginning(*escaped) : std::nullopt;
    users.push_back(again ? ReadCreateUser({*escaped, again->second})
                          : PastedUser{{}, kOpenQuotation});
  } else if (!words) {
    users.push_back({{}, kOpenQuotation});
  } else if (form == Form::kStatement) {
    ReadStatement({*words, first}, users);
  } else if (!IsOfOldVersion(*words, first)) {
    users.push_back(ReadDeviceCommand({*words, first}));
  }
}

bool IsComment(std::string_view line) {
  const auto first = line.find_first_not_of(" \t");
  return first != std::string_view::npos && (line[first] == '#' || line[first] == '!');
}

}  // namespace

PastedUsers ReadPastedUsers(std::string_view text) {
  if (text.size() > kLongestText) return {{}, {kTooLong}};
  std::vector<PastedUser> found;
  for (const std::string_view line : SplitLines(text))
    if (!IsComment(line)) ReadLine(line, found);
  PastedUsers pasted;
  for (PastedUser& user : found) {
    const std::string problem = user.problem.empty() ? ProblemOf(user.entry) : user.problem;
    if (problem.empty()) {
      pasted.users.push_back(std::move(user.entry));
    } else {
      const std::string& name = user.entry.user.name;
      pasted.problems.push_back(name.empty() ? problem : fmt::format("{}: {}", name, problem));
    }
  }
  return pasted;
}

}  // namespace sentrel
