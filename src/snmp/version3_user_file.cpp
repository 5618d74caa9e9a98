#include "snmp/version3_user_file.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <optional>
#include <sstream>

#include "common/atomic_file.h"

namespace sentrel {
namespace {

constexpr mode_t kMode = 0600;
constexpr mode_t kOthers = 077;
constexpr off_t kLargestFile = 8 << 20;
constexpr std::size_t kLongestName = 32;
constexpr std::size_t kShortestEngine = 5;
constexpr std::size_t kLongestEngine = 32;
constexpr char kHeader[] =
    "# Version 3 users. Sentrel rewrites this file: change the users in its settings.\n";
constexpr std::array<std::string_view, 3> kLevels = {"noauth", "auth", "priv"};

std::string Hex(std::string_view bytes) {
  std::string text = "0x";
  for (const char byte : bytes) text += fmt::format("{:02x}", static_cast<unsigned char>(byte));
  return text;
}

int DigitOf(char digit) {
  if (digit >= '0' && digit <= '9') return digit - '0';
  if (digit >= 'a' && digit <= 'f') return digit - 'a' + 10;
  return -1;
}

std::optional<std::string> BytesOf(std::string_view text) {
  if (!text.starts_with("0x") || text.size() % 2 != 0) return std::nullopt;
  std::string bytes;
  for (std::size_t i = 2; i < text.size(); i += 2) {
    const int high = DigitOf(text[i]);
    const int low = DigitOf(text[i + 1]);
    if (high < 0 || low < 0) return std::nullopt;
    bytes += static_cast<char>(high << 4 | low);
  }
  return bytes;
}

/// The words of a line, taken from the front. A word that is missing is empty.
class Words {
 public:
  explicit Words(const std::string& line) : text_(line) {}
  std::string Take() {
    std::string word;
    text_ >> word;
    return word;
  }
  /// Whether the next word is this one; it is taken then.
  bool Skip(std::string_view expected) {
    const auto place = text_.tellg();
    if (Take() == expected) return true;
    text_.clear();
    text_.seekg(place);
    return false;
  }
  bool AtEnd() { return Take().empty(); }

