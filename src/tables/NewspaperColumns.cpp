#include "tables/NewspaperColumns.h"

#include <algorithm>
#include <string>

#include "tables/NewspaperPieces.h"

namespace scrivanta {

namespace {

// Where the pieces stand: page, row and column of each by its number.
class Places {
 public:
  // A page of no rows: across.
  Places(std::size_t columns, std::size_t rows) : columns_(columns), rows_(rows) {}

  std::size_t pieces() const { return columns_ * std::max<std::size_t>(rows_, 1); }
  std::size_t ColumnOf(std::uint64_t piece) const {
    return static_cast<std::size_t>(rows_ == 0 ? piece % columns_ : piece / rows_ % columns_);
  }
  // The piece of a page in this place; it may be beyond the last.
  std::size_t PieceAt(std::size_t row, std::size_t column) const { return rows_ == 0 ? column : column * rows_ + row; }
  std::size_t rows() const { return std::max<std::size_t>(rows_, 1); }

 private:
  std::size_t columns_;
  std::size_t rows_;
};

// The pieces of one page and their widths.
class Page {
 public:
  void Add(std::string_view text, std::size_t width) {
    text_.append(text);
    pieces_.push_back({text_.size(), width});
  }
  void Clear() {
    text_.clear();
    pieces_.clear();
  }
  std::size_t size() const { return pieces_.size(); }

  void Write(LineWriter& out, const Places& places, const std::vector<std::size_t>& widths, std::size_t gap) {
    for (std::size_t row = 0; row < places.rows(); ++row) {
      row_.clear();
      std::size_t padding = 0;  // of what stands before, not yet written
      for (std::size_t column = 0; column < widths.size(); ++column) {
        const std::size_t piece = places.PieceAt(row, column);
        if (piece >= pieces_.size()) {
          break;
        }
        const std::size_t begin = piece == 0 ? 0 : pieces_[piece - 1].end;
        row_.append(padding, ' ').append(text_, begin, pieces_[piece].end - begin);
        padding = widths[column] - std::min(widths[column], pieces_[piece].width) + gap;
      }
      if (places.PieceAt(row, 0) < pieces_.size()) {
        row_.resize(row_.find_last_not_of(' ') + 1);
        out.WriteLine(row_);
      }
    }
  }

 private:
  struct Piece {
    std::size_t end = 0;  // in text_
    std::size_t width = 0;
  };

  std::string text_;
  std::vector<Piece> pieces_;
  std::string row_;
};

std::size_t RowsOfPage(const LinePass& lines, const NewspaperOptions& options) {
  if (options.across || options.linesPerPage != 0) {
    return options.across ? 0 : options.linesPerPage;
  }
  std::uint64_t count = 0;
  ForEachPiece(lines, options, [&count](const NewspaperPiece&) { ++count; });
  return std::max<std::size_t>(1, static_cast<std::size_t>((count + options.count - 1) / options.count));
}

std::vector<std::size_t> WidthsOfColumns(const LinePass& lines, const Places& places, const NewspaperOptions& options) {
  std::vector<std::size_t> widths(options.count, options.width);
  if (options.width != 0 && options.tooWide != TooWide::kWiden) {
    return widths;
  }
  std::uint64_t number = 0;
  ForEachPiece(lines, options, [&](const NewspaperPiece& piece) {
    std::size_t& width = widths[places.ColumnOf(number++)];
    width = std::max(width, piece.width);
  });
  return widths;
}

}  // namespace

NewspaperResult SetInColumns(const LinePass& lines, LineWriter& out, LineWriter& cutOff,
                             const NewspaperOptions& options) {
  const Places places(options.count, RowsOfPage(lines, options));
  const std::vector<std::size_t> widths = WidthsOfColumns(lines, places, options);
  NewspaperResult result;
  Page page;
  ForEachPiece(lines, options, [&](const NewspaperPiece& piece) {
    page.Add(piece.text, piece.width);
    result.lines = piece.line;
    if (!piece.cutOff.empty()) {
      ++result.cutLines;
      cutOff.WriteRaw(std::to_string(piece.line) + "\t");
      cutOff.WriteLine(piece.cutOff);
    }
    if (page.size() == places.pieces()) {
      page.Write(out, places, widths, options.gap);
      page.Clear();
    }
  });
  page.Write(out, places, widths, options.gap);
  return result;
}

}  // namespace scrivanta
