// The platform's dialog for choosing a file, open in a process.
#pragma once

#include <windows.h>

#include <filesystem>
#include <string>
#include <vector>

namespace scrivanta {

class FileDialogDriver {
 public:
  // Waits for the dialog and for the box in which the name is typed.
  explicit FileDialogDriver(DWORD processId);

  // Types the path, confirms, and returns when the dialog has gone.
  void Choose(const std::filesystem::path& file) const;
  void Cancel() const;

  std::u16string Caption() const;
  // The labels of the filters, in order.
  std::vector<std::u16string> Filters() const;
  std::u16string Name() const;

 private:
  HWND NameBox() const;
  void Press(int buttonId) const;

  HWND window_;
};

}  // namespace scrivanta
