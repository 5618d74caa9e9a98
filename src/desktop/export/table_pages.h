#pragma once

#include <QFont>
#include <QStringList>
#include <vector>

#include "desktop/export/page_text.h"
#include "desktop/export/paper_pages.h"
#include "documents/table_content.h"

namespace sentrel {

/// A document as pages: title and date above each, the titles of the columns above each part of the
/// table, the number of the page below. A row that is taller than a page goes on on the next; no
/// text is cut.
class TablePages : public Pages {
 public:
  /// The content must outlive the pages.
  explicit TablePages(const TableContent& content) : content_(content) {}

  void LayOut(QPagedPaintDevice& device, Progress& progress) override;
  int Count() const override { return static_cast<int>(pages_.size()); }
  void Paint(QPainter& painter, int page) const override;

 private:
  enum class Kind { Paragraph, Titles, Row };
  /// A part of the document that starts at its own height. Each cell is a list of lines.
  struct Block {
    Kind kind;
    std::vector<QStringList> cells;
    int lines = 0;
  };
  /// What stands of a block on one page.
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

  void SetMeasures(QPagedPaintDevice& device);
  void SetWidths(PageText& body, PageText& bold);
  std::size_t AddBlock(PageText& text, Kind kind, const std::vector<std::string>& cells);
  void Place(std::size_t block);
  void StartPage();
  double Height(int lines) const { return lines * pitch_ + 2 * padding_; }
  const QFont& FontOf(Kind kind) const;
  void PaintHead(QPainter& painter) const;
  void PaintFoot(QPainter& painter, int page) const;
  void PaintPiece(QPainter& painter, const Piece& piece) const;
  void PaintCell(QPainter& painter, const Block& block, const Piece& piece, std::size_t col,
                 double left) const;

  const TableContent& content_;
  Fonts fonts_;
  QSizeF area_;
  double pitch_ = 0;    // from line to line
  double padding_ = 0;  // above and below the lines of a block
  double margin_ = 0;   // left and right of the lines of a cell
  double bodyTop_ = 0;
  double bodyBottom_ = 0;
  double y_ = 0;  // where the next piece goes
  std::vector<double> widths_;
  std::vector<Block> blocks_;
  std::size_t titles_ = 0;  // the block that every page of the table begins with
  bool inTable_ = false;
  std::vector<Page> pages_;
};

}  // namespace sentrel
