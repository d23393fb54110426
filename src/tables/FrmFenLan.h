// The window in which hard columns are chosen, and how lines are split into a table.
#pragma once

#include "tables/FenLanHandler.h"
#include "tables/FrmConversion.h"

namespace scrivanta {

class FrmFenLan final : public FrmConversion {
 public:
  FrmFenLan(WindowHost& host, ConversionDialog& logic);

 private:
  void ShowChoices() override;
  void EnableControls() override;
  std::u16string Preview() override { return logic_.PreviewOf(FenLanConversion(Choices())); }
  void Start() override { logic_.Run(FenLanConversion(Choices())); }
  FenLanChoices Choices() const;

  ConversionDialog& logic_;
};

}  // namespace scrivanta
