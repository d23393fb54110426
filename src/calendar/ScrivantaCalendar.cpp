#include "calendar/ScrivantaCalendar.h"

#include "calendar/FrmCalendar.h"

namespace scrivanta {

namespace {

class CalendarSubsystem final : public Subsystem {
 public:
  explicit CalendarSubsystem(const SubsystemHost& host) : host_(host) {}

  // Makes the window when it is first shown.
  void mnuCalendar(Workbench& workbench) {
    if (window_ == nullptr) {
      window_ = std::make_unique<FrmCalendar>(host_, workbench);
    }
    window_->Show(host_.mainWindow());
  }

 private:
  SubsystemHost host_;
  std::unique_ptr<FrmCalendar> window_;
};

}  // namespace

std::unique_ptr<Subsystem> OpenCalendar(const SubsystemHost& host) {
  auto subsystem = std::make_unique<CalendarSubsystem>(host);
  host.commands.Add("mnuCalendar", {[&window = *subsystem](Workbench& workbench) { window.mnuCalendar(workbench); }});
  return subsystem;
}

}  // namespace scrivanta
