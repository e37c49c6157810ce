#include "orvalix/host/message_box.h"

#include <atomic>
#include <cstdio>

namespace {

std::atomic<MessageBoxHandler> currentHandler{nullptr};

}  // namespace

int AfxMessageBox(const char* text, UINT, UINT) {
  const char* shown = text != nullptr ? text : "";
  const MessageBoxHandler handler = currentHandler;
  if (handler != nullptr) return handler(shown);
  std::fprintf(stderr, "%s\n", shown);
  return IDOK;
}

MessageBoxHandler SetMessageBoxHandler(MessageBoxHandler handler) {
  return currentHandler.exchange(handler);
}
