#include "workshop.h"

#include <cstdlib>
#include <fstream>
#include <stdexcept>

#include "mib/image_writer.h"
#include "mib/lookup.h"
#include "mib/module_folders.h"

namespace sentrel::mib {

std::string Workshop::Write(const std::string& name, const std::string& text) const {
  const auto path = Folder() / name;
  std::filesystem::create_directories(path.parent_path());
  std::ofstream(path, std::ios::binary) << text;
  return path.string();
}

Compiled::Compiled(const std::vector<std::string>& texts, const Database& base) {
  const Workshop workshop;
  std::vector<std::string> files;
  files.reserve(texts.size());
  for (const std::string& text : texts) {
    files.push_back(workshop.Write(std::to_string(files.size() + 1), text));
  }
  Collection collection(files, {});
  auto bytes = std::make_shared<std::string>(MakeImage(collection.Compile(base), 0));
  result_ = Database(base, Image::Over(*bytes, bytes));
  const size_t prefix = workshop.Path("").size();
  for (const Message& message : collection.AllMessages()) {
    messages_.push_back(message.ToText().substr(prefix));
  }
}

std::string Compiled::Name(const std::string& oid) const {
  return LookUp(result_, oid).name;
}

std::string Compiled::Labels(const std::string& oid) const {
  return ListOf(LookUp(result_, oid).type);
}

std::string ModuleText(const std::string& name, const std::string& definitions,
                       const std::string& imports) {
  return name + " DEFINITIONS ::= BEGIN\n" + (imports.empty() ? "" : "IMPORTS " + imports + ";\n") +
         definitions + "\nEND\n";
}

std::string Join(std::initializer_list<std::string_view> parts) {
  std::string text;
  for (const std::string_view part : parts) text += part;
  return text;
}

Database BuiltInDatabase() {
  return Database(Image::Open(ProgramFolder() + "/" + kBuiltInImageName));
}

std::string ProgramFolder() {
  const char* const folder = std::getenv("SENTREL_BIN");
  if (folder == nullptr) throw std::runtime_error("SENTREL_BIN is not set");
  return folder;
}

}  // namespace sentrel::mib
