#include "mib/smi_parser.h"

#include <charconv>

#include "mib/bind.h"
#include "mib/syntax.h"
#include "mib/token_reader.h"

namespace sentrel::mib {
namespace {

Kind KindOf(Keyword macro) {
  switch (macro) {
    case Keyword::ObjectType:
      return Kind::Object;
    case Keyword::NotificationType:
    case Keyword::TrapType:
      return Kind::Notification;
    case Keyword::ModuleIdentity:
    case Keyword::ObjectIdentity:
      return Kind::Identity;
    default:
      return IsDefiningMacro(macro) ? Kind::Group : Kind::Value;
  }
}

/// "9611150000Z" or "199611150000Z" as 199611150000 (RFC 2578 section 2, ExtUTCTime).
std::uint64_t ReadDate(std::string_view text) {
  std::uint64_t date = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), date);
  if (error != std::errc()) return 0;
  const auto digits = end - text.data();
  constexpr std::uint64_t kCentury = 10'000'000'000;
  if (digits == 10) return date + (date / 100'000'000 >= 70 ? 19 : 20) * kCentury;
  return digits == 12 ? date : 0;
}

/// Whether the clause lists what Definition::related keeps.
bool ListsRelated(Kind kind, Keyword clause) {
  if (kind == Kind::Object) return clause == Keyword::Index || clause == Keyword::Augments;
  return kind == Kind::Notification && (clause == Keyword::Objects || clause == Keyword::Variables);
}

/// Whether the word may be the name of a module, or of something that a module defines.
bool IsName(const Token& word) {
  return word.kind == TokenKind::Word && !IsDefiningMacro(word.keyword) &&
         BaseTypeOf(word.keyword) == BaseType::None;
}

class Parser {
 public:
  Parser(std::string_view text, Reading reading, Arena& arena)
      : arena_(arena), reader_(text, reading, arena) {}

  /// All modules of the file.
  std::vector<Module> Parse() {
    std::vector<Module> modules;
    while (FindModule()) {
      modules.push_back(Bind(module_, arena_));
      module_ = {};
    }
    reader_.ReportOpenStrings();
    if (modules.empty()) reader_.Report({}, "no MIB module in this file");
    return modules;
  }

  TokenReader& Reader() { return reader_; }

 private:
  bool FindModule();
  bool SkipToBegin();
  void ReadBody();
  void ReadImports();
  void ReadStatement();
  void ReadValueOrOther(const Token& name);
  void ReadTypeAssignment(const Token& name);
  void ReadTextualConvention(DraftDefinition& type);
  void ReadMacro(const Token& name, const Token& macro);
  void ReadMacroValue(DraftDefinition& definition, const Token& macro, std::string_view enterprise);
  void SkipMacroDefinition();
  bool IsNextDefinition();
  std::string_view ReadEnterprise();
  void ReadRelated(DraftDefinition& definition);
  DraftDefinition NewDefinition(const Token& name, Kind kind);

  Arena& arena_;
  TokenReader reader_;
  ModuleDraft module_;
  /// The token before the next one, where it may turn out to be the name of a definition.
  Token previous_;
  /// The name of a module that began within another one.
  Token nextName_;
};

/// Reads on to "Name DEFINITIONS ::= BEGIN", past whatever text is around modules, and reads
/// that module.
bool Parser::FindModule() {
  reader_.SetStrings(false);
  Token name = nextName_;
  nextName_ = {};
  Token beforeBrace;
  while (!reader_.AtEnd()) {
    const Token token = reader_.Take();
    if (token.Is(Keyword::Definitions) && IsName(name) && SkipToBegin()) {
      module_.name = reader_.Keep(name.text);
      module_.line = reader_.LineOf(name);
      ReadBody();
      return true;
    }
    // The module's own OID may stand between its name and the keyword.
    if (token.IsMark('{')) beforeBrace = name;
    if (token.IsMark('}')) name = beforeBrace;
    if (token.kind == TokenKind::Word) name = token;
  }
  return false;
}

bool Parser::SkipToBegin() {
  const Token start = reader_.Peek();
  for (int words = 0; words < 4 && !reader_.AtEnd(); ++words) {
    if (reader_.Peek().Is(Keyword::Begin)) {
      reader_.SetStrings(true);
      reader_.Take();
      return true;
    }
    reader_.Take();
  }
  reader_.Rewind(start);
  return false;
}

