#pragma once

#include <QStringList>
#include <QWidget>

#include "platform/file_dialog.h"

namespace sentrel {

class FileChooser : public FileDialog {
 public:
  /// The dialog stands above whatever dialog is open, else above the window, which must outlive
  /// this object.
  explicit FileChooser(QWidget& window) : window_(window) {}
  std::optional<std::string> ChooseSaveFile(const SaveFileRequest& request) override;

 private:
  QWidget& window_;
};

/// The toolkit's form of pairs of a caption and a pattern, separated by "|". Each caption stays as
/// it stands where the toolkit leaves out the patterns; "*.*" matches every file.
QStringList NameFilters(const std::string& filter);

}  // namespace sentrel
