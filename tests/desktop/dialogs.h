#pragma once

#include <QString>
#include <QWidget>
#include <functional>
#include <list>

namespace sentrel {

/// Plays the user while a call blocks in dialogs: each step waits for a window of its object's name
/// or class, and then acts on it. Steps run in order, also while an earlier one is still busy in a
/// dialog that it opened. A window that never comes fails the test.
class User {
 public:
  User();
  ~User();
  User(const User&) = delete;
  User& operator=(const User&) = delete;

  void When(const QString& window, std::function<void(QWidget&)> act);
  /// Accepts, or gives up, with the keyboard.
  void Accept(const QString& window);
  void Escape(const QString& window);
  /// Types a name into the save dialog and accepts.
  void NameFile(const QString& path, const QString& window = "QFileDialog");
  /// Presses the button whose text begins so.
  void Press(const QString& window, const QString& button);

 private:
  struct Step {
    QString window;
    std::function<void(QWidget&)> act;
  };
  void LookAgain();
  void Look();

  std::list<Step> steps_;
  QObject timers_;
  int looks_ = 0;
  int acting_ = 0;
  bool gaveUp_ = false;
};

}  // namespace sentrel
