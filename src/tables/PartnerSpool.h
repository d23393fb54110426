// Rows of a large second table under the numbers of their keys, kept in the order in which they come.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "text/Progress.h"
#include "text/Spool.h"

namespace scrivanta {

class PartnerSpool {
 public:
  explicit PartnerSpool(std::size_t memoryLimit) : spool_(std::filesystem::temp_directory_path(), memoryLimit) {}

  // Throws FileError, here and below.
  void Add(std::uint32_t key, std::string_view tail) {
    const Head head{key, tail.size()};
    spool_.Write({reinterpret_cast<const char*>(&head), sizeof(head)});
    spool_.Write(tail);
  }

  // Calls visit(key, tail) for each, as often as it is wanted; nothing is added after the first time.
  void ForEach(Progress& progress, const auto& visit) {
    spool_.Rewind();
    std::uint64_t read = 0;
    std::size_t begin = 0;  // of what has not been visited, in buffer_
    std::size_t end = 0;
    for (;;) {
      Head head;
      const std::size_t unread = end - begin;
      if (unread >= sizeof(head)) {
        std::memcpy(&head, buffer_.data() + begin, sizeof(head));
        if (unread - sizeof(head) >= head.bytes) {
          visit(head.key, std::string_view(buffer_.data() + begin + sizeof(head), head.bytes));
          begin += sizeof(head) + head.bytes;
          continue;
        }
      }
      std::memmove(buffer_.data(), buffer_.data() + begin, unread);
      begin = 0;
      if (unread == buffer_.size()) {
        buffer_.resize(buffer_.size() * 2);
      }
      const std::size_t count = spool_.Read(std::span(buffer_).subspan(unread));
      if (count == 0) {
        return;
      }
      end = unread + count;
      read += count;
      progress.Report(read, spool_.Size().value_or(0));
    }
  }

 private:
  struct Head {
    std::uint32_t key = 0;
    std::size_t bytes = 0;  // of the tail behind it
  };

  static constexpr std::size_t kBlockSize = 64 * 1024;

  Spool spool_;
  std::vector<char> buffer_ = std::vector<char>(kBlockSize);
};

}  // namespace scrivanta
