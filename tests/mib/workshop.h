#pragma once

#include <QTemporaryDir>
#include <filesystem>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "mib/collection.h"
#include "mib/database.h"

namespace sentrel::mib {

/// A folder of its own for a test, gone with the object.
class Workshop {
 public:
  std::string Path(const std::string& name) const { return (Folder() / name).string(); }
  /// Writes a file, with the folders that it needs, and returns its path.
  std::string Write(const std::string& name, const std::string& text) const;

 private:
  std::filesystem::path Folder() const { return folder_.path().toStdString(); }

  QTemporaryDir folder_;
};

/// What compiling some texts, each a file of its own, yields.
class Compiled {
 public:
  explicit Compiled(const std::vector<std::string>& texts, const Database& base = {});

  std::string Name(const std::string& oid) const;
  std::string Labels(const std::string& oid) const;
  /// The messages as "1:12: what is wrong", files counted from 1.
  const std::vector<std::string>& Messages() const { return messages_; }
  /// The base with what was compiled over it.
  const Database& Result() const { return result_; }

 private:
  Database result_;
  std::vector<std::string> messages_;
};

/// A module text around definitions.
std::string ModuleText(const std::string& name, const std::string& definitions,
                       const std::string& imports = "");

/// The parts as one text.
std::string Join(std::initializer_list<std::string_view> parts);

/// The built-in modules.
Database BuiltInDatabase();

/// The folder of the programs that the build made.
std::string ProgramFolder();

}  // namespace sentrel::mib
