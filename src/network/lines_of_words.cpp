#include "network/lines_of_words.h"

#include <algorithm>

namespace sentrel {
namespace {

std::vector<std::string_view> WordsOf(std::string_view line, std::string_view blanks) {
  std::vector<std::string_view> words;
  for (auto begin = line.find_first_not_of(blanks); begin != std::string_view::npos;) {
    const auto end = std::min(line.find_first_of(blanks, begin), line.size());
    words.push_back(line.substr(begin, end - begin));
    begin = line.find_first_not_of(blanks, end);
  }
  return words;
}

}  // namespace

std::vector<std::vector<std::string_view>> LinesOfWords(std::string_view text,
                                                        std::string_view blanks) {
  std::vector<std::vector<std::string_view>> lines;
  while (!text.empty()) {
    const auto end = std::min(text.find('\n'), text.size());
    auto words = WordsOf(text.substr(0, end), blanks);
    if (!words.empty()) lines.push_back(std::move(words));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return lines;
}

}  // namespace sentrel
