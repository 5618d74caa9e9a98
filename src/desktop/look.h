#pragma once

#include <QPalette>

namespace sentrel {

/// What is missing in a desktop's colours: many set those of texts and pages, and leave links,
/// placeholders and every other row of a list as a light desktop has them. Only what could not be
/// read is set in the result.
QPalette ReadableColors(const QPalette& desktop);

/// Mends the colours, and takes the pictures off the buttons of dialogs, which come from no icon
/// theme and suit no dark desktop. To be called before the first window.
void SetLook();

}  // namespace sentrel
