#include <bit>
#include <cstring>
#include <string>
#include <utility>

#include "orvalix/foundation/record_internal.h"
#include "orvalix/host/file_handle_internal.h"

namespace orvalix {
namespace {

/// Arrays from this size on are written as they lie, without gathering them first.
constexpr std::size_t kLargeBlock = std::size_t{1} << 16;

/// The bits of a number, wide enough for every kind.
std::uint64_t BitsOf(int value) { return static_cast<std::uint32_t>(value); }
std::uint64_t BitsOf(double value) { return std::bit_cast<std::uint64_t>(value); }

void FromBits(std::uint64_t bits, int& value) {
  value = static_cast<int>(static_cast<std::uint32_t>(bits));
}
void FromBits(std::uint64_t bits, double& value) { value = std::bit_cast<double>(bits); }

}  // namespace

RecordWriter::RecordWriter(void* file) : m_file(file) {}

void RecordWriter::Append(std::uint64_t bits, unsigned bytes) {
  for (unsigned i = 0; i < bytes; ++i) {
    m_bytes.push_back(static_cast<unsigned char>(bits >> (8 * i)));
  }
}

void RecordWriter::AppendBytes(const void* data, std::size_t size) {
  const auto* bytes = static_cast<const unsigned char*>(data);
  if (size < kLargeBlock) {
    m_bytes.insert(m_bytes.end(), bytes, bytes + size);
    return;
  }
  Flush();
  WriteToHandle(m_file, bytes, size);
}

void RecordWriter::Field(const int& value) { Append(BitsOf(value), sizeof(int)); }

void RecordWriter::Field(const double& value) { Append(BitsOf(value), sizeof(double)); }

void RecordWriter::Field(const point3Dtype& value) {
  for (const double number : {value.x, value.y, value.z, value.v}) Field(number);
}

void RecordWriter::Field(const RGBDType& value) {
  for (const double number : {value.red, value.green, value.blue, value.alpha}) Field(number);
}

void RecordWriter::Field(const GLViewportType& value) {
  for (const int number : {value.x, value.y, value.width, value.height}) Field(number);
}

void RecordWriter::Field(const GLViewRType& value) {
  for (const double number : {value.x, value.y, value.width, value.height}) Field(number);
}

void RecordWriter::Field(const CString& value) {
  const int length = value.GetLength();
  Field(length);
  AppendBytes(static_cast<const char*>(value), static_cast<std::size_t>(length));
}

void RecordWriter::Count(const int& count, std::size_t) { Field(count); }

void RecordWriter::Flush() {
  if (!m_bytes.empty()) WriteToHandle(m_file, m_bytes.data(), m_bytes.size());
  m_bytes.clear();
}

RecordReader::RecordReader(void* file) : m_file(file) {}

bool RecordReader::Take(std::span<unsigned char> bytes) {
  if (m_ended) return false;
  m_ended = ReadFromHandle(m_file, bytes.data(), bytes.size()) < bytes.size();
  return !m_ended;
}

template <class Number, std::size_t N>
bool RecordReader::TakeNumbers(std::array<Number, N>& numbers) {
  std::array<unsigned char, sizeof(Number) * N> bytes;
  if (!Take(bytes)) return false;
  for (std::size_t i = 0; i < N; ++i) {
    std::uint64_t bits = 0;
    for (std::size_t k = sizeof(Number); k-- > 0;) bits = bits << 8 | bytes[i * sizeof(Number) + k];
    FromBits(bits, numbers[i]);
  }
  return true;
}

void RecordReader::Field(int& value) {
  std::array<int, 1> numbers;
  if (TakeNumbers(numbers)) value = numbers[0];
}

void RecordReader::Field(double& value) {
  std::array<double, 1> numbers;
  if (TakeNumbers(numbers)) value = numbers[0];
}

void RecordReader::Field(point3Dtype& value) {
  std::array<double, 4> numbers;
  if (TakeNumbers(numbers)) value = {numbers[0], numbers[1], numbers[2], numbers[3]};
}

void RecordReader::Field(RGBDType& value) {
  std::array<double, 4> numbers;
  if (TakeNumbers(numbers)) value = {numbers[0], numbers[1], numbers[2], numbers[3]};
}

void RecordReader::Field(GLViewportType& value) {
  std::array<int, 4> numbers;
  if (TakeNumbers(numbers)) value = {numbers[0], numbers[1], numbers[2], numbers[3]};
}

void RecordReader::Field(GLViewRType& value) {
  std::array<double, 4> numbers;
  if (TakeNumbers(numbers)) value = {numbers[0], numbers[1], numbers[2], numbers[3]};
}

void RecordReader::Field(CString& value) {
  std::array<int, 1> length;
  if (!TakeNumbers(length)) return;
  RequireRoom(length[0], 1);
  std::vector<unsigned char> text(static_cast<std::size_t>(length[0]) + 1, 0);
  if (!Take(std::span(text).first(text.size() - 1))) return;
  value = reinterpret_cast<const char*>(text.data());
}

void RecordReader::Count(int& count, std::size_t leastBytesPerElement) {
  std::array<int, 1> number;
  if (!TakeNumbers(number)) return;
  RequireRoom(number[0], leastBytesPerElement);
  count = number[0];
}

void RecordReader::RequireRoom(int count, std::size_t bytesPerElement) const {
  const std::uint64_t left = m_ended ? 0 : BytesLeft(m_file);
  if (count < 0 || static_cast<std::uint64_t>(count) > left / bytesPerElement) {
    throw new CFileException(CFileException::endOfFile);
  }
}

}  // namespace orvalix
