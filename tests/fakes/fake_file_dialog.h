#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/file_dialog.h"

namespace sentrel {

/// A file dialog in which the user chooses what the test says, or cancels.
class FakeFileDialog : public FileDialog {
 public:
  std::optional<std::string> ChooseSaveFile(const SaveFileRequest& request) override {
    requests.push_back(request);
    return choice;
  }

  std::vector<SaveFileRequest> requests;
  std::optional<std::string> choice;
};

}  // namespace sentrel
