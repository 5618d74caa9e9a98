#pragma once

namespace sentrel::bench {

/// Each runs one benchmark, prints its figures and what they measure, and returns the process's
/// exit code. A QApplication must exist where a window is part of it.

/// Processor time a trap at 20,000 traps a second, window included, against snmptrapd and against
/// the bare receive path.
int RunCost();
/// Highest rate that is received for ten seconds without loss, against snmptrapd.
int RunRate();
/// 200,000 traps as fast as they can be sent.
int RunBurst();
/// From a menu click to the menu on the screen, and from a key press to the moved selection, while
/// 20,000 traps a second come in.
int RunResponse();
/// The longest that painting a new row holds up the window, for ordinary and for hostile traps.
int RunPainting();
/// The longest that choosing a trap holds up the window while its details are shown.
int RunDetails();
/// The table's view against the toolkit's own on the same rows: a storm, a single trap, scrolling,
/// rows taller than the window, memory, and rows made that nobody looked at.
int RunViews();
/// Processor time a trap as bindings, filters and distinct OIDs grow, and memory as traps do.
int RunGrowth();
/// From the start of the process to listening, against a bare window of the same toolkit.
int RunStart();

/// What the others start as processes of their own: the bare receive path, which prints what a trap
/// costs it, in microseconds, and the program, which says "ready" when it listens, and ends.
int RunBareCost();
int StartProgram();

}  // namespace sentrel::bench
