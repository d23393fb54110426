// Keeps a snapshot of the document while it is changed, and offers what instances that have died left behind.
#pragma once

#include <functional>
#include <optional>

#include "shell/document/DocumentFile.h"
#include "shell/document/RecoveryPlace.h"
#include "shell/document/SnapshotSchedule.h"
#include "shell/document/SnapshotWriter.h"
#include "shell/workbench/Workbench.h"

namespace scrivanta {

class DocumentRecovery {
 public:
  using Time = SnapshotSchedule::Time;

  DocumentRecovery(Workbench& workbench, DocumentFile& document,
                   std::function<Time()> now = &std::chrono::steady_clock::now)
      : workbench_(workbench), document_(document), now_(std::move(now)) {}

  // The document has been changed, text or formatting.
  void NoteChange() { schedule_.NoteChange(now_()); }
  // The document is safe without a snapshot, or has been given up by its user: the snapshot is removed.
  void Forget();

  // To be called ten times a second while IsPending. Does a part of the work, a few milliseconds of it; what it cannot
  // do is shown as a remark and tried again later.
  void Work();
  bool IsPending() const noexcept { return schedule_.IsPending() || writer_.has_value(); }
  // The same to the end, and at once: the snapshot is up to date when this returns.
  void Complete();

  // Asks about every document that was left behind; nothing is removed unless the user refuses it. The first goes into
  // this window if it is free, each other one into a window of its own.
  void OfferLeftBehind();
  // Shows the document of the snapshot, for a window that was opened with it. False when the path is not that of a
  // snapshot. Throws ExplainedError when it cannot be shown.
  bool Restore(const std::filesystem::path& snapshotPath);

 private:
  void Try(const std::function<void()>& action);
  bool Begin();
  void WriteNext();
  void OfferPlace(RecoveryPlace place);
  void ShowHere(RecoveryPlace place, const Snapshot& snapshot);
  bool IsWindowFree() const;

  Workbench& workbench_;
  DocumentFile& document_;
  std::function<Time()> now_;
  SnapshotSchedule schedule_;
  std::optional<RecoveryPlace> place_;  // made for the first snapshot
  std::optional<SnapshotWriter> writer_;
};

}  // namespace scrivanta
