#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <optional>
#include <system_error>

#include <xlsxwriter.h>

#include "sheets/SheetFile.h"
#include "sheets/SheetFormats.h"
#include "text/Bytes.h"
#include "text/DecimalText.h"
#include "text/Encoding.h"
#include "text/PlatformFile.h"
#include "text/TemporaryName.h"

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

// The value of a number that a sheet keeps: it has no digits beyond those of a double, but for zeros at its end.
std::optional<double> ExactNumber(std::string_view text) {
  constexpr std::size_t kMostExact = 16;  // characters: fifteen digits and a point
  const bool isLong = text.size() - (text.starts_with('-') ? 1 : 0) > kMostExact;
  double value = 0;
  const auto read = std::from_chars(text.data(), text.data() + text.size(), value);
  if (isLong || read.ec != std::errc() || read.ptr != text.data() + text.size()) {
    return std::nullopt;
  }
  std::array<char, 32> again;
  const auto written = std::to_chars(again.data(), again.data() + again.size(), value, std::chars_format::fixed);
  if (text.find('.') != std::string_view::npos) {
    text = text.substr(0, text.find_last_not_of('0') + 1);
    text = text.substr(0, text.find_last_not_of('.') + 1);
  }
  return written.ec == std::errc() && std::string_view(again.data(), written.ptr) == text ? std::optional(value)
                                                                                          : std::nullopt;
}

class TemporarySheet {
 public:
  explicit TemporarySheet(const std::filesystem::path& folder) : path_(folder / TemporaryName()) {}
  TemporarySheet(const TemporarySheet&) = delete;
  TemporarySheet& operator=(const TemporarySheet&) = delete;
  ~TemporarySheet() { RemoveFile(path_); }

  const std::filesystem::path& path() const noexcept { return path_; }

 private:
  std::filesystem::path path_;
};

}  // namespace

class SheetWriter::Book {
 public:
  Book(const std::filesystem::path& path, const SheetOptions& wanted)
      : name_(Encode(Encoding::kUtf8, wanted.name)), hasHeader_(wanted.header) {
    lxw_workbook_options options{};
    options.constant_memory = LXW_TRUE;
    book_.reset(workbook_new_opt(Utf8Of(path).c_str(), &options));
    sheet_ = book_ == nullptr ? nullptr : workbook_add_worksheet(book_.get(), name_.c_str());
    if (sheet_ == nullptr) {
      throw SheetError("\"" + name_ + "\" cannot be the name of a sheet",
                       u"“" + std::u16string(wanted.name) + u"”不能用作工作表的名字。");
    }
    text_ = workbook_add_format(book_.get());
    format_set_num_format(text_, "@");
    header_ = workbook_add_format(book_.get());
    format_set_num_format(header_, "@");
    format_set_bold(header_);
    if (hasHeader_) {
      worksheet_freeze_panes(sheet_, 1, 0);
    }
  }

  void WriteText(std::size_t row, std::size_t column, std::string_view text) {
    Widen(column, text);
    if (text.empty()) {
      return;
    }
    const lxw_error error =
        worksheet_write_string(sheet_, static_cast<lxw_row_t>(row), static_cast<lxw_col_t>(column),
                               WithSheetEscapes(text).c_str(), row == 0 && hasHeader_ ? header_ : text_);
    if (error != LXW_NO_ERROR) {
      const std::string cell = SheetCellName(row, column);
      throw SheetError("sheet " + name_ + ", cell " + cell + ": " + lxw_strerror(error),
                       u"工作表“" + Decode(Encoding::kUtf8, name_) + u"”的单元格" +
                           std::u16string(cell.begin(), cell.end()) + u"不能写入：" + DecimalText(text.size()) +
                           u"字节的文字不合要求。");
    }
  }

  void WriteNumber(std::size_t row, std::size_t column, std::string_view text, double number) {
    Widen(column, text);
    worksheet_write_number(sheet_, static_cast<lxw_row_t>(row), static_cast<lxw_col_t>(column), number, nullptr);
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
  void Widen(std::size_t column, std::string_view text) {
    if (column >= widths_.size()) {
      widths_.resize(column + 1, kNarrowest);
    }
    widths_[column] = std::clamp(WidthOf(text) + 2, widths_[column], kWidest);
  }

  std::string name_;
  bool hasHeader_;
  std::unique_ptr<lxw_workbook, CloseWorkbook> book_;
  lxw_worksheet* sheet_ = nullptr;  // these are the book's
  lxw_format* text_ = nullptr;
  lxw_format* header_ = nullptr;
  std::vector<double> widths_;
};

SheetWriter::SheetWriter(const std::filesystem::path& path, const SheetOptions& options)
    : path_(path), book_(std::make_unique<Book>(path, options)) {}

SheetWriter::~SheetWriter() = default;

void SheetWriter::CheckPlace() const {
  if (row_ == kMostSheetRows || column_ == kMostSheetColumns) {
    throw SheetError("a sheet has no more than 1048576 rows and 16384 columns",
                     u"工作表最多1048576行、16384列，放不下。");
  }
}

void SheetWriter::AddCell(std::string_view text) {
  CheckPlace();
  book_->WriteText(row_, column_++, text);
}

void SheetWriter::AddNumber(std::string_view number) {
  CheckPlace();
  if (const std::optional<double> value = ExactNumber(number)) {
    book_->WriteNumber(row_, column_++, number, *value);
  } else {
    AddCell(number);
  }
}

void SheetWriter::EndRow() {
  CheckPlace();
  ++row_;
  column_ = 0;
}

void SheetWriter::WriteRow(std::span<const std::string> cells) {
  for (const std::string& cell : cells) {
    AddCell(cell);
  }
  EndRow();
}

void SheetWriter::Close() {
  book_->Close(path_);
}

void WriteSheetTo(ByteSink& sink, const std::filesystem::path& folder, const SheetOptions& options,
                  const std::function<void(SheetWriter&)>& fill) {
  const TemporarySheet sheet(folder);
  SheetWriter writer(sheet.path(), options);
  fill(writer);
  writer.Close();
  FileSource written(sheet.path());
  std::array<char, 65536> block;
  while (const std::size_t count = written.Read(block)) {
    sink.Write({block.data(), count});
  }
}

std::string SheetCellName(std::size_t row, std::size_t column) {
  std::string letters;
  for (std::size_t rest = column + 1; rest > 0; rest = (rest - 1) / 26) {
    letters.insert(letters.begin(), static_cast<char>('A' + (rest - 1) % 26));
  }
  return letters + std::to_string(row + 1);
}

}  // namespace scrivanta
