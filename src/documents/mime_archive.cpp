#include "documents/mime_archive.h"

#include <fmt/format.h>

#include <algorithm>
#include <ctime>

#include "documents/html_page.h"
#include "documents/unicode.h"

namespace sentrel {
namespace {

/// Cannot occur in the body, which holds no "=_".
constexpr std::string_view kBoundary = "=_Sentrel_page";
constexpr std::size_t kBytesPerLine = 57;  // 76 characters of base64
constexpr std::size_t kBytesPerWord = 42;  // an encoded word has at most 75 characters

std::string Base64(std::string_view bytes) {
  static constexpr char kDigits[] =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  const auto byte = [&](std::size_t at) -> unsigned {
    return at < bytes.size() ? static_cast<unsigned char>(bytes[at]) : 0;
  };
  std::string text;
  for (std::size_t at = 0; at < bytes.size(); at += 3) {
    const unsigned group = byte(at) << 16 | byte(at + 1) << 8 | byte(at + 2);
    for (const int shift : {18, 12, 6, 0}) text += kDigits[group >> shift & 63];
  }
  const std::size_t padding = (3 - bytes.size() % 3) % 3;
  text.replace(text.size() - padding, padding, padding, '=');
  return text;
}

/// RFC 2047: one encoded word after the other where a text is not plain ASCII.
std::string HeaderText(std::string_view text) {
  const bool plain =
      std::all_of(text.begin(), text.end(), [](char c) { return c >= 32 && c < 127; });
  if (plain && text.size() < 60) return std::string(text);
  std::string words;
  while (!text.empty()) {
    std::size_t size = std::min(text.size(), kBytesPerWord);
    const auto inside = [&](std::size_t at) { return (text[at] & 0xC0) == 0x80; };
    while (size < text.size() && inside(size)) --size;
    words +=
        fmt::format("{}=?utf-8?B?{}?=", words.empty() ? "" : "\r\n ", Base64(text.substr(0, size)));
    text.remove_prefix(size);
  }
  return words;
}

/// RFC 5322, in universal time.
std::string HeaderDate(const LocalTime& made) {
  std::tm local{};
  local.tm_year = made.year - 1900;
  local.tm_mon = made.month - 1;
  local.tm_mday = made.day;
  local.tm_hour = made.hour;
  local.tm_min = made.minute;
  local.tm_sec = made.second;
  local.tm_isdst = -1;
  const std::time_t moment = std::mktime(&local);
  std::tm utc{};
  gmtime_r(&moment, &utc);
  const LocaleTexts english;
  return fmt::format("{} {} {} {:02}:{:02}:{:02} +0000", utc.tm_mday,
                     english.months.at(static_cast<std::size_t>(utc.tm_mon)), utc.tm_year + 1900,
                     utc.tm_hour, utc.tm_min, utc.tm_sec);
}

}  // namespace

std::string MimeArchive(const TableContent& content, Progress& progress) {
  const std::string page = HtmlPage(content, progress);
  std::string archive = fmt::format(
      "From: Sentrel <sentrel@localhost>\r\n"
      "Subject: {}\r\n"
      "Date: {}\r\n"
      "MIME-Version: 1.0\r\n"
      "Content-Type: multipart/related; type=\"text/html\";\r\n"
      " boundary=\"{}\"\r\n"
      "\r\n"
      "--{}\r\n"
      "Content-Type: text/html; charset=utf-8\r\n"
      "Content-Transfer-Encoding: base64\r\n"
      "Content-Location: file:///page.html\r\n"
      "\r\n",
      HeaderText(content.title), HeaderDate(content.made), kBoundary, kBoundary);
  for (std::string_view rest = page; !rest.empty();) {
    const std::string_view line = rest.substr(0, kBytesPerLine);
    archive.append(Base64(line)).append("\r\n");
    rest.remove_prefix(line.size());
  }
  return archive.append(fmt::format("--{}--\r\n", kBoundary));
}

}  // namespace sentrel