void Parser::ReadBody() {
  previous_ = {};
  while (!reader_.AtEnd()) {
    const Token& token = reader_.Peek();
    if (token.Is(Keyword::End)) {
      reader_.SetStrings(false);
      reader_.Take();
      return;
    }
    if (token.Is(Keyword::Definitions)) {
      reader_.Report(token, "module " + Quote(module_.name) + " has no END");
      nextName_ = previous_;
      return;
    }
    ReadStatement();
  }
  reader_.Report(reader_.Peek(), "module " + Quote(module_.name) + " has no END");
}

void Parser::ReadStatement() {
  const Token name = reader_.Take();
  previous_ = name;
  if (name.kind != TokenKind::Word) {
    if (name.IsMark(';') || name.IsMark(',')) return;
    reader_.Report(name, Quote(name.text) + " where a definition should begin");
    while (!reader_.AtEnd() && !reader_.Peek().Is(Keyword::End) &&
           reader_.Peek().kind != TokenKind::Word) {
      reader_.Take();
    }
    return;
  }
  if (name.Is(Keyword::Imports)) return ReadImports();
  if (name.Is(Keyword::Exports)) {
    while (!reader_.AtEnd() && !reader_.Peek().Is(Keyword::Imports) && !reader_.TakeMark(';')) {
      reader_.Take();
    }
    return;
  }
  const Token& next = reader_.Peek();
  if (next.kind == TokenKind::Assign) return ReadTypeAssignment(name);
  if (next.Is(Keyword::Macro)) return SkipMacroDefinition();
  if (next.Is(Keyword::Object)) return ReadValueOrOther(name);
  if (next.Is(Keyword::Definitions) || next.Is(Keyword::End)) return;
  if (next.kind == TokenKind::Word) return ReadMacro(name, reader_.Take());
  if (next.IsMark('{')) {
    // Either the OID of a module that begins without an END before it, or nonsense.
    reader_.Take();
    reader_.SkipPast('{', '}');
    if (!reader_.Peek().Is(Keyword::Definitions))
      reader_.Report(name, Quote(name.text) + " defines nothing");
    return;
  }
  reader_.Report(name, Quote(name.text) + " defines nothing");
}

/// "a, b FROM Module" up to ";". A list without its ";" ends behind the last module named.
void Parser::ReadImports() {
  size_t named = module_.imports.size();
  Token listEnd = reader_.Peek();
  Token last;
  while (!reader_.AtEnd() && !reader_.TakeMark(';')) {
    const Token token = reader_.Take();
    if (token.Is(Keyword::From)) {
      const Token from = reader_.Take();
      const auto module = reader_.Keep(from.text);
      for (; named < module_.imports.size(); ++named) module_.imports[named].module = module;
      if (reader_.TakeMark('{')) reader_.SkipPast('{', '}');
      listEnd = reader_.Peek();
    } else if (token.kind == TokenKind::Assign || token.Is(Keyword::LastUpdated) ||
               token.Is(Keyword::Syntax) || token.Is(Keyword::Imports)) {
      reader_.Report(listEnd, "no ';' behind the imports");
      reader_.Rewind(listEnd);
      break;
    } else if (token.kind == TokenKind::Word) {
      last = token;
      if (IsName(token)) {
        module_.imports.push_back({reader_.Keep(token.text), {}, reader_.LineOf(token)});
      }
    }
  }
  if (named < module_.imports.size()) {
    module_.imports.resize(named);
    if (reader_.AtEnd()) reader_.Rewind(listEnd);
  }
}

DraftDefinition Parser::NewDefinition(const Token& name, Kind kind) {
  DraftDefinition definition;
  definition.name = reader_.Keep(name.text);
  definition.line = reader_.LineOf(name);
  definition.kind = kind;
  return definition;
}

/// "name OBJECT IDENTIFIER ::= { ... }".
void Parser::ReadValueOrOther(const Token& name) {
  reader_.Take();
  reader_.TakeKeyword(Keyword::Identifier);
  if (reader_.Peek().kind != TokenKind::Assign) {
    reader_.Report(reader_.Peek(), "no '::=' behind " + Quote(name.text) + " OBJECT IDENTIFIER");
  } else {
    reader_.Take();
  }
  DraftDefinition value = NewDefinition(name, Kind::Value);
  if (ReadOid(reader_, module_, value)) module_.definitions.push_back(value);
}

