#include "snmp/configured_users.h"

#include <string>
#include <vector>

#include "snmp/net_snmp.h"

namespace sentrel {
namespace {

constexpr char kName[] = "sentrel";

/// createUser lines, kept until all files are read: the library reads its state last, and the
/// keys in there must not win over a passphrase that was changed since.
std::vector<std::string>& CreateUserLines() {
  static std::vector<std::string> lines;
  return lines;
}

void KeepCreateUser(const char*, char* line) {
  CreateUserLines().emplace_back(line);
}

/// The words of a line, as the library reads them.
std::vector<std::string> WordsOf(const std::string& line) {
  std::vector<std::string> words;
  std::string word(line.size() + 1, '\0');
  for (const char* rest = line.c_str(); rest != nullptr && *rest != '\0';) {
    rest = copy_nword_const(rest, word.data(), static_cast<int>(word.size()));
    words.emplace_back(word.c_str());
  }
  return words;
}

/// The library reads on behind the end of a line that has a user's name and one word more.
bool IsReadable(const std::string& line) {
  const std::vector<std::string> words = WordsOf(line);
  std::size_t name = 0;
  if (words.size() > name && words[name] == "-M") ++name;
  if (words.size() > name && words[name] == "-e") name += 2;
  return words.size() > name && words.size() != name + 2;
}

LeastLevels& AuthUserLines() {
  static LeastLevels levels;
  return levels;
}

void KeepAuthUser(const char*, char* line) {
  TakeAuthUser(line, AuthUserLines());
}

}  // namespace

void ReadConfiguredUsers() {
  CreateUserLines().clear();
  AuthUserLines().clear();
  register_config_handler(kName, "createUser", KeepCreateUser, nullptr, nullptr);
  register_config_handler(kName, "authUser", KeepAuthUser, nullptr, nullptr);
}

void CreateConfiguredUsers() {
  // The library changes the line that it reads.
  for (std::string line : CreateUserLines()) {
    if (IsReadable(line)) usm_parse_create_usmUser("createUser", line.data());
  }
}

const LeastLevels& ConfiguredLevels() {
  return AuthUserLines();
}

}  // namespace sentrel
