// Tells when another thread of this process has come past what it was given to do: everything posted to it, or every
// key pressed, before the fence was put up.
#pragma once

#include <windows.h>

#include <functional>

namespace scrivanta {

class MessageFence {
 public:
  // The thread is the one that owns the window. One fence a process.
  explicit MessageFence(HWND window);
  MessageFence(const MessageFence&) = delete;
  MessageFence& operator=(const MessageFence&) = delete;
  ~MessageFence();

  // Returns when the thread takes the next message after those that were posted before, or when `ended` says that there
  // is nothing left to wait for. A command that was posted has then returned, or asks a question, or lets messages in
  // while it works.
  void WaitForPosted(const std::function<bool()>& ended);
  // The same for keys and for what they have caused.
  void WaitForKeys(const std::function<bool()>& ended);

 private:
  HWND window_;
  HHOOK hook_;
};

}  // namespace scrivanta
