#include <iostream>
#include <map>
#include <stdexcept>
#include <string_view>

#include "commands.h"

namespace sentrel::app {
namespace {

constexpr std::string_view kUsage = R"(usage: sentrel-mib COMMAND ...

  lookup [-M FOLDER]... [OID...]   name OIDs, those of standard input if none is given; one line
                                   each: the OID, its name, its named values
  lookup --all ...                 the same, with a line for each module that has a name for the
                                   OID: the OID, the name, the module, the named values
  compile [-o IMAGE] FOLDER...     compile all modules in the folders, tell what is wrong
  check [FILE...]                  tell what is wrong with module files; without any, with the
                                   built-in database

To make the built-in database:
  facts -o FOLDER FOLDER...        write a fact file for each module in the folders
  makers -o FOLDER [-M FACTS]... FOLDER...
                                   write the facts that traps need, a file for each maker, without
                                   the modules whose facts lie in FACTS
  registrations -o FILE LIST       write names for the enterprise numbers of a list, "9<tab>cisco" a
                                   line
  pack -o IMAGE FOLDER...          make an image of fact files
)";

using Command = int (*)(const Arguments&);
const std::map<std::string_view, Command> kCommands = {{"lookup", LookUpOids},
                                                       {"compile", CompileFolders},
                                                       {"check", CheckFiles},
                                                       {"facts", WriteFactFiles},
                                                       {"makers", WriteMakerFacts},
                                                       {"pack", PackFacts},
                                                       {"registrations", WriteRegistrations}};

/// Throws std::invalid_argument.
Arguments Read(const std::vector<std::string>& words) {
  Arguments arguments;
  for (size_t i = 0; i < words.size(); ++i) {
    const std::string& word = words[i];
    if (word == "--all") {
      arguments.all = true;
      continue;
    }
    if (word != "-M" && word != "-o") {
      if (word.size() > 1 && word[0] == '-') throw std::invalid_argument("unknown option " + word);
      arguments.rest.push_back(word);
      continue;
    }
    if (++i == words.size()) throw std::invalid_argument(word + " needs a value");
    if (word == "-M") {
      arguments.folders.push_back(words[i]);
    } else {
      arguments.output = words[i];
    }
  }
  return arguments;
}

int Run(const std::vector<std::string>& words) {
  const auto command = words.empty() ? kCommands.end() : kCommands.find(words[0]);
  if (command == kCommands.end()) {
    std::cerr << kUsage;
    return 2;
  }
  try {
    return command->second(Read({words.begin() + 1, words.end()}));
  } catch (const std::invalid_argument& error) {
    std::cerr << "sentrel-mib: " << error.what() << "\n" << kUsage;
    return 2;
  }
}

}  // namespace
}  // namespace sentrel::app

int main(int argc, char** argv) {
  std::ios::sync_with_stdio(false);
  try {
    return sentrel::app::Run({argv + 1, argv + argc});
  } catch (const std::exception& error) {
    std::cerr << "sentrel-mib: " << error.what() << "\n";
    return 1;
  }
}
