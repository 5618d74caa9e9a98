#pragma once

#include <QIcon>
#include <string_view>

namespace sentrel {

/// The picture of a tool, drawn at whatever size is asked for; its lines have the colour of the
/// palette's text at the moment of painting, and all of it that of selected text in the highlighted
/// entry of a menu. Null for a tool without a picture.
QIcon ToolIcon(std::string_view toolId);

/// A file that holds the program's icon in any size.
inline constexpr const char* kProgramIcon = ":/icons/sentrel.svg";

/// The program's icon in the sizes that window managers use. From the file itself the toolkit would
/// make more and larger ones for the window, at each start.
QIcon ProgramIcon();

}  // namespace sentrel
