#include "desktop/help/about_window.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QIcon>
#include <QLabel>
#include <QPushButton>

namespace sentrel {
namespace {

constexpr int kIconSize = 72;
constexpr int kMargin = 22;
constexpr int kGap = 20;
constexpr double kTitleScale = 1.6;

class AboutWindow : public AboutDialog {
 public:
  explicit AboutWindow(QWidget& owner) : dialog_(&owner) {
    dialog_.setObjectName("About");
    Arrange();
  }

  void SetProgramName(const std::string& text) override {
    Set(name_, text);
    dialog_.setWindowTitle("About " + QString::fromStdString(text));
  }
  void SetPackageName(const std::string& text) override { Set(package_, "Part of the " + text); }
  void SetPackage(const std::string& text) override {
    package_->setToolTip(QString::fromStdString(text));
  }
  void SetSubTitle(const std::string& text) override { Set(subTitle_, text); }
  void SetVersionInfo(const std::string& text) override { Set(version_, text); }
  void SetProgIcon(const Icon& icon) override {
    icon_->setPixmap(QIcon(QString::fromStdString(icon.name))
                         .pixmap(QSize(kIconSize, kIconSize), dialog_.devicePixelRatio()));
  }
  void Show() override { dialog_.exec(); }

 private:
  static void Set(QLabel* label, const std::string& text) {
    label->setText(QString::fromStdString(text).replace("\r\n", "\n").trimmed());
  }

  QLabel* AddLabel(const char* name) {
    auto* label = new QLabel(&dialog_);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    return label;
  }

  void Arrange() {
    QFont font = name_->font();
    font.setBold(true);
    font.setPointSizeF(font.pointSizeF() * kTitleScale);
    name_->setFont(font);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok, &dialog_);
    QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog_, &QDialog::accept);
    auto* grid = new QGridLayout(&dialog_);
    grid->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    grid->setHorizontalSpacing(kGap);
    grid->addWidget(icon_, 0, 0, 4, 1, Qt::AlignTop);
    grid->addWidget(name_, 0, 1);
    grid->addWidget(subTitle_, 1, 1);
    grid->addWidget(package_, 2, 1);
    grid->setRowMinimumHeight(3, kGap / 2);
    grid->addWidget(version_, 4, 1);
    grid->setRowMinimumHeight(5, kGap / 2);
    grid->addWidget(buttons, 6, 0, 1, 2);
    grid->setSizeConstraint(QLayout::SetFixedSize);
    buttons->button(QDialogButtonBox::Ok)->setFocus();
  }

  QDialog dialog_;
  QLabel* icon_ = AddLabel("ProgIcon");
  QLabel* name_ = AddLabel("ProgramName");
  QLabel* subTitle_ = AddLabel("SubTitle");
  QLabel* package_ = AddLabel("PackageName");
  QLabel* version_ = AddLabel("VersionInfo");
};

}  // namespace

std::unique_ptr<AboutDialog> AboutWindowFactory::Create() {
  return std::make_unique<AboutWindow>(owner_);
}

}  // namespace sentrel
