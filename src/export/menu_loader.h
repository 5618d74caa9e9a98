#pragma once

#include <string>
#include <vector>

#include "platform/export_backend.h"
#include "platform/menu_items.h"

namespace sentrel {

/// The two menus differ in the ids, pictures and groups of their pop-up entries.
enum class MenuKind { Exports, SendTo };

/// Fills a menu with one entry per choice, in order. A step that fails is skipped; a pop-up
/// without a parent is left alone.
void LoadMenu(MenuKind kind, const MenuItem& menuItem, CommandList* parent,
              const std::string& prefix, const std::vector<ExportChoice>& choices);

}  // namespace sentrel
