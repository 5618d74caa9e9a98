#include "shell/tip_file.h"

#include <utility>

#include "common/text.h"

namespace sentrel {
namespace {

void AddLine(Tip& tip, std::string_view line) {
  if (tip.title.empty()) {
    tip.title = line;
  } else if (!line.empty() || !tip.text.empty()) {
    if (!tip.text.empty()) tip.text += '\n';
    tip.text += line;
  }
}

void Finish(std::vector<Tip>& tips, Tip& tip) {
  while (!tip.text.empty() && tip.text.back() == '\n') tip.text.pop_back();
  if (!tip.text.empty()) tips.push_back(std::move(tip));
  tip = Tip();
}

}  // namespace

std::vector<Tip> ReadTips(std::string_view text) {
  std::vector<Tip> tips;
  Tip tip;
  for (std::string_view line : Split(text, "\n")) {
    if (line.ends_with('\r')) line.remove_suffix(1);
    if (line.starts_with('#')) continue;
    if (line == "%") {
      Finish(tips, tip);
    } else {
      AddLine(tip, line);
    }
  }
  Finish(tips, tip);
  return tips;
}

}  // namespace sentrel
