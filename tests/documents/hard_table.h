#pragma once

#include "common/visible_text.h"
#include "documents/progress.h"
#include "documents/table_content.h"

namespace sentrel {

inline TableContent EmptyTable() {
  TableContent content;
  content.title = "SNMP Traps";
  content.program = "Sentrel 9.2.47";
  content.made = {2026, 12, 5, 15, 49, 37};
  content.madeText = "05-Dec-26 03:49 PM";
  content.columns = {{"Trap Time", Alignment::Center},
                     {"IP Address", Alignment::Center},
                     {"Community", Alignment::Center},
                     {"Device Type", Alignment::Left},
                     {"Trap Details", Alignment::Left}};
  return content;
}

/// Rows whose cells are hard on a file format.
inline TableContent HardTable() {
  static const std::string kTime = "05-Dec-26\r\n03:49 PM";
  TableContent content = EmptyTable();
  content.rows = {
      {kTime, "192.0.2.1", "public", "cisco", "ifIndex.1=1\r\nifDescr.1=\"Gi0/1\"\r\n"},
      {kTime, "192.0.2.2", "a,b;c", "x\ty", "=HYPERLINK(\"http://192.0.2.9\",\"click\")"},
      {kTime, "2001:db8::1", "+1", "-5.25", " @SUM(1+1)*cmd|' /C calc'!A0"},
      {kTime, "192.0.2.3", "＝1", "-x", "<script>alert(\"&amp;\")</script>"},
      {kTime, "192.0.2.4", "日本語", "e\u0301 👩‍👩‍👧 🇩🇪 ☎️",
       "שלום עולם\r\nمرحبا 123"},
      {kTime, "192.0.2.5", " blank ", "",
       VisibleText(std::string("nul\0 bell\a esc\x1b \xff", 17))},
      {kTime, "192.0.2.6", "_x000D_", "lone\nLF and\rCR", "a\r\n\r\nb"},
      {kTime, "192.0.2.7", "public", "long",
       "Authentication of a request from 198.51.100.77 failed because its community was not among "
       "those that the agent knows; nothing was answered."},
  };
  return content;
}

class NoProgress : public Progress {
 public:
  void Advance(std::size_t, std::size_t) override {}
};

/// Gives up at the third row.
class CancelledEarly : public Progress {
 public:
  void Advance(std::size_t done, std::size_t) override {
    if (done == 2) throw Cancelled();
  }
};

}  // namespace sentrel
