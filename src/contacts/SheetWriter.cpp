#include <algorithm>
#include <array>
#include <cerrno>
#include <system_error>

#include <xlsxwriter.h>

#include "contacts/SheetFile.h"
#include "contacts/SheetFormats.h"
#include "text/Bytes.h"
#include "text/DecimalText.h"
#include "text/Encoding.h"

namespace scrivanta {

namespace {

constexpr double kNarrowest = 8;  // columns, in digits of the default font
constexpr double kWidest = 60;

struct CloseWorkbook {
  void operator()(lxw_workbook* book) const noexcept { lxw_workbook_free(book); }
};

// About how wide a text is: a Chinese character takes two digits. Of its widest line.
double WidthOf(std::string_view text) {
  double widest = 0;
  double width = 0;
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if (c == '\n') {
      width = 0;
    } else if (byte < 0x80) {
      width += 1;
    } else if (byte >= 0xC0) {
      width += byte >= 0xE0 ? 2 : 1;
    }
    widest = std::max(widest, width);
  }
  return widest;
}

std::string Utf8Of(const std::filesystem::path& path) {
  const std::u8string text = path.u8string();
  return {text.begin(), text.end()};
}

}  // namespace

class SheetWriter::Book {
 public:
  Book(const std::filesystem::path& path, std::u16string_view sheetName) : name_(Encode(Encoding::kUtf8, sheetName)) {
    lxw_workbook_options options{};
    options.constant_memory = LXW_TRUE;
    book_.reset(workbook_new_opt(Utf8Of(path).c_str(), &options));
    sheet_ = book_ == nullptr ? nullptr : workbook_add_worksheet(book_.get(), name_.c_str());
    if (sheet_ == nullptr) {
      throw SheetError("\"" + name_ + "\" cannot be the name of a sheet",
                       u"“" + std::u16string(sheetName) + u"”不能用作工作表的名字。");
    }
    text_ = workbook_add_format(book_.get());
    format_set_num_format(text_, "@");
    header_ = workbook_add_format(book_.get());
    format_set_num_format(header_, "@");
    format_set_bold(header_);
    worksheet_freeze_panes(sheet_, 1, 0);
  }

  void WriteCell(std::size_t row, std::size_t column, const std::string& text) {
    if (column >= widths_.size()) {
      widths_.resize(column + 1, kNarrowest);
    }
    if (text.empty()) {
      return;
    }
    const lxw_error error = worksheet_write_string(sheet_, static_cast<lxw_row_t>(row), static_cast<lxw_col_t>(column),
                                                   WithSheetEscapes(text).c_str(), row == 0 ? header_ : text_);
    if (error != LXW_NO_ERROR) {
      const std::string cell = SheetCellName(row, column);
      throw SheetError("sheet " + name_ + ", cell " + cell + ": " + lxw_strerror(error),
                       u"工作表“" + Decode(Encoding::kUtf8, name_) + u"”的单元格" +
                           std::u16string(cell.begin(), cell.end()) + u"不能写入：" + DecimalText(text.size()) +
                           u"字节的文字不合要求。");
    }
    widths_[column] = std::clamp(WidthOf(text) + 2, widths_[column], kWidest);
  }

  void Close(const std::filesystem::path& path) {
    for (std::size_t i = 0; i < widths_.size(); ++i) {
      const auto column = static_cast<lxw_col_t>(i);
      worksheet_set_column(sheet_, column, column, widths_[i], text_);
    }
    errno = 0;
    // The book is gone after it, whatever happens.
    if (workbook_close(book_.release()) != LXW_NO_ERROR) {
      throw FileError(path, errno != 0 ? LastFileError() : std::make_error_code(std::errc::io_error));
    }
  }

 private:
  std::string name_;
  std::unique_ptr<lxw_workbook, CloseWorkbook> book_;
  lxw_worksheet* sheet_ = nullptr;  // these are the book's
  lxw_format* text_ = nullptr;
  lxw_format* header_ = nullptr;
  std::vector<double> widths_;
};

SheetWriter::SheetWriter(const std::filesystem::path& path, std::u16string_view sheetName)
    : path_(path), book_(std::make_unique<Book>(path, sheetName)) {}

SheetWriter::~SheetWriter() = default;

void SheetWriter::WriteRow(std::span<const std::string> cells) {
  if (row_ == kMostSheetRows || cells.size() > kMostSheetColumns) {
    throw SheetError("a sheet has no more than 1048576 rows and 16384 columns",
                     u"工作表最多1048576行、16384列，放不下。");
  }
  for (std::size_t i = 0; i < cells.size(); ++i) {
    book_->WriteCell(row_, i, cells[i]);
  }
  ++row_;
}

void SheetWriter::Close() {
  book_->Close(path_);
}

std::string SheetCellName(std::size_t row, std::size_t column) {
  std::string letters;
  for (std::size_t rest = column + 1; rest > 0; rest = (rest - 1) / 26) {
    letters.insert(letters.begin(), static_cast<char>('A' + (rest - 1) % 26));
  }
  return letters + std::to_string(row + 1);
}

}  // namespace scrivanta
