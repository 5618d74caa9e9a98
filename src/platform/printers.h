#pragma once

namespace sentrel {

/// The printers that the system knows. Called on the event loop; never throws.
class Printers {
 public:
  virtual ~Printers() = default;
  virtual int Count() const = 0;
};

}  // namespace sentrel
