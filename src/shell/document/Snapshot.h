// What a document is besides its file: all that is needed to show it again after a crash, as it was and with the same
// place to be saved to.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "shell/workbench/Editor.h"
#include "text/DocumentFormat.h"
#include "text/PlatformFile.h"

namespace scrivanta {

struct Snapshot {
  std::filesystem::path path;  // empty for an untitled document
  DocumentFormat format;
  std::optional<FileStamp> stamp;  // of the file that the document was read from, or saved to last
  TextRange selection;
  std::u16string taken;  // date and time, to be read by a person
  // The text; or the bytes of a rich text, when it has formatting.
  std::u16string text;
  std::optional<std::string> rtf;

  bool operator==(const Snapshot&) const = default;
};

// A snapshot as a file: lines in UTF-8 that a person can read, as in an ini file, then the body: the text in UTF-16,
// little end first, or the rich text.
std::string SnapshotHeader(const Snapshot& snapshot);
// In bytes.
std::size_t SnapshotBodySize(const Snapshot& snapshot);
// The bytes of the body from an even offset on, up to as many, an even number.
std::string SnapshotBody(const Snapshot& snapshot, std::size_t offset, std::size_t count);

// Nothing when the bytes are no snapshot.
std::optional<Snapshot> ReadSnapshot(std::string_view bytes);

}  // namespace scrivanta
