// The window in which it is chosen how the document is joined with a second table.
#pragma once

#include "tables/FrmConversion.h"
#include "tables/JoinHandler.h"

namespace scrivanta {

class FrmDataGuanLianHeBin final : public FrmConversion {
 public:
  FrmDataGuanLianHeBin(WindowHost& host, JoinDialog& logic);

 private:
  void ShowChoices() override;
  bool OnButton(int controlId) override;
  std::u16string Preview() override { return logic_.PreviewOf(Choices()); }
  void Start() override { logic_.Run(Choices()); }
  JoinChoices Choices() const;

  JoinDialog& logic_;
};

}  // namespace scrivanta
