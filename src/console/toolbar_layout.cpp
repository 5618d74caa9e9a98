#include "console/toolbar_layout.h"

#include <tuple>

#include "common/failure.h"

namespace sentrel {
namespace {

constexpr std::tuple kFirstDay{2004, 8, 25};
constexpr std::chrono::milliseconds kHintTime{10000};

bool IsTooOld(const LocalTime& created) {
  return std::tuple{created.year, created.month, created.day} < kFirstDay;
}

}  // namespace

ToolbarLayout::ToolbarLayout(const Application& application, FileSystem& files, ToolBars& toolBars)
    : application_(application), files_(files), toolBars_(toolBars) {}

void ToolbarLayout::LoadToolbarLayout() {
  const std::string path = Path();
  bool found = true;
  Attempt([&] { found = files_.Exists(path); });
  if (found) {
    Attempt([&] {
      if (IsTooOld(files_.CreatedAt(path))) files_.Delete(path);
    });
    Attempt([&] { toolBars_.LoadLayout(path); });
  }
  Attempt([&] { toolBars_.SetHintTime(kHintTime); });
}

void ToolbarLayout::SaveToolbarLayout() {
  toolBars_.SaveLayout(Path());
}

std::string ToolbarLayout::Path() const {
  return application_.LayoutFolder() + "/" + application_.ExecutableName() + ".Toolbars";
}

}  // namespace sentrel
