#pragma once

namespace sentrel {

/// Makes every TableView readable to assistive technology: as a table whose rows count the header
/// as row 0, and whose cells give their whole text. Call once, after the application is made.
void InstallTableAccessibility();

}  // namespace sentrel
