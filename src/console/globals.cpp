#include "console/globals.h"

#include "common/failure.h"

namespace sentrel {

void Main(Application& application, MainForm& mainForm,
          const std::function<void()>& showTipOfTheDay) {
  application.SetHelpFile(application.ProgramFolder() + "/Help/Varnholt.chm");
  Attempt([&] {
    mainForm.Show();
    showTipOfTheDay();
  });
}

}  // namespace sentrel
