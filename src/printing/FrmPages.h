// The document in pages of a device: with its formatting, as the edit control prints it, or as plain text.
#pragma once

#include <windows.h>

#include <richedit.h>

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "printing/PageAreas.h"
#include "printing/TextPages.h"
#include "shell/workbench/FontLine.h"
#include "text/Interface.h"
#include "win/Handles.h"

namespace scrivanta {

// A font in the size that it has on the device.
OwnedFont MakeDeviceFont(HDC device, const FontDescription& font);
// Its measures there.
TEXTMETRICW FontMetrics(HDC device, const OwnedFont& font);

// While it lives the object is selected into the device.
class SelectedObject {
 public:
  SelectedObject(HDC device, HGDIOBJ object) : device_(device), before_(SelectObject(device, object)) {}
  SelectedObject(const SelectedObject&) = delete;
  SelectedObject& operator=(const SelectedObject&) = delete;
  ~SelectedObject() { SelectObject(device_, before_); }

 private:
  HDC device_;
  HGDIOBJ before_;
};

class FrmPages : public Interface {
 public:
  // Finds the pages. False when this cannot print the document.
  virtual bool LayOut(Progress& progress) = 0;
  virtual std::size_t Count() const = 0;
  virtual void Draw(std::size_t page) = 0;
};

// The edit control's own printing.
class FrmRichPages final : public FrmPages {
 public:
  FrmRichPages(HDC device, const PaperMetrics& paper, const PageRect& area, HWND box, CHARRANGE range);
  ~FrmRichPages() override;

  bool LayOut(Progress& progress) override;
  std::size_t Count() const override { return starts_.size(); }
  void Draw(std::size_t page) override;

 private:
  // Where the page ends that begins there.
  LONG Format(LONG start, LONG end, bool draw) const;

  HDC device_;
  PaperMetrics paper_;
  PageRect area_;
  HWND box_;
  CHARRANGE range_;
  std::vector<LONG> starts_;
};

// Plain text in one font.
class FrmTextPages final : public FrmPages, private LineMeasure {
 public:
  FrmTextPages(HDC device, const PageRect& area, const FontDescription& font, const std::u16string& text);

  bool LayOut(Progress& progress) override;
  std::size_t Count() const override { return pages_.pageCount(); }
  void Draw(std::size_t page) override;

 private:
  std::size_t FittingUnits(std::u16string_view text) const override;

  HDC device_;
  PageRect area_;
  OwnedFont font_;
  int lineHeight_;
  TextPages pages_;
};

}  // namespace scrivanta
