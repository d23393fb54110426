// How pages are printed, kept between runs.
#pragma once

#include "shell/workbench/Settings.h"

namespace scrivanta {

// In hundredths of a millimetre, from the edges of the paper.
struct PageMargins {
  int left = 2000;
  int top = 2000;
  int right = 2000;
  int bottom = 2000;

  friend bool operator==(const PageMargins&, const PageMargins&) = default;
};

struct PageSetup {
  PageMargins margins;
  bool landscape = false;
  int paper = 0;  // the platform's number of the paper size; 0: the printer's own

  friend bool operator==(const PageSetup&, const PageSetup&) = default;
};

// What is missing or makes no sense is as in a fresh PageSetup.
PageSetup ReadPageSetup(const Settings& settings);
void SavePageSetup(const PageSetup& setup, Settings& settings);

}  // namespace scrivanta
