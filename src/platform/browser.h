#pragma once

#include <memory>
#include <string>

namespace sentrel {

/// Shows web pages. Called on the event loop.
class Browser {
 public:
  virtual ~Browser() = default;
  /// Opens the page at the address, which may have a query behind a "?". What a "file://" address
  /// names is in it unchanged: nothing is escaped, and "\" and "/" both separate folders. Returns
  /// when the page is shown. Throws Failure where it cannot be opened.
  virtual void Browse(const std::string& address) = 0;
};

/// Makes browsers. What a browser shows stays when it is released.
class BrowserFactory {
 public:
  virtual ~BrowserFactory() = default;
  /// Never null. Throws Failure when no browser can be had.
  virtual std::unique_ptr<Browser> Create() = 0;
};

}  // namespace sentrel
