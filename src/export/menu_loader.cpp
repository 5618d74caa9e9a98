#include "export/menu_loader.h"

#include "common/failure.h"
#include "common/text.h"
#include "shell/file_name_of.h"

namespace sentrel {
namespace {

void LoadToolMenu(ToolMenu& menu, const std::string& prefix,
                  const std::vector<ExportChoice>& choices) {
  for (const ExportChoice& choice : choices) {
    Attempt([&] { menu.AddTool(prefix + choice.key).SetName(choice.caption); });
  }
}

void SetFirstImage(CommandButton* button, CommandList& parent,
                   const std::vector<std::string>& names) {
  if (!button) return;
  for (const std::string& name : names) {
    std::optional<MenuImage> image;
    Attempt([&] { image = parent.FindImage(name); });
    if (!image) continue;
    Attempt([&] { button->SetImage(0, *image); });
    return;
  }
}

/// Null where the button could not be made.
CommandButton* AddButton(CommandList& parent, const std::string& id, const ExportChoice& choice) {
  CommandButton* button = nullptr;
  Attempt([&] {
    button = &parent.AddToolButton(id, choice.caption);
    button->SetTag(choice.key);
  });
  return button;
}

void AddExportEntry(CommandPopup& popup, CommandList& parent, const std::string& prefix,
                    const ExportChoice& choice) {
  const std::string id = prefix + choice.key;
  CommandButton* button = AddButton(parent, id, choice);
  Attempt([&] { popup.AddControl(id); });
  SetFirstImage(button, parent, {id, choice.key});
}

/// "SendTo:Microsoft Excel 2003" has the picture "SendTo:Excel", or else "Excel".
std::vector<std::string> SendToImages(const std::string& id) {
  std::string name = ReplaceAll(id, "Microsoft ", "");
  name = name.substr(0, name.find(' '));
  const auto colon = name.find(':');
  std::vector<std::string> names{name};
  if (colon != std::string::npos) names.push_back(name.substr(colon + 1));
  return names;
}

bool OpensGroup(const std::string& key) {
  const std::string last = UpperCase(FileNameOf(key, false));
  return last == "MAILCONTENT" || last == "MYDOCUMENTS" || last == "EXCEL.EXE";
}

void AddSendToEntry(CommandPopup& popup, CommandList& parent, const std::string& prefix,
                    const ExportChoice& choice) {
  const std::string id = prefix + choice.caption;
  CommandButton* button = AddButton(parent, id, choice);
  SetFirstImage(button, parent, SendToImages(id));
  Attempt([&] {
    CommandControl& control = popup.AddControl(id);
    if (OpensGroup(choice.key)) control.SetBeginGroup(true);
  });
}

void LoadPopup(MenuKind kind, CommandPopup& popup, CommandList& parent, const std::string& prefix,
               const std::vector<ExportChoice>& choices) {
  const auto add = kind == MenuKind::Exports ? AddExportEntry : AddSendToEntry;
  for (const ExportChoice& choice : choices) add(popup, parent, prefix, choice);
}

void LoadPlainMenu(PlainMenu& menu, const std::vector<ExportChoice>& choices) {
  int index = 0;
  for (const ExportChoice& choice : choices) {
    ++index;
    Attempt([&] { menu.Load(index); });
    Attempt([&] { menu.Item(index).SetCaption(choice.caption); });
    Attempt([&] { menu.Item(index).SetTag(choice.key); });
    Attempt([&] { menu.Item(index).SetVisible(true); });
    Attempt([&] { menu.Item(index).SetEnabled(true); });
    Attempt([&] { menu.Item(0).SetVisible(false); });
  }
}

}  // namespace

void LoadMenu(MenuKind kind, const MenuItem& menuItem, CommandList* parent,
              const std::string& prefix, const std::vector<ExportChoice>& choices) {
  if (auto* const* tool = std::get_if<ToolMenu*>(&menuItem)) {
    if (*tool) LoadToolMenu(**tool, prefix, choices);
  } else if (auto* const* popup = std::get_if<CommandPopup*>(&menuItem)) {
    if (*popup && parent) LoadPopup(kind, **popup, *parent, prefix, choices);
  } else if (PlainMenu* plain = std::get<PlainMenu*>(menuItem)) {
    LoadPlainMenu(*plain, choices);
  }
}

}  // namespace sentrel
