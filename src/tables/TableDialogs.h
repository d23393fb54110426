// The windows of the commands that work on tables, as the handlers see them: Frm... classes on the real desktop,
// scripts in tests.
#pragma once

#include "text/Interface.h"

namespace scrivanta {

class ConversionDialog;
class JoinDialog;
class InitialsDialog;
class MergeDialog;

// All are modal: they come back when they are closed.
class TableDialogs : public Interface {
 public:
  virtual void ShowFenLan(ConversionDialog& dialog) = 0;
  virtual void ShowChangeToSDFFile(ConversionDialog& dialog) = 0;
  virtual void ShowDataGuanLianHeBin(JoinDialog& dialog) = 0;
  virtual void ShowJiaZiMu(InitialsDialog& dialog) = 0;
  virtual void ShowMergeFile(MergeDialog& dialog) = 0;
};

}  // namespace scrivanta
