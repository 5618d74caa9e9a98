#include "mib/syntax.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <utility>

namespace sentrel::mib {
namespace {

/// A label and its number: "up(1)".
bool ReadNamedValue(TokenReader& reader, ModuleDraft& module) {
  const Token label = reader.Take();
  if (label.kind != TokenKind::Word && label.kind != TokenKind::Number) {
    reader.Report(label, Quote(label.text) + " where a label should stand");
    return false;
  }
  if (!reader.TakeMark('(')) {
    reader.Report(label, "label " + Quote(label.text) + " without a number");
    return true;
  }
  const Token number = reader.Take();
  std::int64_t value = 0;
  const bool fits =
      ReadNumber(number.text, true, value) && value <= std::numeric_limits<std::int32_t>::max();
  if (number.kind == TokenKind::Number && fits) {
    module.values.push_back({static_cast<std::int32_t>(value), reader.Keep(label.text)});
  } else {
    reader.Report(number,
                  Quote(number.text) + " is not a number for the label " + Quote(label.text));
  }
  if (!reader.TakeMark(')')) reader.Report(reader.Peek(), "no ')' behind the number of a label");
  return true;
}

/// Behind "{": the labels up to and including "}". Where `keep` is unset they are only read.
void ReadNamedValues(TokenReader& reader, ModuleDraft& module, DraftDefinition& definition,
                     bool keep) {
  const auto begin = module.values.size();
  while (!reader.TakeMark('}')) {
    if (reader.AtEnd() || reader.Peek().kind == TokenKind::Assign ||
        IsDefiningMacro(reader.Peek().keyword)) {
      reader.Report(reader.Peek(), "no '}' behind named values");
      break;
    }
    if (reader.TakeMark(',')) continue;
    if (!ReadNamedValue(reader, module)) continue;
  }
  if (!keep) module.values.resize(begin);
  definition.values = {static_cast<std::uint32_t>(begin),
                       static_cast<std::uint32_t>(module.values.size() - begin)};
}

/// What may stand behind the name of a type: named values and ranges.
void ReadRestriction(TokenReader& reader, ModuleDraft& module, DraftDefinition& definition) {
  if (reader.TakeMark('{')) {
    ReadNamedValues(reader, module, definition, definition.base != BaseType::Bits);
  }
  while (reader.TakeMark('(')) reader.SkipPast('(', ')');
}

/// Behind SEQUENCE or CHOICE.
void ReadConstructed(TokenReader& reader, DraftDefinition& definition) {
  definition.base = BaseType::Row;
  while (reader.TakeMark('(')) reader.SkipPast('(', ')');
  reader.TakeKeyword(Keyword::Size);
  while (reader.TakeMark('(')) reader.SkipPast('(', ')');
  if (reader.TakeKeyword(Keyword::Of)) {
    reader.Take();
    definition.base = BaseType::Table;
  } else if (reader.TakeMark('{')) {
    reader.SkipPast('{', '}');
  }
}

/// The words of an OID value as they are read.
class OidValue {
 public:
  OidValue(TokenReader& reader, ModuleDraft& module, DraftDefinition& definition)
      : reader_(reader), module_(module), definition_(definition) {
    definition_.numbers.begin = static_cast<std::uint32_t>(module.numbers.size());
  }

  /// Up to and including "}".
  bool Read() {
    while (!reader_.TakeMark('}')) {
      const Token token = reader_.Peek();
      if (token.kind == TokenKind::Number) {
        if (!Number(reader_.Take())) return GiveUp();
      } else if (token.kind == TokenKind::Word && !IsDefiningMacro(token.keyword)) {
        if (!Word(reader_.Take())) return GiveUp();
      } else if (token.IsMark(',')) {
        reader_.Take();
      } else {
        reader_.Report(token, "no '}' behind the OID of " + Quote(definition_.name));
        return Count() > 0 || !definition_.parentName.empty();
      }
    }
    if (Count() > 0 || !definition_.parentName.empty()) return true;
    reader_.Report(reader_.Peek(), "the OID of " + Quote(definition_.name) + " is empty");
    return false;
  }

 private:
  bool GiveUp() {
    reader_.SkipPast('{', '}');
    return false;
  }

  std::uint32_t Count() const { return definition_.numbers.count; }

  bool Number(const Token& token) {
    std::int64_t number = 0;
    if (!ReadNumber(token.text, false, number)) {
      reader_.Report(token, Quote(token.text) + " is no number of an OID");
      return false;
    }
    module_.numbers.push_back(static_cast<std::uint32_t>(number));
    ++definition_.numbers.count;
    return true;
  }

