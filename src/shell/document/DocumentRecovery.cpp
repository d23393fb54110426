#include "shell/document/DocumentRecovery.h"

#include <algorithm>
#include <utility>

#include "shell/workbench/NewInstance.h"
#include "text/Bytes.h"
#include "text/DateTimeText.h"
#include "text/ErrorText.h"
#include "text/ExplainedError.h"
#include "text/PlatformFile.h"

namespace scrivanta {

namespace {

constexpr std::size_t kShownBeginning = 40;  // characters

// The first line that says something, for the user to know the document again.
std::u16string Beginning(const std::u16string& text) {
  const std::size_t start = std::min(text.find_first_not_of(u" \t\r\n"), text.size());
  const std::size_t end = std::min(text.find_first_of(u"\r\n", start), text.size());
  std::u16string beginning = text.substr(start, std::min(end - start, kShownBeginning));
  std::ranges::replace(beginning, u'\0', u' ');
  return end - start > kShownBeginning ? beginning + u"……" : beginning;
}

Message QuestionAbout(const Snapshot& snapshot, const std::u16string& text) {
  const std::u16string name = snapshot.path.empty() ? u"（还没有名字的文档）" : TextOfPath(snapshot.path);
  return {.text = u"上次没有正常结束，这个文档有改动没有存盘：\n" + name + u"\n" + snapshot.taken + u"\n“" +
                  Beginning(text) + u"”\n\n“是”：恢复\n“否”：丢弃这些改动\n“取消”：先留着，下次启动再问",
          .buttons = Buttons::kYesNoCancel,
          .icon = Icon::kQuestion};
}

}  // namespace

void DocumentRecovery::Forget() {
  schedule_.NoteTaken();
  writer_.reset();
  if (place_) {
    place_->RemoveSnapshot();
  }
}

void DocumentRecovery::Work() {
  Try([this] {
    if (writer_ || (schedule_.IsDue(now_()) && Begin())) {
      WriteNext();
    }
  });
}

void DocumentRecovery::Complete() {
  Try([this] {
    if (schedule_.IsPending()) {
      writer_.reset();
      Begin();
    }
    while (writer_) {
      WriteNext();
    }
  });
}

void DocumentRecovery::Try(const std::function<void()>& action) {
  try {
    action();
  } catch (const FileError& error) {
    writer_.reset();
    schedule_.NoteChange(now_());
    workbench_.ShowStatus(u"恢复用的副本没有写成：" + FileErrorReason(error.code()));
  }
}

void DocumentRecovery::WriteNext() {
  if (writer_->WriteNext()) {
    writer_.reset();
  }
}

// False when there is nothing to write.
bool DocumentRecovery::Begin() {
  schedule_.NoteTaken();
  if (!document_.IsChanged() || document_.IsEncrypted()) {
    return false;
  }
  if (!place_) {
    place_ = RecoveryPlace::Make(workbench_.folders().recovery);
  }
  Snapshot snapshot = document_.Capture();
  const auto now = workbench_.clock().Now();
  snapshot.taken = DateText(now) + u" " + TimeText(now);
  writer_.emplace(place_->SnapshotPath(), std::move(snapshot));
  return true;
}

void DocumentRecovery::OfferLeftBehind() {
  // All are taken before the first question, so that no other instance asks the same.
  for (RecoveryPlace& place : RecoveryPlace::TakeLeftBehind(workbench_.folders().recovery)) {
    OfferPlace(std::move(place));
  }
}

void DocumentRecovery::OfferPlace(RecoveryPlace place) {
  const std::optional<Snapshot> snapshot = place.Read();
  const std::optional<std::u16string> text = snapshot ? document_.TextOf(*snapshot) : std::nullopt;
  if (!text) {
    return;
  }
  if (document_.IsInItsFile(*snapshot)) {
    place.RemoveSnapshot();  // killed just after it had been saved
    return;
  }
  const Answer answer = workbench_.prompts().Ask(QuestionAbout(*snapshot, *text));
  if (answer == Answer::kNo) {
    place.RemoveSnapshot();
  } else if (answer == Answer::kYes && IsWindowFree()) {
    ShowHere(std::move(place), *snapshot);
  } else if (answer == Answer::kYes) {
    const std::filesystem::path path = place.SnapshotPath();
    { const RecoveryPlace left = std::move(place); }
    StartInstance(workbench_, path);
  }
}

bool DocumentRecovery::Restore(const std::filesystem::path& snapshotPath) {
  if (!RecoveryPlace::IsSnapshotPath(workbench_.folders().recovery, snapshotPath)) {
    return false;
  }
  std::optional<RecoveryPlace> place = RecoveryPlace::Take(snapshotPath.parent_path());
  const std::optional<Snapshot> snapshot = place ? place->Read() : std::nullopt;
  if (!snapshot) {
    throw ExplainedError("the snapshot cannot be restored",
                         u"没有可恢复的文档，或它已在另一个窗口里恢复：\n" + TextOfPath(snapshotPath));
  }
  ShowHere(*std::move(place), *snapshot);
  return true;
}

// The place becomes this instance's own: the snapshot stands until the document is safe, at every moment.
void DocumentRecovery::ShowHere(RecoveryPlace place, const Snapshot& snapshot) {
  document_.Restore(snapshot);
  place_ = std::move(place);
}

bool DocumentRecovery::IsWindowFree() const {
  return document_.Path().empty() && !document_.IsChanged() && !document_.IsEncrypted() &&
         workbench_.editor().Text().empty();
}

}  // namespace scrivanta
