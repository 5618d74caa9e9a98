#pragma once

namespace sentrel {

/// Makes every TableView readable to assistive technology: as a table whose rows count the header
/// as row 0, and whose cells give their whole text. Further calls do nothing.
/// Must come before the first view is seen by assistive technology.
void InstallTableAccessibility();

}  // namespace sentrel
