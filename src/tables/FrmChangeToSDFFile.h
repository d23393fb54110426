// The window in which the layout of records of fixed widths is chosen.
#pragma once

#include "tables/FrmConversion.h"
#include "tables/SdfHandler.h"

namespace scrivanta {

class FrmChangeToSDFFile final : public FrmConversion {
 public:
  FrmChangeToSDFFile(WindowHost& host, ConversionDialog& logic);

 private:
  void ShowChoices() override;
  void EnableControls() override;
  bool OnButton(int controlId) override;
  std::u16string Preview() override { return logic_.PreviewOf(SdfConversion(Choices())); }
  void Start() override { logic_.Run(SdfConversion(Choices())); }
  SdfChoices Choices() const;
  void Show(const SdfChoices& choices);

  ConversionDialog& logic_;
};

}  // namespace scrivanta
