#include "sheets/ZipArchive.h"

#include <algorithm>
#include <array>

#include <minizip/unzip.h>

namespace scrivanta {

namespace {

// What the library reads in place of a file.
struct Memory {
  std::string_view bytes;
  std::uint64_t position = 0;

  static Memory& Of(voidpf stream) { return *static_cast<Memory*>(stream); }

  static voidpf ZCALLBACK Open(voidpf opaque, const void*, int) { return opaque; }
  static uLong ZCALLBACK ReadBytes(voidpf, voidpf stream, void* buffer, uLong size) {
    Memory& memory = Of(stream);
    const std::uint64_t begin = std::min<std::uint64_t>(memory.position, memory.bytes.size());
    const std::size_t count = memory.bytes.copy(static_cast<char*>(buffer), size, static_cast<std::size_t>(begin));
    memory.position = begin + count;
    return static_cast<uLong>(count);
  }
  static uLong ZCALLBACK WriteBytes(voidpf, voidpf, const void*, uLong) { return 0; }
  static ZPOS64_T ZCALLBACK Tell(voidpf, voidpf stream) { return Of(stream).position; }
  static long ZCALLBACK Seek(voidpf, voidpf stream, ZPOS64_T offset, int origin) {
    Memory& memory = Of(stream);
    const std::uint64_t base = origin == ZLIB_FILEFUNC_SEEK_CUR   ? memory.position
                               : origin == ZLIB_FILEFUNC_SEEK_END ? memory.bytes.size()
                                                                  : 0;
    memory.position = base + offset;
    return memory.position > memory.bytes.size() ? -1 : 0;
  }
  static int ZCALLBACK Close(voidpf, voidpf) { return 0; }
  static int ZCALLBACK Error(voidpf, voidpf) { return 0; }
};

}  // namespace

struct ZipArchive::Library {
  Memory memory;
  unzFile zip = nullptr;
};

ZipArchive::ZipArchive(std::string_view bytes)
    : library_(std::make_unique<Library>(Library{.memory = {.bytes = bytes}})) {
  zlib_filefunc64_def functions{&Memory::Open, &Memory::ReadBytes, &Memory::WriteBytes, &Memory::Tell,
                                &Memory::Seek, &Memory::Close,     &Memory::Error,      &library_->memory};
  library_->zip = unzOpen2_64("", &functions);
}

ZipArchive::~ZipArchive() {
  if (isOpen()) {
    unzClose(library_->zip);
  }
}

bool ZipArchive::isOpen() const noexcept {
  return library_->zip != nullptr;
}

ZipArchive::Entry ZipArchive::Read(const std::string& name, const ZipLimits& limits, Progress& progress) const {
  constexpr int kIgnoringCase = 2;
  constexpr std::uint64_t kAlwaysTaken = 16 * 1024 * 1024;
  unzFile zip = library_->zip;
  if (unzLocateFile(zip, name.c_str(), kIgnoringCase) != UNZ_OK) {
    return {};
  }
  unz_file_info64 info{};
  if (unzGetCurrentFileInfo64(zip, &info, nullptr, 0, nullptr, 0, nullptr, 0) != UNZ_OK ||
      unzOpenCurrentFile(zip) != UNZ_OK) {
    return {Outcome::kDamaged, {}};
  }
  // What the archive says of its sizes is a claim; what comes out is counted.
  const std::uint64_t packed = std::min<std::uint64_t>(info.compressed_size, library_->memory.bytes.size());
  const std::uint64_t most = std::min(limits.entryBytes, std::max(kAlwaysTaken, packed * limits.ratio));
  Entry entry{Outcome::kRead, {}};
  std::array<char, 65536> block;
  int count = 0;
  while ((count = unzReadCurrentFile(zip, block.data(), block.size())) > 0) {
    entry.bytes.append(block.data(), static_cast<std::size_t>(count));
    progress.Report(entry.bytes.size(), info.uncompressed_size);
    if (entry.bytes.size() > most) {
      unzCloseCurrentFile(zip);
      return {Outcome::kTooLarge, {}};
    }
  }
  if (unzCloseCurrentFile(zip) != UNZ_OK || count < 0) {
    return {Outcome::kDamaged, {}};
  }
  return entry;
}

}  // namespace scrivanta
