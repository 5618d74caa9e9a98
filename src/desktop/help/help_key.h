#pragma once

#include <QObject>
#include <functional>
#include <string>

namespace sentrel {

/// Turns the help key, pressed in any window, into a call with the help context number of that
/// window, or of the one it belongs to, and the topic that the window is about at the moment, empty
/// where it names none: the properties "helpContext" and "helpTopic". One at a time.
class HelpKey : public QObject {
  Q_OBJECT
 public:
  using OnPress = std::function<void(int context, const std::string& topic)>;
  explicit HelpKey(OnPress onPress);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  OnPress onPress_;
};

}  // namespace sentrel
