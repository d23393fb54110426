// The window that exchanges tables with a database.
#pragma once

#include "database/DatabaseDialog.h"
#include "win/Dialog.h"

namespace scrivanta {

class FrmDatabase final : public Dialog, private DatabaseView {
 public:
  FrmDatabase(WindowHost& host, DatabaseDialog& dialog);

 private:
  void OnInit() override;
  bool OnCommand(int controlId, int notification) override;

  std::u16string Source() const override;
  void SetSource(const std::u16string& source) override;
  void SetSources(const std::vector<std::u16string>& sources) override;
  void SetTables(const std::vector<std::u16string>& tables) override;
  int ChosenTable() const override;
  std::u16string Statement() const override;
  std::u16string TargetTable() const override;
  void SetTargetTable(const std::u16string& table) override;
  Separation Separator() const override;
  bool HasHeader() const override;
  void SetRows(const ShownRows& rows) override;
  void SetState(const std::u16string& text) override;

  DatabaseDialog& dialog_;
};

}  // namespace scrivanta
