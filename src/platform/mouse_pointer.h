#pragma once

namespace sentrel {

/// The shape of the mouse pointer over the main window. Called on the event loop; never throws.
class MousePointer {
 public:
  virtual ~MousePointer() = default;
  /// True shows the hourglass, false the default pointer.
  virtual void SetHourglass(bool on) = 0;
};

}  // namespace sentrel
