#include "console/globals.h"

#include "common/failure.h"

namespace sentrel {

void Main(Application& application, MainForm& mainForm) {
  application.SetHelpFile(application.ProgramFolder() + "/Help/Varnholt.chm");
  Attempt([&] { mainForm.Show(); });
}

}  // namespace sentrel
