#include "shell/about_box.h"

#include <fmt/format.h>

#include "common/failure.h"
#include "shell/file_ver_info.h"

namespace sentrel {

AboutBox::AboutBox(const Application& application, const ProgramIdentity& program,
                   const VersionReader& versions, const Locale& locale, AboutDialogFactory& dialogs)
    : application_(application),
      program_(program),
      versions_(versions),
      locale_(locale),
      dialogs_(dialogs) {}

void AboutBox::ShowAboutBox(const Icon& icon, const std::string& VersionText) {
  std::unique_ptr<AboutDialog> dialog;
  if (!Attempt([&] { dialog = dialogs_.Create(); })) return;
  Attempt([&] { dialog->SetProgramName("SNMP Sentrel"); });
  Attempt([&] { dialog->SetPackageName("Benchwell Network Tools"); });
  Attempt([&] { dialog->SetPackage("Benchwell"); });
  Attempt([&] { dialog->SetSubTitle("Receive and Log SNMP Traps"); });
  Attempt([&] { dialog->SetVersionInfo(VersionText.empty() ? OwnVersions() : VersionText); });
  Attempt([&] { dialog->SetProgIcon(icon); });
  Attempt([&] { dialog->Show(); });
}

const std::string& AboutBox::VersionLine() {
  if (versionLine_.empty()) {
    const LocalTime written = versions_.WrittenAt(ExecutableFile(application_));
    versionLine_ = fmt::format("Version {}.{} {}", program_.majorVersion, program_.minorVersion,
                               FormatMonthAndYear(written, locale_.Texts()));
  }
  return versionLine_;
}

std::string AboutBox::OwnVersions() {
  FileVerInfo info(application_, versions_);
  info.GetExecutableInfo();
  return fmt::format(
      "{}\r\n{} Version {}.{}.{}.{}  \r\n{}\r\n", VersionLine(), application_.ExecutableName(),
      info.ProductVersionMajor(), info.ProductVersionMinor(), info.ProductVersionPrivate(),
      info.ProductVersionBuild(), versions_.ReadLegalNotice(ExecutableFile(application_)));
}

}  // namespace sentrel