/// "Name ::= type", and "name ::= { ... }" of those who forget OBJECT IDENTIFIER.
void Parser::ReadTypeAssignment(const Token& name) {
  reader_.Take();
  if (reader_.Peek().IsMark('{')) {
    reader_.Report(name, "no OBJECT IDENTIFIER behind " + Quote(name.text));
    DraftDefinition value = NewDefinition(name, Kind::Value);
    if (ReadOid(reader_, module_, value)) module_.definitions.push_back(value);
    return;
  }
  DraftDefinition type = NewDefinition(name, Kind::Type);
  if (reader_.Peek().Is(Keyword::TextualConvention)) {
    previous_ = reader_.Take();
    ReadTextualConvention(type);
  } else {
    ReadType(reader_, module_, type);
  }
  module_.definitions.push_back(type);
}

/// The clauses of a TEXTUAL-CONVENTION, of which SYNTAX is the last (RFC 2579 section 2).
void Parser::ReadTextualConvention(DraftDefinition& type) {
  while (!reader_.AtEnd() && !reader_.Peek().Is(Keyword::End)) {
    if (IsNextDefinition()) break;
    const Token token = reader_.Take();
    previous_ = token;
    if (token.Is(Keyword::Syntax)) return ReadType(reader_, module_, type);
    if (token.Is(Keyword::DisplayHint) && reader_.Peek().kind == TokenKind::String) {
      type.hint = reader_.Keep(reader_.Take().text);
    }
  }
  reader_.Report(reader_.Peek(), "textual convention " + Quote(type.name) + " has no SYNTAX");
}

/// Whether the token before the next one turned out to be the name of a new definition; then it
/// is the next token again.
bool Parser::IsNextDefinition() {
  const Token next = reader_.Peek();
  bool begins = next.kind == TokenKind::Assign || StandsBehindName(next.keyword);
  if (!begins) return false;
  if (next.Is(Keyword::Object)) {
    reader_.Take();
    begins = reader_.TakeKeyword(Keyword::Identifier) && reader_.Peek().kind == TokenKind::Assign;
    reader_.Rewind(next);
  }
  if (begins && previous_.kind == TokenKind::Word) reader_.Rewind(previous_);
  return begins;
}

/// The clauses of any macro up to the value behind "::=". Only what the database keeps is read;
/// clauses that are misspelt, unknown or out of order are passed over.
void Parser::ReadMacro(const Token& name, const Token& macro) {
  const size_t errorsBefore = reader_.Errors();
  DraftDefinition definition = NewDefinition(name, KindOf(macro.keyword));
  std::string_view enterprise;
  bool hasSyntax = false;
  previous_ = macro;
  while (reader_.Peek().kind != TokenKind::Assign) {
    if (reader_.AtEnd() || reader_.Peek().Is(Keyword::End) || IsNextDefinition()) {
      reader_.Report(name, Quote(name.text) + " has no '::='");
      return;
    }
    const Token token = reader_.Take();
    previous_ = token;
    if (token.IsMark('{')) {
      reader_.SkipPast('{', '}');
    } else if (ListsRelated(definition.kind, token.keyword) && reader_.TakeMark('{')) {
      ReadRelated(definition);
    } else if (token.Is(Keyword::Access) || token.Is(Keyword::MaxAccess)) {
      definition.isForNotify = reader_.Peek().text == "accessible-for-notify";
    } else if (token.Is(Keyword::Units) && reader_.Peek().kind == TokenKind::String) {
      definition.units = reader_.Keep(reader_.Take().text);
    } else if (definition.kind == Kind::Object && token.Is(Keyword::Syntax) && !hasSyntax) {
      hasSyntax = true;
      ReadType(reader_, module_, definition);
    } else if (token.Is(Keyword::LastUpdated) && reader_.Peek().kind == TokenKind::String) {
      module_.lastUpdated = ReadDate(reader_.Take().text);
    } else if (token.Is(Keyword::Enterprise) && macro.Is(Keyword::TrapType)) {
      enterprise = ReadEnterprise();
    }
  }
  reader_.Take();
  if (definition.kind == Kind::Object && !hasSyntax) {
    reader_.Report(name, "object " + Quote(name.text) + " has no SYNTAX");
  }
  if (definition.kind == Kind::Value && reader_.Peek().IsMark('{') &&
      reader_.Errors() == errorsBefore) {
    reader_.Report(macro, "unknown macro " + Quote(macro.text));
  }
  ReadMacroValue(definition, macro, enterprise);
}

