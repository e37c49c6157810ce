#include "orvalix/qt/held_notices_internal.h"

#include <utility>

namespace orvalix {
namespace {

HeldNotices* current = nullptr;  // touched by the thread of the windows only

}  // namespace

HeldNotices::HeldNotices() : m_outer(std::exchange(current, this)) {}

HeldNotices::~HeldNotices() { current = m_outer; }

bool HeldNotices::Take(const char* text) {
  if (current == nullptr) return false;
  if (current->m_first.isNull()) current->m_first = QString::fromUtf8(text);
  return true;
}

}  // namespace orvalix
