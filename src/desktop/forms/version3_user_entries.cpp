#include "desktop/forms/version3_user_entries.h"

#include <QFormLayout>

#include "settings/version3_names.h"
#include "settings/version3_user_check.h"

namespace sentrel {
namespace {

constexpr int kLettersOfABox = 44;
/// So that the dialog does not change its size when the hint comes.
constexpr int kLinesOfHint = 3;

template <typename Widget>
Widget* Named(const char* name, Widget* widget) {
  widget->setObjectName(name);
  return widget;
}

QLineEdit* PassphraseBox(const char* name) {
  auto* box = Named(name, new QLineEdit);
  box->setEchoMode(QLineEdit::Password);
  return box;
}

/// A box with all values of an enumeration, its number the data of each.
template <typename Value>
QComboBox* Choice(const char* name, std::initializer_list<std::pair<Value, const char*>> values,
                  Value chosen) {
  auto* box = Named(name, new QComboBox);
  for (const auto& [value, remark] : values)
    box->addItem(QString::fromStdString(NameOf(value)) + remark, static_cast<int>(value));
  box->setCurrentIndex(box->findData(static_cast<int>(chosen)));
  return box;
}

QComboBox* AuthenticationChoice(Authentication chosen) {
  return Choice<Authentication>("Authentication",
                                {{Authentication::kNone, ""},
                                 {Authentication::kMd5, " (weak)"},
                                 {Authentication::kSha1, " (\"SHA\" on most devices)"},
                                 {Authentication::kSha224, ""},
                                 {Authentication::kSha256, ""},
                                 {Authentication::kSha384, ""},
                                 {Authentication::kSha512, ""}},
                                chosen);
}

QComboBox* PrivacyChoice(Privacy chosen) {
  return Choice<Privacy>("Privacy",
                         {{Privacy::kNone, ""},
                          {Privacy::kDes, " (weak)"},
                          {Privacy::kAes128, " (\"AES\" on most devices)"},
                          {Privacy::kAes192, ""},
                          {Privacy::kAes192C, " (key as many routers and switches make it)"},
                          {Privacy::kAes256, ""},
                          {Privacy::kAes256C, " (key as many routers and switches make it)"}},
                         chosen);
}

}  // namespace

Version3UserEntries::Version3UserEntries(const Version3UserDraft& draft)
    : initial_(draft),
      name_(Named("UserName", new QLineEdit(QString::fromStdString(draft.name)))),
      authentication_(AuthenticationChoice(draft.authentication)),
      authPassphrase_(PassphraseBox("AuthPassphrase")),
      privacy_(PrivacyChoice(draft.privacy)),
      privPassphrase_(PassphraseBox("PrivPassphrase")),
      hint_(Named("KeyFormHint", new QLabel)),
      leastLevel_(Named("LeastLevel", new QComboBox)),
      engine_(Named("EngineID", new QLineEdit(QString::fromStdString(draft.engine)))) {
  hint_->setWordWrap(true);
  hint_->setAlignment(Qt::AlignTop);
  hint_->setMinimumHeight(fontMetrics().lineSpacing() * kLinesOfHint);
  engine_->setToolTip("\"any\" hears the user from every device that knows the passphrases");
  FillLevels();
  auto* rows = new QFormLayout(this);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->addRow("User Name", name_);
  rows->addRow("Authentication", authentication_);
  rows->addRow("Authentication Passphrase", authPassphrase_);
  rows->addRow("Privacy", privacy_);
  rows->addRow("Privacy Passphrase", privPassphrase_);
  rows->addRow(hint_);
  rows->addRow("Least Level", leastLevel_);
  rows->addRow("Engine ID", engine_);
  name_->setMinimumWidth(fontMetrics().averageCharWidth() * kLettersOfABox);
  for (QComboBox* box : {authentication_, privacy_})
    connect(box, &QComboBox::currentIndexChanged, this, &Version3UserEntries::Follow);
  Follow();
}

void Version3UserEntries::FillLevels() {
  leastLevel_->addItem("As well as the protocols can", 0);
  const std::pair<SecurityLevel, const char*> levels[] = {
      {SecurityLevel::kAuthPriv, ": signed and encrypted"},
      {SecurityLevel::kAuthNoPriv, ": signed"},
      {SecurityLevel::kNoAuthNoPriv, ": neither, anyone can forge it"}};
  for (const auto& [level, remark] : levels)
    leastLevel_->addItem(QString::fromStdString(NameOf(level)) + remark, static_cast<int>(level));
  const int chosen = initial_.leastLevel ? static_cast<int>(*initial_.leastLevel) : 0;
  leastLevel_->setCurrentIndex(leastLevel_->findData(chosen));
}

void Version3UserEntries::Follow() {
  const Version3UserDraft draft = Draft();
  authPassphrase_->setEnabled(draft.authentication != Authentication::kNone);
  privPassphrase_->setEnabled(draft.privacy != Privacy::kNone);
  const bool sameAuth = draft.authentication == initial_.authentication;
  const bool samePriv = sameAuth && draft.privacy == initial_.privacy;
  const QString unchanged = "unchanged";
  authPassphrase_->setPlaceholderText(initial_.hasAuthPassphrase && sameAuth ? unchanged : "");
  privPassphrase_->setPlaceholderText(initial_.hasPrivPassphrase && samePriv ? unchanged : "");
  hint_->setText(QString::fromStdString(KeyFormHint(draft.authentication, draft.privacy)));
}

Version3UserDraft Version3UserEntries::Draft() const {
  Version3UserDraft draft = initial_;
  draft.name = name_->text().trimmed().toStdString();
  draft.authentication = static_cast<Authentication>(authentication_->currentData().toInt());
  draft.privacy = static_cast<Privacy>(privacy_->currentData().toInt());
  draft.authPassphrase = authPassphrase_->text().toStdString();
  draft.privPassphrase = privPassphrase_->text().toStdString();
  const int level = leastLevel_->currentData().toInt();
  draft.leastLevel = level == 0 ? std::nullopt : std::optional(static_cast<SecurityLevel>(level));
  draft.engine = engine_->text().toStdString();
  return draft;
}

}  // namespace sentrel