 private:
  std::istringstream text_;
};

std::optional<SecurityLevel> LevelNamed(std::string_view name) {
  for (std::size_t i = 0; i < kLevels.size(); ++i) {
    if (kLevels.at(i) == name) return static_cast<SecurityLevel>(i + 1);
  }
  return std::nullopt;
}

std::optional<std::string> TakeKey(Words& words, std::size_t length) {
  auto key = words.Skip("-m") ? BytesOf(words.Take()) : std::nullopt;
  return key && key->size() == length ? key : std::nullopt;
}

/// [AUTHENTICATION -m KEY [PRIVACY -m KEY]]
bool TakeProtocols(Words& words, KeyedUser& keyed) {
  const std::string authentication = words.Take();
  if (authentication.empty()) return true;
  const auto auth = AuthenticationOfWord(authentication);
  const auto authKey = auth ? TakeKey(words, KeyLength(*auth)) : std::nullopt;
  if (!authKey) return false;
  keyed.user.authentication = *auth;
  keyed.authKey = *authKey;
  const std::string privacy = words.Take();
  if (privacy.empty()) return true;
  const auto priv = PrivacyOfWord(privacy);
  const auto privKey = priv ? TakeKey(words, KeyLength(*auth)) : std::nullopt;
  if (!privKey) return false;
  keyed.user.privacy = *priv;
  keyed.privKey = *privKey;
  return words.AtEnd();
}

bool IsName(const std::optional<std::string>& name) {
  return name && !name->empty() && name->size() <= kLongestName &&
         name->find('\0') == std::string::npos;
}

/// [-e ENGINE]
bool TakeEngine(Words& words, std::string& engine) {
  if (!words.Skip("-e")) return true;
  engine = BytesOf(words.Take()).value_or("");
  return engine.size() >= kShortestEngine && engine.size() <= kLongestEngine;
}

/// What the digest cannot show to be genuine is not taken from any engine.
bool IsSafe(const KeyedUser& keyed) {
  return !keyed.user.engine.empty() ||
         (!keyed.authKey.empty() && keyed.user.leastLevel != SecurityLevel::kNoAuthNoPriv);
}

std::optional<KeyedUser> ReadUser(const std::string& line) {
  Words words(line);
  KeyedUser keyed;
  if (!words.Skip("createUser") || !TakeEngine(words, keyed.user.engine) || !words.Skip("-l")) {
    return std::nullopt;
  }
  const auto level = LevelNamed(words.Take());
  const auto name = BytesOf(words.Take());
  if (!level || !IsName(name)) return std::nullopt;
  keyed.user.leastLevel = *level;
  keyed.user.name = *name;
  if (!TakeProtocols(words, keyed) || !IsSafe(keyed)) return std::nullopt;
  return keyed;
}

std::string UserLine(const KeyedUser& keyed) {
  const Version3User& user = keyed.user;
  std::string line = "createUser";
  if (!user.engine.empty()) line += " -e " + Hex(user.engine);
  line += fmt::format(" -l {} {}", kLevels.at(static_cast<std::size_t>(user.leastLevel) - 1),
                      Hex(user.name));
  if (!keyed.authKey.empty()) {
    line += fmt::format(" {} -m {}", WordOf(user.authentication), Hex(keyed.authKey));
  }
  if (!keyed.privKey.empty()) {
    line += fmt::format(" {} -m {}", WordOf(user.privacy), Hex(keyed.privKey));
  }
  return line + "\n";
}

std::string WhyNot(int error) {
  return error == ELOOP ? "it is a symbolic link" : std::strerror(error);
}

/// Empty where the file may be trusted.
std::string WhyNotTrusted(int descriptor) {
  struct stat status {};
  if (fstat(descriptor, &status) != 0) return WhyNot(errno);
  if (!S_ISREG(status.st_mode)) return "it is not a plain file";
  if (status.st_uid != geteuid()) return "it belongs to somebody else";
  if (status.st_size > kLargestFile) return "it is too large";
  const bool isOpen = (status.st_mode & kOthers) != 0;
  return isOpen && fchmod(descriptor, kMode) != 0 ? WhyNot(errno) : "";
}

/// Returns why not; empty where it could.
std::string ReadAll(int descriptor, std::string& text) {
  std::array<char, 1 << 14> buffer;
  for (;;) {
    const ssize_t count = read(descriptor, buffer.data(), buffer.size());
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return WhyNot(errno);
    if (count == 0) return "";
    text.append(buffer.data(), count);
  }
}

std::string Unreadable(const std::string& path, const std::string& reason) {
  return "The version 3 users in " + path + " cannot be read: " + reason + ".";
}

}  // namespace

Version3UserFile ReadVersion3Users(const std::string& text) {
  Version3UserFile file;
  std::istringstream lines(text);
  std::size_t number = 0;
  for (std::string line; std::getline(lines, line);) {
    ++number;
    if (line.empty() || line.front() == '#') continue;
    if (auto user = ReadUser(line)) {
      file.users.push_back(*std::move(user));
    } else if (file.problem.empty()) {
      file.problem = fmt::format("line {} is damaged", number);
    }
  }
  return file;
}

std::string Version3UsersText(const std::vector<KeyedUser>& users) {
  std::string text = kHeader;
  for (const KeyedUser& user : users) text += UserLine(user);
  return text;
}

Version3UserFile LoadVersion3Users(const std::string& path) {
  const int descriptor = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK);
  if (descriptor < 0) {
    const int error = errno;
    if (error == ENOENT) return {};
    return {{}, Unreadable(path, WhyNot(error))};
  }
  std::string text;
  std::string reason = WhyNotTrusted(descriptor);
  if (reason.empty()) reason = ReadAll(descriptor, text);
  close(descriptor);
  if (!reason.empty()) return {{}, Unreadable(path, reason)};
  Version3UserFile file = ReadVersion3Users(text);
  if (!file.problem.empty()) file.problem = Unreadable(path, file.problem);
  return file;
}

void SaveVersion3Users(const std::string& path, const std::vector<KeyedUser>& users) {
  MakeFolderFor(path);
  WriteFile(path, Version3UsersText(users), kMode);
}

}  // namespace sentrel