  /// "name", "Module.name" or "name(3)".
  bool Word(Token name) {
    if (reader_.TakeMark('.')) name = reader_.Take();
    const bool isFirst = Count() == 0 && definition_.parentName.empty();
    if (!reader_.TakeMark('(')) {
      StartFrom(name);
      return true;
    }
    const Token number = reader_.Take();
    if (!reader_.TakeMark(')')) reader_.Report(number, "no ')' within an OID");
    if (isFirst && !IsRoot(name.text)) {
      StartFrom(name);
      return true;
    }
    if (!Number(number)) return false;
    Label(name);
    return true;
  }

  static bool IsRoot(std::string_view name) {
    return name == "iso" || name == "ccitt" || name == "joint-iso-ccitt" || name == "itu-t" ||
           name == "joint-iso-itu-t";
  }

  /// A bare name tells the whole path up to it, whatever precedes it.
  void StartFrom(const Token& name) {
    definition_.parentName = reader_.Keep(name.text);
    definition_.numbers = {static_cast<std::uint32_t>(module_.numbers.size()), 0};
  }

  void Label(const Token& name) {
    DraftDefinition label;
    label.name = reader_.Keep(name.text);
    label.kind = Kind::Label;
    label.line = reader_.LineOf(name);
    label.parentName = definition_.parentName;
    label.numbers = definition_.numbers;
    module_.definitions.push_back(label);
  }

  TokenReader& reader_;
  ModuleDraft& module_;
  DraftDefinition& definition_;
};

}  // namespace

BaseType BaseTypeOf(Keyword name) {
  switch (name) {
    case Keyword::Integer:
    case Keyword::Integer32:
      return BaseType::Integer;
    case Keyword::Counter:
    case Keyword::Counter32:
      return BaseType::Counter32;
    case Keyword::Gauge:
    case Keyword::Gauge32:
    case Keyword::Unsigned32:
    case Keyword::UInteger32:
      return BaseType::Gauge32;
    case Keyword::TimeTicks:
      return BaseType::TimeTicks;
    case Keyword::IpAddress:
    case Keyword::NetworkAddress:
      return BaseType::IpAddress;
    case Keyword::Opaque:
      return BaseType::Opaque;
    case Keyword::Counter64:
      return BaseType::Counter64;
    case Keyword::Bits:
      return BaseType::Bits;
    default:
      return BaseType::None;
  }
}

bool ReadNumber(std::string_view text, bool allowNegative, std::int64_t& number) {
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) return false;
  const std::int64_t least = allowNegative ? std::numeric_limits<std::int32_t>::min() : 0;
  return number >= least && number <= std::numeric_limits<std::uint32_t>::max();
}

void ReadType(TokenReader& reader, ModuleDraft& module, DraftDefinition& definition) {
  if (reader.TakeMark('[')) reader.SkipPast('[', ']');
  reader.TakeKeyword(Keyword::Implicit);
  reader.TakeKeyword(Keyword::Explicit);
  if (reader.Peek().kind != TokenKind::Word) {
    reader.Report(reader.Peek(), Quote(reader.Peek().text) + " where a type should stand");
    return;
  }
  Token name = reader.Take();
  if (reader.TakeMark('.')) name = reader.Take();
  if (name.Is(Keyword::Sequence) || name.Is(Keyword::Choice)) {
    ReadConstructed(reader, definition);
    return;
  }
  if (name.Is(Keyword::Octet)) {
    reader.TakeKeyword(Keyword::String);
    definition.base = BaseType::OctetString;
  } else if (name.Is(Keyword::Object)) {
    reader.TakeKeyword(Keyword::Identifier);
    definition.base = BaseType::ObjectIdentifier;
  } else if (name.Is(Keyword::Bit)) {
    reader.TakeKeyword(Keyword::String);
    definition.base = BaseType::Bits;
  } else {
    definition.base = BaseTypeOf(name.keyword);
    if (definition.base == BaseType::None) definition.typeName = reader.Keep(name.text);
  }
  ReadRestriction(reader, module, definition);
}

bool ReadOid(TokenReader& reader, ModuleDraft& module, DraftDefinition& definition) {
  if (reader.TakeMark('{')) return OidValue(reader, module, definition).Read();
  if (reader.Peek().kind == TokenKind::Word) {
    definition.parentName = reader.Keep(reader.Take().text);
    return true;
  }
  reader.Report(reader.Peek(), "no OID for " + Quote(definition.name));
  return false;
}

}  // namespace sentrel::mib
