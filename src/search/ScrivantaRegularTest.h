// The pattern tester: tries a pattern on the document and explains the dialect.
#pragma once

#include "search/RegularTest.h"
#include "win/Dialog.h"

namespace scrivanta {

class ScrivantaRegularTest final : public Dialog, private RegularTestView {
 public:
  ScrivantaRegularTest(WindowHost& host, Workbench& workbench);

  // Opens the window; one that is open already, in this instance or another, is brought to the front instead.
  void Show(HWND owner);

 private:
  void OnInit() override;
  bool OnCommand(int controlId, int notification) override;
  void OnClose() override;
  bool OnComboKey(WPARAM key);

  std::u16string PatternBox() const override;
  void SetPatternBox(const std::u16string& text, const std::vector<std::u16string>& list) override;
  DialogPlace Place() const override;
  void SetPlace(const DialogPlace& place) override;

  RegularTest logic_;
};

}  // namespace scrivanta
