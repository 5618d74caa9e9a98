#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "common/dates.h"
#include "controls/table.h"

namespace sentrel {

struct ContentColumn {
  std::string title;
  Alignment alignment = Alignment::Left;
};

/// What a document shows: texts around a table, or around nothing where there are no columns. All
/// texts are visible (VisibleText).
struct TableContent {
  std::string title;
  std::string subTitle;
  std::string paragraph;
  std::string footer;
  /// The program that made the document, with its version.
  std::string program;
  LocalTime made;
  /// The same moment for people.
  std::string madeText;
  bool landscape = false;
  std::vector<ContentColumn> columns;
  /// As many cells in each as there are columns.
  std::vector<std::vector<std::string>> rows;
};

/// Copies titles and cells of the whole table.
void TakeTable(const Table& table, TableContent& content);

/// Drops all columns but those with the indices, which are in ascending order.
void KeepColumns(const std::vector<std::size_t>& columns, TableContent& content);

}  // namespace sentrel