/// Behind "{": names up to and including "}". Types, as SMIv1 has them in an index, are left out.
void Parser::ReadRelated(DraftDefinition& definition) {
  definition.related = {static_cast<std::uint32_t>(module_.related.size()), 0};
  Token last;
  while (reader_.Peek().IsMark(',') || IsName(reader_.Peek())) {
    last = reader_.Take();
    if (last.text.front() < 'a' || last.text.front() > 'z') continue;
    module_.related.push_back(reader_.Keep(last.text));
    ++definition.related.count;
  }
  // Without its "}" the list has swallowed the name of the next definition.
  if (last.kind == TokenKind::Word && !reader_.Peek().IsMark('}')) reader_.Rewind(last);
  reader_.SkipPast('{', '}');
}

/// "enterprise", or with braces that should not be there.
std::string_view Parser::ReadEnterprise() {
  const bool braces = reader_.TakeMark('{');
  const Token name = reader_.Peek();
  if (name.kind != TokenKind::Word) return {};
  reader_.Take();
  if (braces) reader_.SkipPast('{', '}');
  return reader_.Keep(name.text);
}

/// Behind "::=". A trap of version 1 is the node enterprise.0.N (RFC 3584 section 3.1).
void Parser::ReadMacroValue(DraftDefinition& definition, const Token& macro,
                            std::string_view enterprise) {
  const Token value = reader_.Peek();
  if (macro.Is(Keyword::TrapType) && value.kind == TokenKind::Number) {
    reader_.Take();
    std::int64_t number = 0;
    if (enterprise.empty() || !ReadNumber(value.text, false, number)) {
      reader_.Report(value, "trap " + Quote(definition.name) + " has no enterprise or no number");
      return;
    }
    definition.parentName = enterprise;
    definition.numbers = {static_cast<std::uint32_t>(module_.numbers.size()), 2};
    module_.numbers.push_back(0);
    module_.numbers.push_back(static_cast<std::uint32_t>(number));
  } else if (definition.kind == Kind::Value && !value.IsMark('{')) {
    // A constant of some other type, "limit INTEGER ::= 5": nothing to keep.
    reader_.Take();
    return;
  } else if (!ReadOid(reader_, module_, definition)) {
    return;
  }
  module_.definitions.push_back(definition);
}

/// "NAME MACRO ::= BEGIN ... END": no module of data needs its body.
void Parser::SkipMacroDefinition() {
  while (!reader_.AtEnd() && !reader_.Peek().Is(Keyword::End)) reader_.Take();
  reader_.Take();
}

/// What one reading of a text yields.
struct Outcome {
  ParsedFile file;
  size_t errors = 0;
  size_t definitions = 0;

  /// A mark too few hides definitions as well as it makes errors.
  bool IsBetterThan(const Outcome& other) const {
    return definitions + other.errors > other.definitions + errors;
  }
};

Outcome Read(std::string_view text, Reading reading, Arena& arena) {
  Parser parser(text, reading, arena);
  Outcome outcome{{parser.Parse(), {}}};
  for (const Module& module : outcome.file.modules)
    outcome.definitions += module.definitions.size();
  outcome.errors = parser.Reader().Errors();
  outcome.file.messages = std::move(parser.Reader().AllMessages());
  return outcome;
}

}  // namespace

ParsedFile ParseSmi(std::string_view text, Arena& arena) {
  Reading reading;
  Outcome best = Read(text, reading, arena);
  const auto tryReading = [&](Reading other) {
    Outcome outcome = Read(text, other, arena);
    if (!outcome.IsBetterThan(best)) return;
    best = std::move(outcome);
    reading = other;
  };
  if (best.errors > 0) tryReading({CommentEnd::AtLineEnd, StringEnd::AtMark});
  if (best.errors > 0) tryReading({reading.commentEnd, StringEnd::BeforeDefinition});
  return std::move(best.file);
}

}  // namespace sentrel::mib
