// What the layer of bytes, lines and encodings costs: processor time, best of five.
#include <algorithm>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <functional>
#include <random>
#include <string>

#include "text/Bytes.h"
#include "text/DocumentFormat.h"
#include "text/Encoding.h"
#include "text/LineReader.h"
#include "text/LineWriter.h"
#include "text/TemporaryName.h"

namespace scrivanta {
namespace {

constexpr std::size_t kLines = 1'000'000;

// A million lines of Chinese with some ASCII in it, 40 MB as GBK.
std::u16string Sample() {
  std::mt19937 random(1);
  std::u16string text;
  for (std::size_t line = 0; line < kLines; ++line) {
    for (std::size_t word = 0; word < 3; ++word) {
      for (std::size_t i = 0; i < 5; ++i) {
        text += static_cast<char16_t>(0x4E00 + random() % 0x5000);
      }
      text += u" 2a, ";
      text.resize(text.size() - random() % 6);
    }
    text += u"\r\n";
  }
  return text;
}

void Measure(const char* name, std::size_t bytes, const std::function<void()>& work) {
  std::clock_t best = 0;
  for (int round = 0; round < 5; ++round) {
    const std::clock_t begin = std::clock();
    work();
    const std::clock_t taken = std::clock() - begin;
    best = round == 0 ? taken : std::min(best, taken);
  }
  const double milliseconds = 1000.0 * static_cast<double>(best) / CLOCKS_PER_SEC;
  std::printf("%-28s %6.1f MB %7.1f ms\n", name, static_cast<double>(bytes) / 1e6, milliseconds);
}

void CopyLines(const std::filesystem::path& from, const std::filesystem::path& to) {
  FileSource source(from);
  FileSink sink(to);
  NoProgress progress;
  LineReader reader(source, LineEnds::kCrLfOrLf, progress);
  LineWriter writer(sink);
  while (reader.Next()) {
    writer.WriteLine(reader.line());
  }
  writer.Flush();
  sink.Close();
}

void Run() {
  const std::u16string text = Sample();
  const std::string gbk = Encode(Encoding::kGbk, text);
  const std::string utf8 = Encode(Encoding::kUtf8, text);
  // Into buffers that are kept, so that what the system takes for new memory is not counted.
  std::u16string decoded;
  std::string encoded;
  const auto measureBothWays = [&](Encoding encoding, const char* from, const char* to, const std::string& bytes) {
    Measure(from, bytes.size(), [&] {
      decoded.clear();
      DecodeAppend(encoding, bytes, decoded);
    });
    Measure(to, bytes.size(), [&] {
      encoded.clear();
      EncodeAppend(encoding, text, encoded);
    });
  };
  measureBothWays(Encoding::kGbk, "GBK to text", "text to GBK", gbk);
  measureBothWays(Encoding::kUtf8, "UTF-8 to text", "text to UTF-8", utf8);

  const std::filesystem::path folder = std::filesystem::temp_directory_path() / TemporaryName();
  std::filesystem::create_directory(folder);
  FileSink input(folder / "in");
  input.Write(gbk);
  input.Close();
  Measure("copy a file by lines", gbk.size(), [&] { CopyLines(folder / "in", folder / "out"); });
  std::filesystem::remove_all(folder);

  for (const DocumentLineEnds lineEnds : {DocumentLineEnds::kCrLf, DocumentLineEnds::kLf}) {
    const DocumentFormat format = {.lineEnds = lineEnds};
    const bool isLf = lineEnds == DocumentLineEnds::kLf;
    const std::string bytes = EncodeDocument(text + text, format);
    const DecodedDocument document = DecodeDocument(bytes);
    Measure(isLf ? "open a document, LF" : "open a document", bytes.size(), [&] { DecodeDocument(bytes); });
    Measure(isLf ? "save a document, LF" : "save a document", bytes.size(),
            [&] { EncodeDocument(document.text, document.format); });
  }
}

}  // namespace
}  // namespace scrivanta

int main() {
  scrivanta::Run();
}
