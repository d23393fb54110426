// The thread's part in the platform's object model: single-threaded, with the clipboard and drag and drop.
#pragma once

#include <windows.h>

#include <ole2.h>

namespace scrivanta {

class ComApartment {
 public:
  ComApartment() : entered_(SUCCEEDED(OleInitialize(nullptr))) {}
  ComApartment(const ComApartment&) = delete;
  ComApartment& operator=(const ComApartment&) = delete;
  ~ComApartment() {
    if (entered_) {
      OleFlushClipboard();  // what was copied outlives the program
      OleUninitialize();
    }
  }

 private:
  bool entered_;
};

}  // namespace scrivanta
