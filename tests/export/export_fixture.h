#pragma once

#include <gmock/gmock.h>

#include "export/export_engine.h"
#include "fakes/fake_export.h"

namespace sentrel {

/// A facade in front of engines that note what they are asked.
class ExportFixture : public testing::Test {
 protected:
  ExportServices Services() { return {factory_, application_, messageBox_, printers_, program_}; }

  ProgramIdentity program_{.majorVersion = 9, .minorVersion = 2, .revision = 47};
  CallLog log_;
  ExportScript script_{log_};
  FakeExportBackendFactory factory_{script_};
  FakeApplication application_;
  FakeMessageBox messageBox_{log_};
  FakePrinters printers_;
  Table table_;
  ExportEngine engine_{Services()};
};

}  // namespace sentrel
