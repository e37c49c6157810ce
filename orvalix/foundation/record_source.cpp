#include <algorithm>
#include <cstring>

#include "orvalix/foundation/record_source_internal.h"
#include "orvalix/host/file_handle_internal.h"

namespace orvalix {
namespace {

constexpr std::size_t kBlock = std::size_t{1} << 16;

thread_local RecordSource* innermost = nullptr;

}  // namespace

RecordSource::RecordSource(void* file)
    : m_file(file), m_outer(innermost), m_end(kUnknownLength), m_offset(PositionOf(file)) {
  const std::uint64_t left = orvalix::BytesLeft(file);
  if (left != kUnknownLength) m_end = m_offset + left;
  innermost = this;
}

RecordSource::~RecordSource() {
  innermost = m_outer;
  MoveBack(m_file, m_block.size() - m_next);
}

RecordSource* RecordSource::Of(void* file) {
  RecordSource* source = innermost;
  while (source != nullptr && source->m_file != file) source = source->m_outer;
  return source;
}

std::uint64_t RecordSource::BytesLeft() const {
  if (m_end == kUnknownLength) return kUnknownLength;
  return m_offset < m_end ? m_end - m_offset : 0;
}

std::size_t RecordSource::TakeFromBlock(unsigned char* data, std::size_t size) {
  const std::size_t taken = std::min(size, m_block.size() - m_next);
  if (taken == 0) return 0;
  std::memcpy(data, m_block.data() + m_next, taken);
  m_next += taken;
  m_offset += taken;
  return taken;
}

std::size_t RecordSource::Take(void* data, std::size_t size) {
  auto* bytes = static_cast<unsigned char*>(data);
  std::size_t taken = TakeFromBlock(bytes, size);
  if (taken == size) return taken;
  const auto ahead = static_cast<std::size_t>(std::min<std::uint64_t>(BytesLeft(), kBlock));
  if (m_end != kUnknownLength && size - taken < ahead) {
    m_block.resize(ahead);
    m_next = m_block.size();  // nothing is there to take if reading fails
    m_block.resize(ReadFromHandle(m_file, m_block.data(), ahead));
    m_next = 0;
    return taken + TakeFromBlock(bytes + taken, size - taken);
  }
  const std::size_t read = ReadFromHandle(m_file, bytes + taken, size - taken);
  m_offset += read;
  return taken + read;
}

}  // namespace orvalix
