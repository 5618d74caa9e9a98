#pragma once

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QWidget>

#include "settings/version3_users_view.h"

namespace sentrel {

/// The boxes in which one user of version 3 is entered. Passphrases are typed unseen.
class Version3UserEntries : public QWidget {
  Q_OBJECT
 public:
  explicit Version3UserEntries(const Version3UserDraft& draft);

  /// What the boxes hold.
  Version3UserDraft Draft() const;

 private:
  void FillLevels();
  void Follow();

  Version3UserDraft initial_;
  QLineEdit* name_;
  QComboBox* authentication_;
  QLineEdit* authPassphrase_;
  QComboBox* privacy_;
  QLineEdit* privPassphrase_;
  QLabel* hint_;
  QComboBox* leastLevel_;
  QLineEdit* engine_;
};

}  // namespace sentrel
