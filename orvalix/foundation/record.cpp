#include <algorithm>
#include <bit>

#include "orvalix/foundation/record_internal.h"
#include "orvalix/host/file_handle_internal.h"

namespace orvalix {
namespace {

/// Bytes that are gathered at most, and read at once from files of unknown length.
constexpr std::size_t kBlock = std::size_t{1} << 16;

/// Elements of a list, and bytes of an array, at most in a file that has no end to tell.
constexpr int kMostOfUnknownLength = 10000;
constexpr std::uint64_t kMostBytesOfUnknownLength = std::uint64_t{256} << 20;

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
  if (m_bytes.size() + size > kBlock) Flush();
  if (size <= kBlock) {
    m_bytes.insert(m_bytes.end(), bytes, bytes + size);
  } else {
    WriteToHandle(m_file, bytes, size);
  }
}

void RecordWriter::RequireElements(std::int64_t count, std::size_t elements) {
  if (count < 0 || static_cast<std::size_t>(count) > elements) {
    AfxThrowFileException(CFileException::genericException);
  }
}

void RecordWriter::Field(const char*, const int& value) { Append(BitsOf(value), sizeof(int)); }

void RecordWriter::Field(const char*, const double& value) {
  Append(BitsOf(value), sizeof(double));
}

void RecordWriter::Field(const char* name, const point3Dtype& value) {
  for (const double number : {value.x, value.y, value.z, value.v}) Field(name, number);
}

void RecordWriter::Field(const char* name, const RGBDType& value) {
  for (const double number : {value.red, value.green, value.blue, value.alpha}) Field(name, number);
}

void RecordWriter::Field(const char* name, const GLViewportType& value) {
  for (const int number : {value.x, value.y, value.width, value.height}) Field(name, number);
}

void RecordWriter::Field(const char* name, const GLViewRType& value) {
  for (const double number : {value.x, value.y, value.width, value.height}) Field(name, number);
}

void RecordWriter::Field(const char* name, const CString& value) {
  const int length = value.GetLength();
  Field(name, length);
  AppendBytes(static_cast<const char*>(value), static_cast<std::size_t>(length));
}

void RecordWriter::Array(const char* name, const std::vector<CString>& values, std::int64_t count) {
  RequireElements(count, values.size());
  for (std::int64_t i = 0; i < count; ++i) Field(name, values[static_cast<std::size_t>(i)]);
}

void RecordWriter::Count(const char* name, const int& count, std::size_t) { Field(name, count); }

void RecordWriter::Flush() {
  if (!m_bytes.empty()) WriteToHandle(m_file, m_bytes.data(), m_bytes.size());
  m_bytes.clear();
}

RecordReader::RecordReader(void* file) : m_file(file), m_source(RecordSource::Of(file)) {
  if (m_source == nullptr) m_source = &m_own.emplace(file);
}

bool RecordReader::Take(std::span<unsigned char> bytes) {
  if (m_ended) return false;
  m_ended = m_source->Take(bytes.data(), bytes.size()) < bytes.size();
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

void RecordReader::Get(int& value) {
  std::array<int, 1> numbers;
  if (TakeNumbers(numbers)) value = numbers[0];
}

void RecordReader::Get(double& value) {
  std::array<double, 1> numbers;
  if (TakeNumbers(numbers)) value = numbers[0];
}

void RecordReader::Get(point3Dtype& value) {
  std::array<double, 4> numbers;
  if (TakeNumbers(numbers)) value = {numbers[0], numbers[1], numbers[2], numbers[3]};
}

void RecordReader::Get(RGBDType& value) {
  std::array<double, 4> numbers;
  if (TakeNumbers(numbers)) value = {numbers[0], numbers[1], numbers[2], numbers[3]};
}

void RecordReader::Get(GLViewportType& value) {
  std::array<int, 4> numbers;
  if (TakeNumbers(numbers)) value = {numbers[0], numbers[1], numbers[2], numbers[3]};
}

void RecordReader::Get(GLViewRType& value) {
  std::array<double, 4> numbers;
  if (TakeNumbers(numbers)) value = {numbers[0], numbers[1], numbers[2], numbers[3]};
}

void RecordReader::Get(CString& value) {
  std::array<int, 1> length;
  if (!TakeNumbers(length)) return;
  const std::vector<char> text = TakeElements<char>(length[0]);
  const auto end = std::find(text.begin(), text.end(), '\0');
  value = CString(text.data(), static_cast<int>(end - text.begin()));
}

std::vector<CString> RecordReader::TakeTexts(std::int64_t count) {
  RequireRoom(count, sizeof(int));
  const bool isKnown = m_source->BytesLeft() != RecordSource::kUnknownLength;
  if (!isKnown && count > kMostOfUnknownLength) ThrowEnd();
  std::vector<CString> texts;
  for (std::int64_t i = 0; i < count; ++i) {
    CString text;
    Get(text);
    if (m_ended) ThrowEnd();
    texts.push_back(std::move(text));
  }
  return texts;
}

void RecordReader::GetCount(int& count, std::size_t leastBytesPerElement) {
  std::array<int, 1> number;
  if (!TakeNumbers(number)) return;
  RequireRoom(number[0], leastBytesPerElement);
  if (m_source->BytesLeft() == RecordSource::kUnknownLength && number[0] > kMostOfUnknownLength)
    ThrowEnd();
  count = number[0];
}

std::size_t RecordReader::RequireRoom(std::int64_t count, std::size_t bytesPerElement) const {
  const std::size_t bytes = std::max<std::size_t>(bytesPerElement, 1);
  const std::uint64_t left = m_source->BytesLeft();
  const bool isKnown = left != RecordSource::kUnknownLength;
  const std::uint64_t room = isKnown ? left : kMostBytesOfUnknownLength;
  if (count < 0 || static_cast<std::uint64_t>(count) > room / bytes) ThrowEnd();
  return isKnown ? static_cast<std::size_t>(count) : std::max<std::size_t>(kBlock / bytes, 1);
}

void RecordReader::ThrowEnd() { AfxThrowFileException(CFileException::endOfFile); }

}  // namespace orvalix
