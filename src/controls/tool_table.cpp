#include "controls/tool_table.h"

namespace sentrel {
namespace {

using enum ToolKind;

constexpr ToolPlace kSeparator{""};

}  // namespace

const std::vector<ToolDesign>& AllTools() {
  // clang-format off
  static const std::vector<ToolDesign> tools = {
      {"Menu:File",          "&File",                                Submenu, "Menus"},
      {"Menu:EditMenu",      "&Edit",                                Submenu, "Menus"},
      {"Menu:TrapsMenu",     "&Traps",                               Submenu, "Menus"},
      {"Menu:Help",          "&Help",                                Submenu, "Menus"},
      {"Menu:ExportMenu",    "&Export",                              Submenu, "Menus"},
      {"Main:Export",        "&Export",                              Plain,   "File"},
      {"Main:Print",         "&Print",                               Plain,   "Print",
       "Prints the selected text to the default printer."},
      {"Main:PrintPreview",  "Print Pre&view ...",                   Plain,   "Print"},
      {"Main:Settings",      "&Settings ...",                        Plain,   "File"},
      {"Main:Exit",          "E&xit",                                Plain,   "File"},
      {"Edit:Cut",           "Cu&t",                                 Plain,   "Edit",
       "Removes the selected text and places it on the Clipboard."},
      {"Edit:Copy",          "&Copy",                                Plain,   "Edit",
       "Copies the selected text to the Clipboard."},
      {"Edit:Delete",        "&Delete",                              Plain,   "Edit"},
      {"Edit:SelectAll",     "Select &All",                          Plain,   "Edit",
       "Select Entire Column"},
      {"Edit:Clear",         "&Clear",                               Plain,   "Edit"},
      {"Edit:Pause",         "&Pause",                               Check,   "Edit",
       "Suspend/Resume Trap Collection"},
      {"Edit:Raw",           "&Raw Data",                            Check,   "Edit"},
      {"Edit:SaveTrap",      "&Save Selected Trap",                  Plain,   "Edit",
       "Save Selected Trap"},
      {"Edit:SendTestTrap",  "&Send Test Trap ...",                  Plain,   "Edit"},
      {"Edit:ApplyFilter",   "Apply &Filter ...",                    Plain,   "Edit"},
      {"Edit:RemoveFilter",  "&Remove Filter",                       Plain,   "Edit",
       "Removes a previously applied filter"},
      {"Export:CDF",         "Export to &Comma Delimited File ...",  Plain,   "Export"},
      {"Export:Text",        "Export to &Text File ...",             Plain,   "Export"},
      {"Export:HTML",        "Export to &HTML File ...",             Plain,   "Export"},
      {"Export:XLS",         "Export to &Excel file ...",            Plain,   "Export"},
      {"Export:Excel",       "Export directly to &Excel ...",        Plain,   "Export"},
      {"Export:PDF",         "Export to &PDF ..",                    Plain,   "Export"},
      {"Help:Contents",      "&Contents ...",                        Plain,   "Help"},
      {"Help:Selection",     "&Help on Sentrel",                     Plain,   "Help"},
      {"Help:TipOfTheDay",   "&Tip of the Day ...",                  Plain,   "Help"},
      {"Help:About",         "&About Sentrel ...",                   Plain,   "Help"},
  };
  // clang-format on
  return tools;
}

const std::vector<ToolList>& AllMenus() {
  static const std::vector<ToolList> menus = {
      {"Menu:File",
       {{"Menu:ExportMenu"},
        kSeparator,
        {"Main:PrintPreview"},
        {"Main:Print"},
        kSeparator,
        {"Main:Settings"},
        kSeparator,
        {"Main:Exit"}}},
      {"Menu:EditMenu",
       {{"Edit:Cut"}, {"Edit:Copy"}, {"Edit:Delete"}, kSeparator, {"Edit:SelectAll"}}},
      {"Menu:TrapsMenu",
       {{"Edit:Clear"},
        {"Edit:Pause"},
        kSeparator,
        {"Edit:Raw"},
        kSeparator,
        {"Edit:SaveTrap"},
        kSeparator,
        {"Edit:SendTestTrap"}}},
      {"Menu:Help",
       {{"Help:Contents"}, {"Help:Selection"}, {"Help:TipOfTheDay"}, kSeparator, {"Help:About"}}},
      {"Menu:ExportMenu",
       {{"Export:CDF"},
        {"Export:Text"},
        kSeparator,
        {"Export:HTML"},
        kSeparator,
        {"Export:XLS"},
        {"Export:Excel"},
        kSeparator,
        {"Export:PDF"}}},
  };
  return menus;
}

const std::vector<ToolList>& AllBands() {
  static const std::vector<ToolList> bands = {
      {"MenuBar", {{"Menu:File"}, {"Menu:EditMenu"}, {"Menu:TrapsMenu"}, {"Menu:Help"}}},
      {"ToolBar",
       {{"Main:Export"},
        {"Main:Print"},
        kSeparator,
        {"Edit:Clear"},
        {"Edit:Pause"},
        kSeparator,
        {"Main:Settings", "&Settings"}}},
  };
  return bands;
}

}  // namespace sentrel
