#pragma once

#include <QMainWindow>
#include <QSplitter>

#include "controls/status_bar.h"
#include "controls/tool_bars.h"
#include "desktop/table/table_view.h"
#include "desktop/window/menus_and_toolbar.h"
#include "platform/main_window.h"

namespace sentrel {

/// The main window on the screen: menus and toolbar, the table, the status bar. Used on the event
/// loop only. It is unloaded once, whoever asks for it and however often.
class TrapWindow : public QMainWindow, public MainWindow {
  Q_OBJECT
 public:
  /// The controls must outlive the window.
  TrapWindow(Table& table, ToolBars& toolBars, StatusBar& status);
  ~TrapWindow() override;

  /// Must outlive the window.
  void SetEvents(MainWindowEvents& events) { events_ = &events; }

  MenusAndToolbar& Menus() { return *tools_; }
  TableView& View() { return *view_; }
  /// Puts a widget beside the table, which gives it room as long as it is shown. At most one.
  /// Puts a widget above the table. To be called before ShowBeside.
  void ShowAbove(QWidget& widget);
  QSplitter& ShowBeside(QWidget& widget);

  void SetCaption(const std::string& caption) override;
  void SetHelpContext(int number) override;
  int TextWidth(const std::string& text) const override;
  int TextHeight(const std::string& text) const override;
  int InnerWidth() const override;
  int InnerHeight() const override;
  int StatusBarHeight() const override;
  void MoveTable(const Area& area) override;
  void Show() override;
  void Unload() override;

 protected:
  void closeEvent(QCloseEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void ShowStatus();
  void PressRightButtonAt(const QPoint& place);

  Table& table_;
  StatusBar& status_;
  MainWindowEvents* events_ = nullptr;
  QWidget* inner_;
  TableView* view_;
  MenusAndToolbar* tools_ = nullptr;
  bool unloaded_ = false;
};

}  // namespace sentrel
