#pragma once

#include <QFont>
#include <QStringList>
#include <vector>

#include "desktop/export/page_text.h"
#include "desktop/export/printable_pages.h"
#include "documents/table_content.h"

namespace sentrel {

/// A document as pages: title and date above each, the titles of the columns above each part of the
/// table, the page number below. A row that is taller than a page continues on the next; no text is
/// cut.
class TablePages : public PrintablePages {
 public:
  /// The content must outlive the pages. Throws Cancelled.
  TablePages(const TableContent& content, const QPageLayout& paper, Progress& progress);

  int Count() const override { return static_cast<int>(pages_.size()); }
  void Paint(QPainter& painter, int page) const override;

 private:
  enum class Kind { Text, Titles, Row };
  /// A part of the document that starts at its own height. Each cell is a list of lines.
  struct Block {
    Kind kind;
    std::vector<QStringList> cells;
    int lines = 0;
  };
  /// What one page shows of a block.
  struct Piece {
    std::size_t block;
    int firstLine;
    int lines;
    double top;
    bool last;  // of its block
  };
  using Page = std::vector<Piece>;
  struct Fonts {
    QFont title, small, body, bold, fixed;
  };

  void SetMeasures();
  void LayOutParagraph(Progress& progress);
  void LayOutTable(Progress& progress);
  void SetWidths(PageText& body, PageText& bold, Progress& progress);
  std::size_t AddBlock(PageText& text, Kind kind, const std::vector<std::string>& cells);
  void Place(std::size_t block);
  void StartPage();
  double PaddingOf(Kind kind) const { return kind == Kind::Text ? 0 : padding_; }
  double Height(Kind kind, int lines) const { return lines * pitch_ + 2 * PaddingOf(kind); }
  double WidthOf(Kind kind, std::size_t col) const;
  const QFont& FontOf(Kind kind) const;
  void PaintHead(QPainter& painter) const;
  void PaintFoot(QPainter& painter, int page) const;
  void PaintPiece(QPainter& painter, const Piece& piece) const;
  void PaintCell(QPainter& painter, const Block& block, const Piece& piece, std::size_t col,
                 double left) const;

  const TableContent& content_;
  Fonts fonts_;
  double pitch_ = 0;    // from line to line
  double padding_ = 0;  // above and below the lines of a row
  double margin_ = 0;   // left and right of the lines of a cell
  double bodyTop_ = 0;
  double bodyBottom_ = 0;
  double y_ = 0;  // where the next piece goes
  std::vector<double> widths_;
  std::vector<Block> blocks_;
  std::size_t titles_ = 0;  // the block at the top of every page of the table
  bool inTable_ = false;
  std::vector<Page> pages_;
};

}  // namespace sentrel
