#pragma once

#include <QAction>
#include <QMainWindow>
#include <QStringList>
#include <functional>
#include <random>

namespace sentrel {

/// A user who does anything that comes to hand: chooses tools, answers or abandons dialogs, types,
/// clicks, drags and resizes. Everything but ending the program. What is done follows from the seed
/// and from what is on the screen.
class User {
 public:
  struct Limits {
    /// Tools left alone, by id.
    QStringList tools;
    /// File names to save under. Nothing is written elsewhere.
    QStringList files;
  };

  User(QMainWindow& window, std::uint32_t seed);

  void SetLimits(Limits limits) { limits_ = std::move(limits); }
  /// Acts until the condition holds and no dialog is open; `between` runs before each act.
  void Act(const std::function<bool()>& done, const std::function<void()>& between);

  std::uint64_t Acts() const { return acts_; }
  std::uint64_t Dialogs() const { return dialogs_; }

 private:
  std::uint32_t Below(std::size_t bound) { return random_() % static_cast<std::uint32_t>(bound); }
  template <typename List>
  const auto& AnyOf(const List& list) {
    return list[Below(static_cast<std::size_t>(list.size()))];
  }
  void ArmNext();
  void ActOnce();
  void UseWindow();
  void UseTable();
  void UseTool();
  void UseHelp();
  void UsePopup(QWidget& popup);
  void UseDialog(QWidget& dialog);
  void UseFileDialog(QWidget& dialog);
  void TypeInto(QWidget& dialog);
  void ClickAt(QWidget& widget, Qt::MouseButton button);

  QMainWindow& window_;
  std::mt19937 random_;
  Limits limits_;
  std::function<bool()> done_;
  std::function<void()> between_;
  bool armed_ = false;
  std::uint64_t acts_ = 0;
  std::uint64_t dialogs_ = 0;
  const QWidget* dialog_ = nullptr;
  int actsInDialog_ = 0;
};

}  // namespace sentrel
