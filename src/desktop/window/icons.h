#pragma once

#include <QIcon>
#include <string_view>

namespace sentrel {

/// The picture of a tool, drawn at whatever size is asked for; its lines have the colour of the
/// palette's text at the moment of painting, and all of it that of selected text in the highlighted
/// entry of a menu. Null for a tool without a picture.
QIcon ToolIcon(std::string_view toolId);

}  // namespace sentrel
