#include "documents/unicode.h"

#include <utf8proc.h>

#include <algorithm>

#include "common/utf8.h"

namespace sentrel {
namespace {

constexpr std::int32_t kEmojiPresentation = 0xFE0F;

struct CodePoint {
  std::int32_t value;  // below 0 where the bytes are not UTF-8
  std::size_t bytes;
};

CodePoint First(std::string_view text) {
  const Utf8Character first = FirstCharacter(text);
  if (first.length == 0) return {-1, 1};
  return {static_cast<std::int32_t>(first.code), first.length};
}

bool IsPlain(char c) {
  return c >= 0x20 && c < 0x7F;
}

/// What a reader sees as one letter: a base with its marks, or joined emoji.
struct Cluster {
  std::size_t bytes;
  std::size_t width;
};

Cluster FirstCluster(std::string_view text) {
  if (IsPlain(text[0]) && (text.size() == 1 || IsPlain(text[1]))) return {1, 1};
  CodePoint last = First(text);
  Cluster cluster{last.bytes, static_cast<std::size_t>(utf8proc_charwidth(last.value))};
  utf8proc_int32_t state = 0;
  while (cluster.bytes < text.size()) {
    const CodePoint next = First(text.substr(cluster.bytes));
    if (utf8proc_grapheme_break_stateful(last.value, next.value, &state)) break;
    cluster.bytes += next.bytes;
    cluster.width += next.value == kEmojiPresentation
                         ? 1
                         : static_cast<std::size_t>(utf8proc_charwidth(next.value));
    last = next;
  }
  cluster.width = std::min<std::size_t>(cluster.width, 2);
  return cluster;
}

}  // namespace

std::vector<std::string_view> LinesOf(std::string_view text) {
  std::vector<std::string_view> lines;
  for (auto end = text.find_first_of("\r\n"); end != std::string_view::npos;
       end = text.find_first_of("\r\n")) {
    lines.push_back(text.substr(0, end));
    const bool both = text.substr(end, 2) == "\r\n";
    text.remove_prefix(end + (both ? 2 : 1));
  }
  if (!text.empty() || lines.empty()) lines.push_back(text);
  return lines;
}

std::size_t DisplayWidth(std::string_view line) {
  if (std::all_of(line.begin(), line.end(), IsPlain)) return line.size();
  std::size_t width = 0;
  while (!line.empty()) {
    const Cluster cluster = FirstCluster(line);
    width += cluster.width;
    line.remove_prefix(cluster.bytes);
  }
  return width;
}

std::vector<std::string_view> WrapLine(std::string_view line, std::size_t width) {
  std::vector<std::string_view> pieces;
  std::size_t end = 0;
  std::size_t used = 0;
  std::size_t lastBlank = std::string_view::npos;
  while (end < line.size()) {
    const Cluster cluster = FirstCluster(line.substr(end));
    if (used + cluster.width > width && end > 0) {
      const bool atBlank = line[end] == ' ' || lastBlank != std::string_view::npos;
      const std::size_t cut = line[end] == ' ' ? end : atBlank ? lastBlank : end;
      pieces.push_back(line.substr(0, cut));
      line.remove_prefix(cut + (atBlank ? 1 : 0));
      end = used = 0;
      lastBlank = std::string_view::npos;
      continue;
    }
    if (line[end] == ' ' && end > 0) lastBlank = end;
    end += cluster.bytes;
    used += cluster.width;
  }
  if (!line.empty() || pieces.empty()) pieces.push_back(line);
  return pieces;
}

std::string_view FirstUtf16Units(std::string_view text, std::size_t most) {
  if (text.size() <= most) return text;
  std::size_t end = 0;
  for (std::size_t units = 0; end < text.size();) {
    const CodePoint point = First(text.substr(end));
    units += point.value > 0xFFFF ? 2 : 1;
    if (units > most) break;
    end += point.bytes;
  }
  return text.substr(0, end);
}

}  // namespace sentrel
