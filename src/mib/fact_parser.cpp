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
    EndModule();
    if (file_.modules.empty()) Report("no module in this file");
    return std::move(file_);
  }

 private:
  void Report(std::string text) {
    if (file_.messages.size() < 100) file_.messages.push_back({{}, line_, std::move(text)});
  }

  bool ReadLine(std::string_view line) {
    if (line.starts_with("  ")) return ReadDetail(line.substr(2));
    const std::string_view word = TakeWord(line);
    if (word == kModuleWord) return ReadModule(line);
    if (word == kBelowWord) return ReadBelow(line);
    if (word == kLabelsWord) return ReadLabels(line);
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

  bool ReadBelow(std::string_view line) {
    const OidText oid(line);
    below_.assign(oid.Numbers().begin(), oid.Numbers().end());
    return oid.IsOid();
  }

  /// Names of numbers one after the other.
  bool ReadLabels(std::string_view line) {
    std::uint32_t number = 0;
    if (module_.name.empty() || below_.empty() || !Read(TakeWord(line), number)) return false;
    for (; !line.empty(); ++number) {
      const std::string_view name = TakeWord(line);
      if (name == "-") continue;
      if (!IsName(name)) return false;
      DraftDefinition label;
      label.kind = Kind::Label;
      label.line = line_;
      label.name = arena_.Keep(name);
      auto& numbers = module_.numbers;
      label.numbers = {static_cast<std::uint32_t>(numbers.size()),
                       static_cast<std::uint32_t>(below_.size() + 1)};
      numbers.insert(numbers.end(), below_.begin(), below_.end());
      numbers.push_back(number);
      module_.definitions.push_back(label);
    }
    return true;
  }

  void EndModule() {
    if (!module_.name.empty()) file_.modules.push_back(Bind(module_, arena_));
    module_ = {};
    below_.clear();
    related_ = {};
  }

  bool ReadModule(std::string_view line) {
    EndModule();
    const std::string_view name = TakeWord(line);
    if (!IsName(name) || !Read(line, module_.lastUpdated)) return false;
    module_.name = arena_.Keep(name);
    module_.line = line_;
    return true;
  }

  bool ReadOid(std::string_view text, DraftDefinition& definition) {
    auto& numbers = module_.numbers;
    const size_t begin = numbers.size();
    if (text.starts_with('.')) {
      if (below_.empty()) return false;
      numbers.insert(numbers.end(), below_.begin(), below_.end());
    }
    const OidText oid(text);
    numbers.insert(numbers.end(), oid.Numbers().begin(), oid.Numbers().end());
    definition.numbers = {static_cast<std::uint32_t>(begin),
                          static_cast<std::uint32_t>(numbers.size() - begin)};
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

  /// A line that tells more of the definition above it.
  bool ReadDetail(std::string_view line) {
    if (module_.definitions.empty()) return false;
    const std::string_view word = TakeWord(line);
    if (word == kRelatedWord) return ReadRelated(line);
    if (word == kSameWord) return ReadSame(line);
    if (word != kUnitsWord) return ReadValue(word, line);
    module_.definitions.back().units = arena_.Keep(line);
    return !line.empty();
  }

  bool ReadSame(std::string_view line) {
    module_.definitions.back().related = related_;
    return line.empty() && related_.count > 0;
  }

  bool ReadRelated(std::string_view line) {
    Span& related = related_;
    related = {static_cast<std::uint32_t>(module_.related.size()), 0};
    while (!line.empty()) {
      std::string_view name = TakeWord(line);
      std::string_view module;
      if (const size_t colon = name.find(':'); colon != std::string_view::npos) {
        module = name.substr(0, colon);
        name.remove_prefix(colon + 1);
        if (!IsName(module)) return false;
      }
      if (!IsName(name)) return false;
      name = arena_.Keep(name);
      if (!module.empty()) Import(name, arena_.Keep(module));
      module_.related.push_back(name);
      ++related.count;
    }
    module_.definitions.back().related = related;
    return related.count > 0;
  }

  bool ReadValue(std::string_view number, std::string_view line) {
    NamedValue value;
    if (!Read(number, value.value) || !IsName(line)) return false;
    Span& values = module_.definitions.back().values;
    if (values.count == 0) values.begin = static_cast<std::uint32_t>(module_.values.size());
    ++values.count;
    value.label = arena_.Keep(line);
    module_.values.push_back(value);
    return true;
  }

  Arena& arena_;
  /// What a dot at the beginning of an OID stands for.
  std::vector<std::uint32_t> below_;
  /// The last list of objects.
  Span related_;
  ModuleDraft module_;
  ParsedFile file_;
  std::uint32_t line_ = 0;
};

}  // namespace

ParsedFile ParseFacts(std::string_view text, Arena& arena) {
  return Parser(arena).Parse(text);
}

}  // namespace sentrel::mib
