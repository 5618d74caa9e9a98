#include "desktop/forms/send_dialog.h"

#include <QCoreApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

namespace sentrel {
namespace {

constexpr int kLettersOfABox = 50;

template <typename Widget>
Widget* Named(const char* name, Widget* widget) {
  widget->setObjectName(name);
  return widget;
}

QLabel* Above(AutoComboBox* box, const char* name, const QString& caption) {
  auto* label = Named(name, new QLabel(caption));
  label->setBuddy(box);
  return label;
}

QLabel* MessagePanel(QWidget* parent) {
  auto* panel = Named("Message", new QLabel(parent));
  panel->setTextFormat(Qt::PlainText);
  panel->setAlignment(Qt::AlignCenter);
  panel->setAutoFillBackground(true);
  QFont font = panel->font();
  font.setPointSizeF(font.pointSizeF() * 1.25);
  panel->setFont(font);
  panel->hide();
  return panel;
}

}  // namespace

SendDialog::SendDialog(SNMP& snmp, MessageBox& messageBox, Registry& registry, QWidget* owner)
    : QDialog(owner, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                         Qt::WindowCloseButtonHint),
      form_(*this, snmp, messageBox, registry),
      target_(Named("Target", new AutoComboBox(form_.Target()))),
      community_(Named("Community", new AutoComboBox(form_.Community()))) {
  setObjectName("SendForm");
  setWindowTitle(" Send Trap ...");
  LayOut();
  message_ = MessagePanel(this);
}

void SendDialog::LayOut() {
  auto* send = Named("cmdSend", new QPushButton("Send"));
  auto* cancel = Named("cmdCancel", new QPushButton("Cancel"));
  send->setDefault(true);
  cancel->setAutoDefault(false);
  connect(send, &QPushButton::clicked, this, [this] { form_.cmdSend_Click(); });
  connect(cancel, &QPushButton::clicked, this, [this] { form_.cmdCancel_Click(); });

  const int gap = style()->pixelMetric(QStyle::PM_LayoutVerticalSpacing) * 2;
  auto* rows = new QVBoxLayout(this);
  rows->addWidget(Above(target_, "Label1", "Hostname or IP Address"));
  rows->addWidget(target_);
  rows->addSpacing(gap);
  rows->addWidget(Above(community_, "Label2", "SNMP Community String"));
  rows->addWidget(community_);
  rows->addSpacing(gap);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(send);
  buttons->addWidget(cancel);
  rows->addLayout(buttons);
  for (AutoComboBox* box : {target_, community_}) {
    box->setMinimumWidth(fontMetrics().averageCharWidth() * kLettersOfABox);
  }
  rows->setSizeConstraint(QLayout::SetFixedSize);
}

void SendDialog::resizeEvent(QResizeEvent* event) {
  QDialog::resizeEvent(event);
  form_.Form_Resize();
}

void SendDialog::done(int result) {
  QDialog::done(result);
  form_.Form_Unload();
}

void SendDialog::ShowModal() {
  FocusTarget();
  exec();
}

void SendDialog::SetHelpContext(int number) {
  setProperty("helpContext", number);
  setProperty("helpTopic", "SendTrap");
}

Area SendDialog::InnerArea() const {
  return {0, 0, width(), height()};
}

void SendDialog::FocusTarget() {
  target_->setFocus();
  target_->lineEdit()->selectAll();
}

void SendDialog::MoveMessage(const Area& area) {
  message_->setGeometry(area.left, area.top, area.width, area.height);
}

void SendDialog::ShowMessage(const std::string& caption) {
  message_->setText(QString::fromStdString(caption));
  message_->raise();
  message_->show();
  message_->repaint();  // what follows may keep the event loop for seconds
}

void SendDialog::HideMessage() {
  message_->hide();
}

void SendDialog::SetHourglass(bool on) {
  if (on) {
    setCursor(Qt::WaitCursor);
  } else {
    unsetCursor();
  }
}

void SendDialog::ProcessEvents() {
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void SendDialog::Unload() {
  done(Accepted);
}

}  // namespace sentrel
