#include "console/globals.h"

#include "common/failure.h"

namespace sentrel {

bool Main(Application& application, MainForm& mainForm,
          const std::function<void()>& showTipOfTheDay) {
  application.SetHelpFile(application.ProgramFolder() + "/Help/Varnholt.chm");
  const bool isShown = Attempt([&] { mainForm.Show(); });
  if (isShown) Attempt(showTipOfTheDay);
  return isShown;
}

}  // namespace sentrel
