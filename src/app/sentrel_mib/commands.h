#pragma once

#include <string>
#include <vector>

namespace sentrel::app {

/// The command line behind the command's name.
struct Arguments {
  std::vector<std::string> folders;  ///< of the options -M
  std::string output;                ///< of the option -o
  bool all = false;                  ///< whether there is the option --all
  std::vector<std::string> rest;
};

/// Each command prints its result to standard output and returns the exit status: 0, or 1 where
/// something was wrong with what it was given. All throw Failure.
int LookUpOids(const Arguments& arguments);
int CompileFolders(const Arguments& arguments);
int CheckFiles(const Arguments& arguments);

/// Those that make the built-in database: whole modules to fact files, what traps need of makers'
/// modules to a fact file for each maker, registered organisations to names of enterprises, fact
/// files to an image.
int WriteFactFiles(const Arguments& arguments);
int WriteMakerFacts(const Arguments& arguments);
int WriteRegistrations(const Arguments& arguments);
int PackFacts(const Arguments& arguments);

}  // namespace sentrel::app
