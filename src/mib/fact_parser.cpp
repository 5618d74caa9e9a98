#include <algorithm>
#include <charconv>

#include "mib/bind.h"
#include "mib/fact_words.h"
#include "mib/facts.h"
#include "mib/oid_text.h"

namespace sentrel::mib {
namespace {

/// Splits off what precedes the first blank.
std::string_view TakeWord(std::string_view& line) {
  const size_t end = std::min(line.find(' '), line.size());
  const std::string_view word = line.substr(0, end);
  line.remove_prefix(std::min(end + 1, line.size()));
  return word;
}

template <typename Number>
bool Read(std::string_view text, Number& number) {
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc() && end == text.data() + text.size();
}

template <typename Words>
size_t IndexOf(const Words& words, std::string_view word) {
  return static_cast<size_t>(std::find(words.begin(), words.end(), word) - words.begin());
}

bool IsName(std::string_view word) {
  return !word.empty() && std::all_of(word.begin(), word.end(), [](char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-' ||
           c == '_';
  });
}

class Parser {
 public:
  explicit Parser(Arena& arena) : arena_(arena) {}

  ParsedFile Parse(std::string_view text) {
    while (!text.empty()) {
      ++line_;
      const size_t end = std::min(text.find('\n'), text.size());
      std::string_view line = text.substr(0, end);
      if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
      if (!line.empty() && !ReadLine(line)) Report("is no line of a fact file");
      text.remove_prefix(std::min(end + 1, text.size()));
    }
    if (module_.name.empty()) {
      Report("no module in this file");
    } else {
      file_.modules.push_back(Bind(module_, arena_));
    }
    return std::move(file_);
  }

 private:
  void Report(std::string text) {
    if (file_.messages.size() < 100) file_.messages.push_back({{}, line_, std::move(text)});
  }

  bool ReadLine(std::string_view line) {
    if (line.starts_with("  ")) return ReadValue(line.substr(2));
    const std::string_view word = TakeWord(line);
    if (word == "module") return ReadModule(line);
    const size_t kind = IndexOf(kKindWords, word);
    if (module_.name.empty() || kind == kKindWords.size()) return false;
    DraftDefinition definition;
    definition.kind = static_cast<Kind>(kind);
    definition.line = line_;
    if (definition.kind != Kind::Type && !ReadOid(TakeWord(line), definition)) return false;
    const std::string_view name = TakeWord(line);
    if (!IsName(name) || !ReadSyntax(line, definition)) return false;
    definition.name = arena_.Keep(name);
    module_.definitions.push_back(definition);
    return true;
  }

  bool ReadModule(std::string_view line) {
    if (!module_.name.empty()) return false;
    const std::string_view name = TakeWord(line);
    if (!IsName(name) || !Read(line, module_.lastUpdated)) return false;
    module_.name = arena_.Keep(name);
    module_.line = line_;
    return true;
  }

  bool ReadOid(std::string_view text, DraftDefinition& definition) {
    const OidText oid(text);
    definition.numbers = {static_cast<std::uint32_t>(module_.numbers.size()),
                          static_cast<std::uint32_t>(oid.Numbers().size())};
    module_.numbers.insert(module_.numbers.end(), oid.Numbers().begin(), oid.Numbers().end());
    return oid.IsOid();
  }

  bool ReadSyntax(std::string_view line, DraftDefinition& definition) {
    if (line.empty()) return definition.kind != Kind::Type;
    const std::string_view word = TakeWord(line);
    if (const size_t colon = word.find(':'); colon != std::string_view::npos) {
      definition.typeName = arena_.Keep(word.substr(colon + 1));
      const std::string_view module = arena_.Keep(word.substr(0, colon));
      if (!IsName(definition.typeName) || !IsName(module)) return false;
      if (module != module_.name) Import(definition.typeName, module);
      return line.empty();
    }
    const size_t base = IndexOf(kBaseWords, word);
    if (base == kBaseWords.size()) return false;
    definition.base = static_cast<BaseType>(base);
    if (line.size() >= 2 && line.front() == '"' && line.back() == '"') {
      definition.hint = arena_.Keep(line.substr(1, line.size() - 2));
      return true;
    }
    return line.empty();
  }

  void Import(std::string_view name, std::string_view module) {
    const bool known = std::any_of(module_.imports.begin(), module_.imports.end(),
                                   [&](const auto& other) { return other.name == name; });
    if (!known) module_.imports.push_back({name, module, line_});
  }

  bool ReadValue(std::string_view line) {
    NamedValue value;
    if (module_.definitions.empty() || !Read(TakeWord(line), value.value) || !IsName(line)) {
      return false;
    }
    Span& values = module_.definitions.back().values;
    if (values.count == 0) values.begin = static_cast<std::uint32_t>(module_.values.size());
    ++values.count;
    value.label = arena_.Keep(line);
    module_.values.push_back(value);
    return true;
  }

  Arena& arena_;
  ModuleDraft module_;
  ParsedFile file_;
  std::uint32_t line_ = 0;
};

}  // namespace

ParsedFile ParseFacts(std::string_view text, Arena& arena) {
  return Parser(arena).Parse(text);
}

}  // namespace sentrel::mib
