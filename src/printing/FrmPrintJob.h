// Pages on their way to a printer of the platform.
#pragma once

#include <windows.h>

#include <memory>

#include "printing/FrmPages.h"
#include "printing/PrintCommands.h"

namespace scrivanta {

class FrmPrintJob final : public PrintJob {
 public:
  // The edit control holds the document, the font is its own.
  FrmPrintJob(OwnedDeviceContext device, const PageMargins& margins, FontDescription font, HWND box);
  ~FrmPrintJob() override;

  std::size_t LayOut(const PrintedText& text, Progress& progress) override;
  void Start(const std::u16string& name) override;
  void PrintPage(std::size_t page, const PageHeader& header) override;
  void Finish() override;

 private:
  CHARRANGE ControlRange(const PrintedText& text) const;
  void DrawHeader(const PageHeader& header) const;

  OwnedDeviceContext device_;
  FontDescription font_;
  OwnedFont headerFont_;
  HWND box_;
  PaperMetrics paper_;
  PageAreas areas_;
  std::unique_ptr<FrmPages> pages_;
  bool isStarted_ = false;
};

}  // namespace scrivanta
