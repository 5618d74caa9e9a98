#include "mib/lexer.h"

#include <gmock/gmock.h>

#include <random>

#include "mib/scan.h"

namespace sentrel::mib {
namespace {

using testing::ElementsAreArray;

/// The tokens as text: strings in quotation marks, quoted numbers in apostrophes, the rest bare.
std::vector<std::string> TokensOf(std::string_view text, Reading reading) {
  std::vector<std::string> tokens;
  Lexer lexer(text, reading);
  for (Token token = lexer.Next(); token.kind != TokenKind::End; token = lexer.Next()) {
    const std::string body(token.text);
    tokens.push_back(token.kind == TokenKind::String   ? '"' + body + '"'
                     : token.kind == TokenKind::Quoted ? '\'' + body + '\''
                     : token.kind == TokenKind::Number ? '#' + body
                                                       : body);
  }
  return tokens;
}

TEST(Lexer, SplitsATextIntoTokens) {
  struct Case {
    std::string text;
    std::vector<std::string> tokens;
    Reading reading = {};
  };
  const Case cases[] = {
      {"", {}},
      {" \t\r\n\x7F\xFF", {}},
      {"a::={b 1}", {"a", "::=", "{", "b", "#1", "}"}},
      {"a:=b ::", {"a", ":", "=", "b", ":", ":"}},
      {"up(1),down(-2)", {"up", "(", "#1", ")", ",", "down", "(", "#-2", ")"}},
      {"0..255|300", {"#0", ".", ".", "#255", "|", "#300"}},
      {"3com 3 -3 3- -", {"3com", "#3", "#-3", "3-", "-"}},
      {"OBJECT-TYPE a-b_c", {"OBJECT-TYPE", "a-b_c"}},
      {"abc--comment\nd", {"abc", "d"}},
      {"a-- b -- c", {"a", "c"}},
      {"abcdefghijklmno--pq\nr", {"abcdefghijklmno", "r"}},
      {"abcdefghijklmnop--q\nr", {"abcdefghijklmnop", "r"}},
      {"a-much-longer-word-than-one-block-of-bytes x",
       {"a-much-longer-word-than-one-block-of-bytes", "x"}},
      {"a -- b -- c\nd", {"a", "d"}, {CommentEnd::AtLineEnd}},
      {"-----\na", {"a"}},
      {"------ a", {}},
      {"\"a -- b\nc\" d", {"\"a -- b\nc\"", "d"}},
      {"\"x\n y OBJECT-TYPE\n z\" w",
       {"\"x\n\"", "y", "OBJECT-TYPE", "z", "\"", "w"},
       {CommentEnd::AtDashes, StringEnd::BeforeDefinition}},
      {"\"\"\"", {"\"\"", "\""}},
      {"'00ff'H '01'b 'x' it's", {"'00ff'", "'01'", "'", "x", "'", "it", "'", "s"}},
      {"caf\xE9 na\xC3\xAFve", {"caf", "na", "ve"}},
  };
  for (const Case& c : cases)
    EXPECT_THAT(TokensOf(c.text, c.reading), ElementsAreArray(c.tokens)) << c.text;
}

TEST(Lexer, KnowsWhatBeginsADefinition) {
  const auto ends = [](const std::string& line) {
    const std::string text = "\"text\n" + line + "\"";
    Lexer lexer(text, {CommentEnd::AtDashes, StringEnd::BeforeDefinition});
    lexer.Next();
    return !lexer.OpenStrings().empty();
  };
  for (const char* line : {"a OBJECT-TYPE", "  A ::= INTEGER", "a OBJECT IDENTIFIER ::= { b 1 }",
                           "t TRAP-TYPE", "a-b MODULE-IDENTITY"}) {
    EXPECT_TRUE(ends(line)) << line;
  }
  for (const char* line : {"an OBJECT of", "OBJECT-TYPE MACRO ::=", "a", "", "::= { a 1 }",
                           "a BEGIN", "(a) OBJECT-TYPE", "a of OBJECT-TYPE"}) {
    EXPECT_FALSE(ends(line)) << line;
  }
}

TEST(Keyword, IsTheWholeWordInItsCase) {
  EXPECT_EQ(KeywordOf("OBJECT-TYPE"), Keyword::ObjectType);
  EXPECT_EQ(KeywordOf("Counter64"), Keyword::Counter64);
  EXPECT_EQ(KeywordOf("END"), Keyword::End);
  for (const char* word :
       {"", "E", "object-type", "OBJECT-TYP", "OBJECT-TYPES", "END-", "Opaqu3", "\xE9ND"}) {
    EXPECT_EQ(KeywordOf(word), Keyword::None) << word;
  }
}

/// Both loops against the plain definition of what they find, at every place of texts that hold
/// the characters that matter.
TEST(Scan, FindsWhatOneByteAtATimeWouldFind) {
  std::mt19937 random(1);
  const std::string letters = "aZ09_--- \n\x7F\xE9{";
  for (int turn = 0; turn < 500; ++turn) {
    std::string text(random() % 70, ' ');
    const size_t variety = 1 + random() % letters.size();
    for (char& c : text) c = letters[random() % variety];
    for (size_t at = 0; at <= text.size(); ++at) {
      size_t blank = at;
      while (blank < text.size() && scan::IsBlank(text[blank])) ++blank;
      EXPECT_EQ(scan::BlankEnd(text, at), blank) << text;
      size_t word = at;
      while (word < text.size() && text.compare(word, 2, "--") != 0 &&
             (scan::IsWordPart(text[word]) || text[word] == '-')) {
        ++word;
      }
      EXPECT_EQ(scan::WordEnd(text, at), word) << text << " from " << at;
    }
  }
}

}  // namespace
}  // namespace sentrel::mib
